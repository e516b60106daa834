// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"

#include <cerrno>
#include <cstring>

namespace tarsel {

QString errorText(qint32 number) {
    switch (number) {
    case ErrorNumber::InvalidCall:
        return QStringLiteral("Invalid procedure call");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::DivisionByZero:
        return QStringLiteral("Division by zero");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::Interrupted:
        return QStringLiteral("Interrupted");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::InputPastEnd:
        return QStringLiteral("Input past end of file");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    case ErrorNumber::InvalidPicture:
        return QStringLiteral("Invalid picture");
    case ErrorNumber::UnreadableFile:
        return QStringLiteral("Unreadable file");
    default:
        return QStringLiteral("Error %1").arg(number);
    }
}

void fail(qint32 number, const QString& fact, std::source_location where) {
    const QString text = errorText(number);
    throw TrappedError{number, fact.isEmpty() ? text : text + QStringLiteral(": ") + fact, where};
}

void failForErrno(int errnoValue, const QString& path, std::source_location where) {
    const QString fact = path + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errnoValue));
    switch (errnoValue) { // the number's own text stands for the fact where it says the same
    case ENOENT:
        fail(ErrorNumber::FileNotFound, path, where);
    case ENOTDIR:
        fail(ErrorNumber::PathNotFound, fact, where);
    case ENOSPC:
        fail(ErrorNumber::DiskFull, path, where);
    case EDQUOT:
    case EFBIG:
        fail(ErrorNumber::DiskFull, fact, where);
    case EACCES:
        fail(ErrorNumber::PermissionDenied, path, where);
    case EPERM:
    case EROFS:
        fail(ErrorNumber::PermissionDenied, fact, where);
    case ENOMEM:
        fail(ErrorNumber::OutOfMemory, path, where);
    default:
        throw TrappedError{ErrorNumber::InvalidCall, fact, where};
    }
}

} // namespace tarsel
