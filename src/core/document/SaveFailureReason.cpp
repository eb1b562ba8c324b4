// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/SaveFailureReason.h"

#include <QCoreApplication>

QString saveFailureReason(const PortfolioSaveFailure &failure)
{
    switch (failure.file.failure) {
    case FileWriteFailure::None: {
        QString why = failure.encodeError;
        if (why.endsWith(QLatin1Char('.')))
            why.chop(1);
        return why;
    }
    case FileWriteFailure::DiskFull:
        return QCoreApplication::translate("SaveFailureReason", "the disk is full");
    case FileWriteFailure::PermissionDenied:
        return QCoreApplication::translate("SaveFailureReason", "permission denied");
    case FileWriteFailure::ReadOnlyFileSystem:
        return QCoreApplication::translate("SaveFailureReason", "read-only file system");
    case FileWriteFailure::Other:
        break;
    }
    return qt_error_string(failure.file.systemError);
}
