// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <cerrno>
#include <cstring>

namespace tarsel {

namespace {

constexpr struct {
    qint32 number;
    const char* text;
} errorTexts[] = {
    {ErrorNumber::InvalidCall, QT_TRANSLATE_NOOP("ErrorNumber", "Invalid procedure call")},
    {ErrorNumber::Overflow, QT_TRANSLATE_NOOP("ErrorNumber", "Overflow")},
    {ErrorNumber::OutOfMemory, QT_TRANSLATE_NOOP("ErrorNumber", "Out of memory")},
    {ErrorNumber::SubscriptOutOfRange, QT_TRANSLATE_NOOP("ErrorNumber", "Subscript out of range")},
    {ErrorNumber::DivisionByZero, QT_TRANSLATE_NOOP("ErrorNumber", "Division by zero")},
    {ErrorNumber::TypeMismatch, QT_TRANSLATE_NOOP("ErrorNumber", "Type mismatch")},
    {ErrorNumber::Interrupted, QT_TRANSLATE_NOOP("ErrorNumber", "Interrupted")},
    {ErrorNumber::FileNotFound, QT_TRANSLATE_NOOP("ErrorNumber", "File not found")},
    {ErrorNumber::DiskFull, QT_TRANSLATE_NOOP("ErrorNumber", "Disk full")},
    {ErrorNumber::InputPastEnd, QT_TRANSLATE_NOOP("ErrorNumber", "Input past end of file")},
    {ErrorNumber::PermissionDenied, QT_TRANSLATE_NOOP("ErrorNumber", "Permission denied")},
    {ErrorNumber::PathNotFound, QT_TRANSLATE_NOOP("ErrorNumber", "Path not found")},
    {ErrorNumber::InvalidPicture, QT_TRANSLATE_NOOP("ErrorNumber", "Invalid picture")},
    {ErrorNumber::UnreadableFile, QT_TRANSLATE_NOOP("ErrorNumber", "Unreadable file")},
};

} // namespace

QString errorText(qint32 number) {
    for (const auto& known : errorTexts)
        if (known.number == number)
            return QCoreApplication::translate("ErrorNumber", known.text);
    return QCoreApplication::translate("ErrorNumber", "Error %1").arg(number);
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
