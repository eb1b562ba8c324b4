// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Replaces a document file as a whole: the bytes go to a temporary copy beside it, which is
// flushed to disk and then renamed over the document, so the old file stays whole whatever
// goes wrong. A failure comes back as a code and the system's error number; the window and the
// command line put it in their own words.
#include <QByteArray>
#include <QString>

enum class FileWriteFailure {
    None,
    DiskFull,           // ENOSPC, EDQUOT
    PermissionDenied,   // EACCES, EPERM
    ReadOnlyFileSystem, // EROFS
    Other,              // see systemError
};

struct FileWriteResult
{
    FileWriteFailure failure = FileWriteFailure::None;
    int systemError = 0; // errno of the step that failed
    bool ok() const { return failure == FileWriteFailure::None; }
};

namespace DocumentFileWriter {

FileWriteFailure failureOf(int systemError);

// The temporary copy of `path` is ".<file name>.saving-XXXXXX" in the same folder. A save killed
// before its rename leaves one behind; the next successful save of that document removes them.
QString temporaryPrefix(const QString &path);
FileWriteResult replaceFile(const QString &path, const QByteArray &data);

// For tests: the writes that follow fail with this errno (0 lets them through again).
void failWritesForTesting(int systemError);

} // namespace DocumentFileWriter
