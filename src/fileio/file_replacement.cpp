#include "fileio/file_replacement.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t NEW_FILE_MODE = 0666;
constexpr QIODevice::OpenMode WRITE_MODE =
    QIODevice::WriteOnly | QIODevice::Text | QIODevice::Unbuffered;

/// What went wrong last, for a failure that may have come without an errno value.
int lastError()
{
    return errno != 0 ? errno : EIO;
}

/// Some file systems cannot sync, which is no failure of writing.
int syncError(int handle)
{
    if (::fsync(handle) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)
        return 0;
    return lastError();
}

/// 0, or the errno value of the first failure. The device is unbuffered, so that nothing is left
/// to fail later.
int writeAll(QFileDevice& device, const QByteArray& content)
{
    errno = 0;
    return device.write(content) == content.size() ? 0 : lastError();
}

} // namespace

FileReplacement::FileReplacement(const QString& fileName) : name(fileName), aside(fileName) {}

int FileReplacement::open()
{
    struct stat target;
    existed = ::stat(QFile::encodeName(name).constData(), &target) == 0;
    const bool isNew = !existed && errno == ENOENT && !name.isEmpty();
    if (isNew || (existed && S_ISREG(target.st_mode))) {
        if (aside.open(WRITE_MODE)) {
            keepOwner();
            return 0;
        }
    }
    return openInPlace();
}

/// A figure that somebody else may write to stays theirs, as far as we are allowed to give it.
void FileReplacement::keepOwner()
{
    struct stat target, made;
    if (::stat(QFile::encodeName(name).constData(), &target) != 0 ||
        ::fstat(aside.handle(), &made) != 0)
        return;
    if (target.st_gid != made.st_gid && ::fchown(aside.handle(), uid_t(-1), target.st_gid) != 0)
        return;
    if (target.st_uid != made.st_uid && ::fchown(aside.handle(), target.st_uid, gid_t(-1)) != 0)
        return;
}

/// The system's own call, since its errno value is what the user is told. It cuts nothing off.
int FileReplacement::openInPlace()
{
    const int handle =
        ::open(QFile::encodeName(name).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, NEW_FILE_MODE);
    if (handle < 0)
        return lastError();
    inPlace.open(handle, WRITE_MODE, QFileDevice::AutoCloseHandle);
    QFile old(name);
    if (isRegular() && old.open(QIODevice::ReadOnly))
        oldContent = old.readAll();
    return 0;
}

bool FileReplacement::isRegular() const
{
    struct stat status;
    return ::fstat(inPlace.handle(), &status) == 0 && S_ISREG(status.st_mode);
}

int FileReplacement::commit(const QByteArray& content)
{
    return aside.isOpen() ? commitAside(content) : commitInPlace(content);
}

int FileReplacement::commitAside(const QByteArray& content)
{
    int error = writeAll(aside, content);
    if (error == 0)
        error = syncError(aside.handle());
    if (error != 0) {
        aside.cancelWriting();
        aside.commit();
        return error;
    }
    if (aside.commit())
        return 0;
    // The name cannot be taken over: somebody else's file in a shared folder, a mounted file.
    error = openInPlace();
    return error != 0 ? error : commitInPlace(content);
}

int FileReplacement::commitInPlace(const QByteArray& content)
{
    const int error = overwrite(content);
    if (error != 0 && isRegular()) {
        // The space that the old content had is still there.
        overwrite(oldContent);
        if (!existed)
            QFile::remove(name);
    }
    inPlace.close();
    return error;
}

/// From the start, cutting off only at the end what is too much.
int FileReplacement::overwrite(const QByteArray& content)
{
    const bool regular = isRegular();
    if (regular)
        inPlace.seek(0);
    int error = writeAll(inPlace, content);
    if (error == 0 && regular)
        error = syncError(inPlace.handle());
    if (error == 0 && regular && ::ftruncate(inPlace.handle(), content.size()) != 0)
        error = lastError();
    return error;
}
