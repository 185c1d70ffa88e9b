// The coordinator of the attribute panels: a control's change comes here, becomes a current
// attribute, is told to all panels, and is applied to the selected object of the active document.
#pragma once

#include <QObject>

#include <type_traits>

class CFigContext;
class FigObject;
class QTMainFrm;

class AttrsToolbarHandler : public QObject {
    Q_OBJECT

public:
    /// The window owns it.
    explicit AttrsToolbarHandler(QTMainFrm* window);

    /// Shows the current attributes in all panels. Whatever a panel answers meanwhile is ignored.
    void updateToolbars();
    /// What updateToolbars tells by one of its signals at present; the fonts' and the colours' are
    /// none of these.
    template <typename Value>
    std::decay_t<Value> current(void (AttrsToolbarHandler::*changed)(Value)) const;

signals:
    void depthChanged(int depth);
    void lineWidthChanged(int width);
    void lineStyleChanged(int style);
    void styleValChanged(double value);
    void capStyleChanged(int style);
    void joinStyleChanged(int style);
    void arcTypeChanged(int type);
    void backArrowChanged(int number); ///< 0 no arrow, else type + 1
    void forwArrowChanged(int number);
    void arrowTypeChanged(int type);
    void boxTypeChanged(int index); ///< 0 box, 1 arc-box
    void boxCornerRadiusChanged(int radius);
    void numSidesChanged(int sides);
    void ellipseAngleChanged(int degrees);
    void textAngleChanged(int degrees);
    void textRigidChanged(bool on);
    void textSpecialChanged(bool on);
    void fontSizeChanged(const QString& points);
    void textAlignChanged(int justification);
    void psFontChanged(int font);
    void latexFontChanged(int font);
    void colorsChanged();

public slots:
    // Each stores what differs from the current value, tells the panels and changes the selected
    // object. The present value again does nothing.
    void onDepth(int depth);
    void onLineWidth(int width); ///< the sizes of new arrows follow
    void onLineStyle(int style);
    void onStyleVal(double value);
    void onCapStyle(int style);
    void onJoinStyle(int style);
    void onArcType(int type);
    void onBackArrow(int number);
    void onForwArrow(int number);
    void onArrowType(int type);
    void onBoxType(int index);
    void onBoxCornerRadius(int radius);
    void onNumSides(int sides);
    void onEllipseAngle(int degrees);
    void onTextAngle(int degrees);
    void onFontSize(int points);            ///< below 1 is ignored
    void onFontSize(const QString& points); ///< so is what is no number
    void onTextAlign(int justification);
    void onTextRigid(bool on);
    void onTextSpecial(bool on);

    // These only store.
    void onRotnAngle(int degrees);
    void onNumCopies(int copies);
    void onTangormLength(double length);

    /// Colours of the active document. A pen or fill below 0, an unknown user colour and a fill
    /// style outside -1 to 62 leave their field alone. The selection stays as it is.
    void onColors(int pen, int fill, int fillStyle);

    void openColorDlgClicked(bool);
    void openCommentDlgClicked(bool); ///< comment of the selected object

private:
    struct ArrowEnd;

    template <typename Stored, typename Value>
    void change(Stored& attribute, Value value, void (AttrsToolbarHandler::*changed)(Value));
    void changeAngle(float& attribute, int degrees, void (AttrsToolbarHandler::*changed)(int));
    void changeTextFlag(int bit, bool on, void (AttrsToolbarHandler::*changed)(bool));
    void changeArrow(const ArrowEnd& end, int number);
    void applyToSelection();

    QTMainFrm* mainWindow;
    bool updating = false;
};
