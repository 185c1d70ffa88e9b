#include "ui/ObjectCommentDlg.h"

#include "model/FigObjects.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

ObjectCommentDlg::ObjectCommentDlg(QWidget* parent) : QDialog(parent), comment(new QPlainTextEdit)
{
    setObjectName("objectCommentDlg");
    setWindowTitle(tr("Object Comment"));
    auto* box = new QGroupBox(tr("Enter comment"));
    comment->setObjectName("objectComment");
    comment->setAccessibleName(tr("Comment"));
    comment->setTabChangesFocus(true);
    auto* inside = new QVBoxLayout(box);
    inside->addWidget(comment);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &ObjectCommentDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(box);
    column->addWidget(buttons);
    resize(360, 240);
}

void ObjectCommentDlg::setObject(FigObject* commented)
{
    object = commented;
    comment->setPlainText(object ? object->comments : QString());
    comment->setFocus();
}

void ObjectCommentDlg::accept()
{
    if (object) {
        object->comments = comment->toPlainText();
        emit commentChanged(!object->comments.isEmpty());
    }
    QDialog::accept();
}
