// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <source_location>

namespace tarsel {

/// Numbers of the errors that a failing step can end with.
namespace ErrorNumber {
constexpr qint32 InvalidCall = 5;
constexpr qint32 Overflow = 6;
constexpr qint32 OutOfMemory = 7;
constexpr qint32 SubscriptOutOfRange = 9;
constexpr qint32 DivisionByZero = 11;
constexpr qint32 TypeMismatch = 13;
constexpr qint32 Interrupted = 18; ///< a stop was requested
constexpr qint32 FileNotFound = 53;
constexpr qint32 DiskFull = 61;
constexpr qint32 InputPastEnd = 62;
constexpr qint32 PermissionDenied = 70;
constexpr qint32 PathNotFound = 76;
constexpr qint32 InvalidPicture = 481;
/// A file that its decoder can't make sense of.
constexpr qint32 UnreadableFile = qint32(0x8000FFFF);
} // namespace ErrorNumber

/// The one type that a failing step throws. `description` names the file and the fact where a file is
/// concerned.
struct TrappedError {
    qint32 number = ErrorNumber::InvalidCall;
    QString description;
    std::source_location where = std::source_location::current();
};

/// The short text that stands for an error number, such as "Disk full".
QString errorText(qint32 number);

/// Throws a TrappedError. The description is the number's own text, then ": " and the fact when one is given.
[[noreturn]] void fail(qint32 number, const QString& fact = {},
                       std::source_location where = std::source_location::current());

/// Throws the TrappedError that stands for an errno value met while working on `path`.
[[noreturn]] void failForErrno(int errnoValue, const QString& path,
                               std::source_location where = std::source_location::current());

} // namespace tarsel
