// Widgets that make what is in them when it is first needed, so that the start of the program
// waits for nothing that it does not show.
#pragma once

#include <QWidget>

/// Moves what is in a widget to the widget's own place in the order of the Tab key; what is made
/// late would come behind the whole window. Nothing for a window.
void joinTabOrder(QWidget* widget);

/// A widget of that base whose content comes before it first shows, or when it is asked for. What
/// the content shows then is what it would show had it been there from the start.
template <typename Base> class Late : public Base {
public:
    using Base::Base;

    bool isComplete() const { return complete; }

    /// Makes the content, unless it is there.
    void makeComplete()
    {
        if (complete)
            return;
        complete = true;
        makeContent();
        joinTabOrder(this);
    }

    void setVisible(bool visible) override
    {
        if (visible)
            makeComplete();
        Base::setVisible(visible);
    }

protected:
    virtual void makeContent() = 0; ///< called once

private:
    bool complete = false;
};
