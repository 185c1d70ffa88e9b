// The layer panel: which depths of the active document are shown, and how the others look.
#pragma once

#include <QWidget>

class CFigContext;
class QComboBox;
class QListWidget;
class QListWidgetItem;

class LayersToolbar : public QWidget {
    Q_OBJECT

public:
    LayersToolbar();

    /// Lists the depths that hold objects. Null blanks the panel. Changes go to the active
    /// document, which is therefore the one to show.
    void drawLayerButtons(CFigContext* context);

public slots:
    void itemChanged(QListWidgetItem* item);
    void allOn();
    void allOff();
    void toggle();
    void onDrawMode(int index); ///< 0 dimmed, 1 grayed, 2 hidden

private:
    template <typename NewState> void setAll(NewState newState);
    bool isListed(const CFigContext* context) const;

    QListWidget* list;
    QComboBox* drawMode;
};
