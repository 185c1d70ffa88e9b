// A push button that shortens a text that is too long for it instead of growing with it.
#pragma once

#include <QPushButton>

class ElidedButton : public QPushButton {
public:
    using QPushButton::QPushButton;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSize sizeWithText(const QString& shown) const;
};
