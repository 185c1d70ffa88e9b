// Puts a new content in the place of a file so that at any instant the old or the new one stands
// whole under its name: it goes to a file aside, reaches the disk and takes the name by a rename.
// Links keep pointing, permissions and owner stay.
//
// Where the folder lets no other file be made, and for what is no regular file, the content is
// written in place instead. The old one is then kept in memory and put back when writing fails.
#pragma once

#include <QFile>
#include <QSaveFile>

class FileReplacement {
public:
    explicit FileReplacement(const QString& fileName);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// 0, or the errno value of what is in the way; nothing has changed then.
    int open();
    /// Writes everything and lets it take the place. 0, or the errno value of what went wrong; the
    /// file then stands as it was.
    int commit(const QByteArray& content);

private:
    int openInPlace();
    int commitAside(const QByteArray& content);
    int commitInPlace(const QByteArray& content);
    int overwrite(const QByteArray& content);
    bool isRegular() const;
    void keepOwner();

    QString name;
    QSaveFile aside;
    QFile inPlace;
    QByteArray oldContent;
    bool existed = false;
};
