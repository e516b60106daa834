// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"

#include "base/Desktop.h"

#include <algorithm>
#include <limits>
#include <new>
#include <thread>

namespace tarsel {

namespace {
ErrorReport filledReport;
const std::thread::id mainThread = std::this_thread::get_id(); // which initialises the program's variables
} // namespace

const ErrorReport& lastErrorReport() {
    return filledReport;
}

void requireMainThread(const char* routine) {
    if (std::this_thread::get_id() != mainThread)
        qFatal("%s traps errors outside of the main thread", routine);
}

void GlobalErrorHandler(const QString& description, qint32 number, qint16 line, const QString& routine) {
    filledReport = {
        .ErrApplicationVersion = QStringLiteral(TARSEL_VERSION),
        .ErrRoutine = routine,
        .ErrLine = line,
        .ErrTrappingString = TrappingString,
        .ErrSystem = QString::number(number) + QStringLiteral(" - ") + description,
    };
    // A copy: an error inside the dialog fills the report again.
    const ErrorReport report = filledReport;
    desktop().showErrorReport(report);
}

void reportTrapped(const char* routine) {
    const QString name = QString::fromLatin1(routine);
    try {
        throw;
    } catch (const TrappedError& error) {
        const auto line =
            std::min<std::uint_least32_t>(error.where.line(), std::numeric_limits<qint16>::max());
        GlobalErrorHandler(error.description, error.number, qint16(line), name);
    } catch (const std::bad_alloc&) {
        GlobalErrorHandler(errorText(ErrorNumber::OutOfMemory), ErrorNumber::OutOfMemory, 0, name);
    } catch (const std::exception& error) {
        GlobalErrorHandler(QString::fromUtf8(error.what()), ErrorNumber::InvalidCall, 0, name);
    }
}

} // namespace tarsel
