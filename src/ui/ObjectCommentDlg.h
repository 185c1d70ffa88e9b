// Edits the comment of an object.
#pragma once

#include <QDialog>

class FigObject;
class QPlainTextEdit;

class ObjectCommentDlg : public QDialog {
    Q_OBJECT

public:
    explicit ObjectCommentDlg(QWidget* parent);

    /// Shows the object's comment. The object is not owned and has to live as long as the dialog is
    /// open; null for none.
    void setObject(FigObject* commented);

signals:
    void commentChanged(bool hasComment);

public slots:
    /// The text becomes the object's comment.
    void accept() override;

private:
    FigObject* object = nullptr;
    QPlainTextEdit* comment;
};
