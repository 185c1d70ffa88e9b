// What the process prints to the standard error stream while an object of this kind lives.
#pragma once

#include <QByteArray>
#include <QTemporaryFile>

#include <cstdio>
#include <iostream>
#include <unistd.h>

class StandardError {
public:
    StandardError()
    {
        file.open();
        flush();
        original = dup(STDERR_FILENO);
        dup2(file.handle(), STDERR_FILENO);
    }

    ~StandardError()
    {
        flush();
        dup2(original, STDERR_FILENO);
        close(original);
    }

    QByteArray text()
    {
        flush();
        QFile copy(file.fileName());
        return copy.open(QIODevice::ReadOnly) ? copy.readAll() : QByteArray("unreadable");
    }

private:
    static void flush()
    {
        std::cerr.flush();
        std::fflush(stderr);
    }

    QTemporaryFile file;
    int original;
};
