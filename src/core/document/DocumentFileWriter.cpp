// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/DocumentFileWriter.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int s_injectedWriteError = 0;

FileWriteResult failed(int systemError)
{
    return {DocumentFileWriter::failureOf(systemError), systemError};
}

bool writeAll(int fd, const QByteArray &data, int *systemError)
{
    const char *next = data.constData();
    qint64 left = data.size();
    while (left > 0) {
        if (s_injectedWriteError != 0) {
            *systemError = s_injectedWriteError;
            return false;
        }
        const ssize_t written = ::write(fd, next, size_t(left));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            *systemError = errno;
            return false;
        }
        next += written;
        left -= written;
    }
    return true;
}

// The mode a new document gets, as an ordinary file creation would give it.
mode_t modeForNewFile()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Copies left by saves that never reached their rename.
void removeStaleCopies(const QString &path)
{
    const QFileInfo info(path);
    QDir folder = info.absoluteDir();
    const QString prefix = QFileInfo(DocumentFileWriter::temporaryPrefix(path)).fileName();
    // Compared as text, not as a wildcard pattern: a document's name may hold "[" or "*".
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names)
        if (name.startsWith(prefix))
            folder.remove(name);
}

} // namespace

namespace DocumentFileWriter {

FileWriteFailure failureOf(int systemError)
{
    switch (systemError) {
    case 0:
        return FileWriteFailure::None;
    case ENOSPC:
    case EDQUOT:
        return FileWriteFailure::DiskFull;
    case EACCES:
    case EPERM:
        return FileWriteFailure::PermissionDenied;
    case EROFS:
        return FileWriteFailure::ReadOnlyFileSystem;
    default:
        return FileWriteFailure::Other;
    }
}

QString temporaryPrefix(const QString &path)
{
    const QFileInfo info(path);
    return info.absolutePath() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".saving-");
}

FileWriteResult replaceFile(const QString &path, const QByteArray &data)
{
    QByteArray pattern = QFile::encodeName(temporaryPrefix(path)) + "XXXXXX";
    const int fd = ::mkstemp(pattern.data());
    if (fd < 0)
        return failed(errno);
    const auto discard = [&](int systemError) {
        ::close(fd);
        ::unlink(pattern.constData());
        return failed(systemError);
    };
    // The document keeps its permissions; mkstemp alone would make it private.
    struct stat existing{};
    const QByteArray target = QFile::encodeName(path);
    const mode_t mode = ::stat(target.constData(), &existing) == 0 ? (existing.st_mode & 07777) : modeForNewFile();
    if (::fchmod(fd, mode) != 0)
        return discard(errno);
    int systemError = 0;
    if (!writeAll(fd, data, &systemError))
        return discard(systemError);
    // A full disk may only show when the data is flushed.
    if (::fsync(fd) != 0)
        return discard(errno);
    if (::close(fd) != 0) {
        const int closeError = errno;
        ::unlink(pattern.constData());
        return failed(closeError);
    }
    if (::rename(pattern.constData(), target.constData()) != 0) {
        const int renameError = errno;
        ::unlink(pattern.constData());
        return failed(renameError);
    }
    removeStaleCopies(path);
    return {};
}

void failWritesForTesting(int systemError)
{
    s_injectedWriteError = systemError;
}

} // namespace DocumentFileWriter
