// The attribute panels, one class for each kind of object or tool that has attributes.
#pragma once

#include "ui/AttrsPanel.h"

class QCheckBox;

/// For everything without attributes.
class EmptyAttrsToolbar : public QWidget {
    Q_OBJECT
};

class ArcAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    ArcAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class ArrowAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    ArrowAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class BoxAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    BoxAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class CompoundAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    CompoundAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class EllipseAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    EllipseAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class PolygonAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    PolygonAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class PolylineAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    PolylineAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class PicAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    PicAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class RegpolyAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    RegpolyAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class ClosedSplineAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    ClosedSplineAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class OpenSplineAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    OpenSplineAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class TextAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    TextAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);

public slots:
    void onPsFontChanged(int font);
    void onLatexFontChanged(int font);
    void onEditText();
    void onOpenFontSel();

protected:
    void makeContent() override;
};

class RotateAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    RotateAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);
};

class TangnormAttrsToolbar : public AttrsPanel {
    Q_OBJECT

public:
    TangnormAttrsToolbar(AttrsToolbarHandler* coordinator, QTMainFrm* window);

public slots:
    void onUnit(int unit); ///< 0 centimetres, else inches

protected:
    void makeContent() override;
};

/// Chooses what the update tool takes over: one box per attribute.
class UpdateAttrsToolbar : public Late<QWidget> {
    Q_OBJECT

public slots:
    void flagChanged(); ///< the boxes become the update list

protected:
    void makeContent() override;

private:
    template <typename NewState> void setAll(NewState newState);

    QVector<QCheckBox*> boxes;
};
