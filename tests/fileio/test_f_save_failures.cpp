// Saving where it cannot succeed, or not in the common way: no figure is torn, the reason is told,
// and what could not be saved is kept.
#include "WriterFixture.h"
#include "fileio/rescue_copy.h"

#include <QDir>
#include <QStandardPaths>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <cstring>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QByteArray oldContent = "what stood there before\n";

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QFAIL("a file of the test cannot be written");
}

QString failureMessage(const QString& path, int error)
{
    return QString("Couldn't open file %1, %2").arg(path, QString::fromUtf8(std::strerror(error)));
}

/// A file system of its own; not mounted where that is not allowed.
class Mount {
public:
    Mount(const QString& folder, const char* options) : path(QFile::encodeName(folder))
    {
        QDir().mkpath(folder);
        mounted = ::mount("none", path.constData(), "tmpfs", 0, options) == 0;
    }
    ~Mount()
    {
        if (mounted)
            ::umount2(path.constData(), MNT_DETACH);
    }
    Mount(const Mount&) = delete;
    Mount& operator=(const Mount&) = delete;
    bool makeReadOnly() const
    {
        return ::mount("none", path.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

    bool mounted;

private:
    QByteArray path;
};

bool isRoot()
{
    uid_t real, effective, saved;
    return ::getresuid(&real, &effective, &saved) == 0 && saved == 0;
}

/// Nobody in particular for as long as it lives, where the test runs as root.
class OrdinaryUser {
public:
    OrdinaryUser() { changed = !isRoot() || ::setresuid(nobody, nobody, 0) == 0; }
    ~OrdinaryUser()
    {
        if (isRoot() && ::setresuid(0, 0, 0) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    static constexpr uid_t nobody = 65534;
    bool changed;
};

/// Gives a file or folder to that user, so that it can be used when root's rights are gone.
void giveAway(const QString& path)
{
    if (isRoot() &&
        ::chown(QFile::encodeName(path).constData(), OrdinaryUser::nobody, gid_t(-1)) != 0)
        QFAIL("a file of the test cannot be given away");
}

void setMode(const QString& path, mode_t mode)
{
    ::chmod(QFile::encodeName(path).constData(), mode);
}

QStringList entriesOf(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

/// A figure of about 300 kB.
void fillLarge(CFigContext* ctx)
{
    for (int id = 1; id <= 4000; ++id)
        ctx->drawing.objects.append(with(makeLine({{id, 0}, {id, 9}}), id));
}

} // namespace

class TestFSaveFailures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // What is mounted here is seen by nobody else and goes with the process.
        if (::unshare(CLONE_NEWNS) == 0)
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
        // Rescue copies of this test go to a place of its own.
        qputenv("XDG_DATA_HOME", QFile::encodeName(dataFolder.path()));
        giveAway(dataFolder.path());
    }

    void cleanup() { QDir(dataFolder.filePath("Orvalt")).removeRecursively(); }

    // --- nothing can be opened ------------------------------------------------------------

    void aMissingFolderIsTold() { failsToOpen("no such folder/figure.fig", ENOENT); }

    void aFolderInTheWayIsTold()
    {
        QTemporaryDir folder;
        failsToOpen(folder.path(), EISDIR);
        QVERIFY(QDir(folder.path()).exists());
    }

    void aFileInThePlaceOfAFolderIsTold()
    {
        QTemporaryDir folder;
        writeFile(folder.filePath("file"), oldContent);
        failsToOpen(folder.filePath("file/figure.fig"), ENOTDIR);
    }

    void anEmptyNameIsTold() { failsToOpen("", ENOENT); }

    void aNameThatIsTooLongIsTold()
    {
        QTemporaryDir folder;
        failsToOpen(folder.filePath(QString(300, 'x')), ENAMETOOLONG);
    }

    void aCircleOfLinksIsTold()
    {
        QTemporaryDir folder;
        QVERIFY(QFile::link("b", folder.filePath("a")));
        QVERIFY(QFile::link("a", folder.filePath("b")));
        failsToOpen(folder.filePath("a"), ELOOP);
        QVERIFY(QFileInfo(folder.filePath("a")).isSymLink());
    }

    void aFileWithoutPermissionIsTold()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        writeFile(path, oldContent);
        setMode(path, 0444);
        giveAway(folder.path());
        giveAway(path);
        const OrdinaryUser user;
        if (!user.changed)
            QSKIP("no other user to be");
        failsToOpen(path, EACCES);
        QCOMPARE(contentOf(path), oldContent);
    }

    void aFolderWithoutPermissionIsToldForANewFile()
    {
        QTemporaryDir folder;
        giveAway(folder.path());
        const OrdinaryUser user;
        if (!user.changed)
            QSKIP("no other user to be");
        setMode(folder.path(), 0555);
        failsToOpen(folder.filePath("figure.fig"), EACCES);
        setMode(folder.path(), 0755);
        QCOMPARE(entriesOf(folder.path()), QStringList());
    }

    void aReadOnlyFileSystemIsTold()
    {
        QTemporaryDir folder;
        const Mount disk(folder.filePath("disk"), "size=1m");
        if (!disk.mounted)
            QSKIP("no file system may be mounted");
        const QString path = folder.filePath("disk/figure.fig");
        writeFile(path, oldContent);
        QVERIFY(disk.makeReadOnly());
        failsToOpen(path, EROFS);
        failsToOpen(folder.filePath("disk/new.fig"), EROFS);
        QCOMPARE(contentOf(path), oldContent);
    }

    // --- the disk is full -------------------------------------------------------------------

    void aFullDiskLeavesTheOldFigure()
    {
        QTemporaryDir folder;
        const Mount disk(folder.filePath("disk"), "size=100k");
        if (!disk.mounted)
            QSKIP("no file system may be mounted");
        const QString path = folder.filePath("disk/figure.fig");
        writeFile(path, oldContent);
        failsToWrite(path, ENOSPC);
        QCOMPARE(contentOf(path), oldContent);
        QCOMPARE(entriesOf(folder.filePath("disk")), QStringList("figure.fig"));
    }

    void aFullDiskLeavesNoNewFile()
    {
        QTemporaryDir folder;
        const Mount disk(folder.filePath("disk"), "size=100k");
        if (!disk.mounted)
            QSKIP("no file system may be mounted");
        failsToWrite(folder.filePath("disk/figure.fig"), ENOSPC);
        QCOMPARE(entriesOf(folder.filePath("disk")), QStringList());
    }

    void aFullDeviceIsToldAndStaysADevice()
    {
        struct stat before, after;
        if (::stat("/dev/full", &before) != 0)
            QSKIP("no /dev/full here");
        failsToWrite("/dev/full", ENOSPC);
        QVERIFY(::stat("/dev/full", &after) == 0 && S_ISCHR(after.st_mode));
        QCOMPARE(after.st_ino, before.st_ino);
    }

    // Where the folder lets no file be made aside, the disk may fill up while the old one is
    // overwritten.
    void aFullDiskLeavesTheOldFigureInAFolderThatForbidsNewFiles()
    {
        QTemporaryDir folder;
        const Mount disk(folder.filePath("disk"), "size=100k,mode=777");
        if (!disk.mounted)
            QSKIP("no file system may be mounted");
        const QString path = folder.filePath("disk/figure.fig");
        const QByteArray longContent(50000, 'x');
        writeFile(path, longContent);
        giveAway(path);
        setMode(folder.path(), 0755);
        setMode(folder.filePath("disk"), 0555);
        const OrdinaryUser user;
        QVERIFY(user.changed);
        failsToWrite(path, ENOSPC);
        QCOMPARE(contentOf(path), longContent);
    }

    void aLimitOnTheSizeOfFilesLeavesTheOldFigure()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        writeFile(path, oldContent);
        SavedDocument document;
        fillLarge(&document.ctx);
        struct rlimit before;
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
        std::signal(SIGXFSZ, SIG_IGN);
        struct rlimit limit = before;
        limit.rlim_cur = 10000;
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
        const bool saved = write_file(&document.ctx, path);
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
        QVERIFY(!saved);
        QCOMPARE(recordingShell.messages.last(), failureMessage(path, EFBIG));
        QCOMPARE(contentOf(path), oldContent);
        // The same limit holds for the rescue copy.
        QVERIFY(recordingShell.logLines.value(0).startsWith("No rescue copy of "));
    }

    void theProgramGoesOnAfterAFailure()
    {
        SavedDocument document;
        document.add(with(makeLine({{1, 2}}), 1));
        QVERIFY(!write_file(&document.ctx, document.folder.filePath("none/figure.fig")));
        QVERIFY(document.save().contains("\n\t 1 2\n"));
    }

    // --- other targets -----------------------------------------------------------------------

    void aLinkKeepsPointingAndItsTargetIsReplaced()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("elsewhere"));
        writeFile(folder.filePath("elsewhere/target.fig"), oldContent);
        const QString path = folder.filePath("link.fig");
        QVERIFY(QFile::link("elsewhere/target.fig", path));
        savesTo(path);
        QCOMPARE(QFileInfo(path).symLinkTarget(), folder.filePath("elsewhere/target.fig"));
        QVERIFY(contentOf(folder.filePath("elsewhere/target.fig")).startsWith("#FIG 3.2"));
        QCOMPARE(entriesOf(folder.filePath("elsewhere")), QStringList("target.fig"));
    }

    void aLinkToNothingGetsItsTarget()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("link.fig");
        QVERIFY(QFile::link("target.fig", path));
        savesTo(path);
        QVERIFY(QFileInfo(path).isSymLink());
        QVERIFY(contentOf(folder.filePath("target.fig")).startsWith("#FIG 3.2"));
    }

    void aLinkToAnotherDeviceKeepsPointing()
    {
        QTemporaryDir folder;
        const Mount disk(folder.filePath("disk"), "size=1m");
        if (!disk.mounted)
            QSKIP("no file system may be mounted");
        writeFile(folder.filePath("disk/target.fig"), oldContent);
        const QString path = folder.filePath("link.fig");
        QVERIFY(QFile::link("disk/target.fig", path));
        savesTo(path);
        QVERIFY(QFileInfo(path).isSymLink());
        QCOMPARE(entriesOf(folder.filePath("disk")), QStringList("target.fig"));
    }

    void permissionsStay()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        writeFile(path, oldContent);
        setMode(path, 0640);
        giveAway(path);
        savesTo(path);
        struct stat status;
        QCOMPARE(::stat(QFile::encodeName(path).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, mode_t(0640));
        QCOMPARE(status.st_uid, isRoot() ? uid_t(OrdinaryUser::nobody) : ::getuid());
    }

    void aFolderThatForbidsNewFilesHasTheFileWrittenInPlace()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        writeFile(path, QByteArray(100000, 'x'));
        giveAway(folder.path());
        giveAway(path);
        const OrdinaryUser user;
        if (!user.changed)
            QSKIP("no other user to be");
        setMode(folder.path(), 0555);
        savesTo(path);
        setMode(folder.path(), 0755);
    }

    // A shared folder, in which only the owner of a file may replace it.
    void aFileOfSomebodyElseInASharedFolderIsWrittenInPlace()
    {
        if (!isRoot())
            QSKIP("it takes another user");
        QTemporaryDir folder;
        const QString path = folder.filePath("figure.fig");
        writeFile(path, oldContent);
        setMode(path, 0666);
        setMode(folder.path(), 01777);
        const OrdinaryUser user;
        savesTo(path);
        QCOMPARE(entriesOf(folder.path()), QStringList("figure.fig"));
    }

    // The file aside has a longer name than this one may have.
    void aNameOfFullLengthCanBeSaved()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QString(251, 'x') + ".fig");
        savesTo(path);
        savesTo(path);
        QCOMPARE(entriesOf(folder.path()).size(), 1);
    }

    void nothingIsLeftAsideOfASavedFile()
    {
        SavedDocument document;
        document.save();
        document.save();
        QCOMPARE(entriesOf(document.folder.path()), QStringList("figure.fig"));
    }

    // --- rescue copies -------------------------------------------------------------------------

    void rescueCopiesStandInTheDataFolderOfTheProgram()
    {
        QCOMPARE(rescueFolder(), dataFolder.path() + "/Orvalt/rescue");
    }

    void theNameOfARescueCopyTellsFileAndTime()
    {
        keepRescueCopy("/somewhere/a plan.v2.fig", "content");
        const QStringList names = entriesOf(rescueFolder());
        QCOMPARE(names.size(), 1);
        static const QRegularExpression pattern(
            "^a plan\\.v2-\\d{4}-\\d\\d-\\d\\d-\\d\\d-\\d\\d-\\d\\d-\\d\\d\\d\\.fig$");
        QVERIFY2(pattern.match(names.first()).hasMatch(), qPrintable(names.first()));
        QCOMPARE(contentOf(rescueFolder() + '/' + names.first()), QByteArray("content"));
    }

    void noRescueCopyReplacesAnother()
    {
        for (int i = 0; i < 20; ++i)
            keepRescueCopy("plan.fig", QByteArray::number(i));
        QCOMPARE(entriesOf(rescueFolder()).size(), 20);
    }

    void aLongNameIsNoReasonToLoseTheCopy()
    {
        recordingShell.clear();
        keepRescueCopy(QString(400, QChar(0x20ac)) + ".fig", "content");
        QCOMPARE(entriesOf(rescueFolder()).size(), 1);
        QVERIFY(recordingShell.logLines.value(0).startsWith("What could not be saved in "));
    }

private:
    QTemporaryDir dataFolder;

    static QString rescuedFile()
    {
        return rescueFolder() + '/' + entriesOf(rescueFolder()).value(0);
    }

    void failsToOpen(const QString& path, int error)
    {
        SavedDocument document;
        num_object = 5;
        document.add(with(makeLine({{1, 2}}), 1));
        QVERIFY(!write_file(&document.ctx, path));
        QCOMPARE(recordingShell.messages, QStringList(failureMessage(path, error)));
        QCOMPARE(num_object, 5);
        keptAsRescueCopy(path, document.save());
    }

    void failsToWrite(const QString& path, int error)
    {
        SavedDocument document;
        fillLarge(&document.ctx);
        QVERIFY(!write_file(&document.ctx, path));
        QCOMPARE(recordingShell.messages, QStringList({"Writing...", failureMessage(path, error)}));
        keptAsRescueCopy(path, document.save());
    }

    void keptAsRescueCopy(const QString& path, const QByteArray& text)
    {
        QCOMPARE(recordingShell.logLines,
                 QStringList(QString("What could not be saved in \"%1\" stands in \"%2\".")
                                 .arg(path, rescuedFile())));
        QCOMPARE(contentOf(rescuedFile()), text);
        cleanup();
    }

    void savesTo(const QString& path)
    {
        SavedDocument document;
        document.add(with(makeLine({{1, 2}}), 1));
        QVERIFY(write_file(&document.ctx, path));
        QCOMPARE(recordingShell.messages.last(), "1 object(s) saved in \"" + path + "\"");
        QVERIFY(contentOf(path).endsWith("0 0 -1 0 0 1\n\t 1 2\n"));
    }
};

QTEST_MAIN(TestFSaveFailures)
#include "test_f_save_failures.moc"
