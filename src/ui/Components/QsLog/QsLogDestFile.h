// Log messages in a file, and the rules by which a file that has grown makes room for a new one.
// Failures go to the standard error stream.
#pragma once

#include "ui/Components/QsLog/QsLogDest.h"

#include <QFile>
#include <QIODevice>
#include <QSharedPointer>
#include <QTextStream>

namespace QsLogging {

class RotationStrategy {
public:
    RotationStrategy() = default;
    virtual ~RotationStrategy() = default;
    virtual void setInitialInfo(const QFile& file) = 0;
    virtual void includeMessageInCalculation(const QString& message) = 0;
    virtual bool shouldRotate() = 0;
    /// The file is closed meanwhile.
    virtual void rotate() = 0;
    virtual QIODevice::OpenMode recommendedOpenModeFlag() = 0;

private:
    Q_DISABLE_COPY(RotationStrategy)
};

using RotationStrategyPtr = QSharedPointer<RotationStrategy>;

/// Never rotates; every start begins an empty file.
class NullRotationStrategy : public RotationStrategy {
public:
    void setInitialInfo(const QFile&) override {}
    void includeMessageInCalculation(const QString&) override {}
    bool shouldRotate() override { return false; }
    void rotate() override {}
    QIODevice::OpenMode recommendedOpenModeFlag() override;
};

/// Keeps the old logs as name.1 (the youngest), name.2 and so on.
class SizeRotationStrategy : public RotationStrategy {
public:
    void setInitialInfo(const QFile& file) override;
    void includeMessageInCalculation(const QString& message) override;
    bool shouldRotate() override;
    void rotate() override;
    QIODevice::OpenMode recommendedOpenModeFlag() override;

    void setMaximumSizeInBytes(qint64 size);
    void setBackupCount(int count); ///< below 1: the old log is removed

private:
    QString backupName(int number) const;
    int lastExistingBackup() const;
    void renumberBackups();

    QString fileName;
    qint64 currentSize = 0;
    qint64 maximumSize = 0;
    int backupCount = 0;
};

class FileDestination : public Destination {
public:
    FileDestination(const QString& path, const RotationStrategyPtr& rotation);

    /// Nothing while the file is not open.
    void write(const QString& message, Level level) override;
    bool isValid() override;

private:
    bool openFile();
    void rotateFile();

    QFile file;
    QTextStream stream;
    RotationStrategyPtr strategy;
};

} // namespace QsLogging
