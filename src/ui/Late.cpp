#include "ui/Late.h"

namespace {

/// Lets a widget take the Tab key as long as this lives.
class TakesTab {
public:
    explicit TakesTab(QWidget* taking) : widget(taking), policy(taking->focusPolicy())
    {
        if (policy == Qt::NoFocus)
            widget->setFocusPolicy(Qt::TabFocus);
    }
    ~TakesTab() { widget->setFocusPolicy(policy); }
    Q_DISABLE_COPY(TakesTab)

private:
    QWidget* widget;
    Qt::FocusPolicy policy;
};

QList<QWidget*> keyTakersIn(const QWidget* widget)
{
    QList<QWidget*> content;
    for (QWidget* next = widget->nextInFocusChain(); next != widget;
         next = next->nextInFocusChain())
        if (widget->isAncestorOf(next) && next->focusPolicy() != Qt::NoFocus)
            content.append(next);
    return content;
}

} // namespace

void joinTabOrder(QWidget* widget)
{
    if (widget->isWindow())
        return;
    const QList<QWidget*> content = keyTakersIn(widget);
    // Qt orders only what takes the key. The widget itself is the place to go to, and what follows
    // it may be another one that is still empty and keeps its place too.
    const TakesTab start(widget);
    const TakesTab follower(widget->nextInFocusChain());
    QWidget* previous = widget;
    for (QWidget* next : content) {
        QWidget::setTabOrder(previous, next);
        previous = next;
    }
}
