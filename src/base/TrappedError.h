// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <source_location>

namespace tarsel {

/// Numbers of the errors that a failing step can end with.
namespace ErrorNumber {
enum Value : qint32 {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    Interrupted = 18, ///< a stop was requested
    FileNotFound = 53,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathNotFound = 76,
    InvalidPicture = 481,
    /// A file that its decoder can't make sense of.
    UnreadableFile = qint32(0x8000FFFF),
};
} // namespace ErrorNumber

/// The one type that a failing step throws. `description` names the file and the fact where a file is
/// concerned.
struct TrappedError {
    qint32 number = ErrorNumber::InvalidCall;
    QString description;
    std::source_location where = std::source_location::current();
};

/// The short text of an error number, such as "Disk full", in the user's language.
QString errorText(qint32 number);

/// Throws a TrappedError. The description is the number's own text, then ": " and the fact, if any.
[[noreturn]] void fail(qint32 number, const QString& fact = {},
                       std::source_location where = std::source_location::current());

/// Throws the TrappedError that stands for an errno value met while working on `path`.
[[noreturn]] void failForErrno(int errnoValue, const QString& path,
                               std::source_location where = std::source_location::current());

} // namespace tarsel
