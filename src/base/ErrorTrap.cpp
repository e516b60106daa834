// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorTrap.h"

#include "base/Dialogs.h"
#include "base/ErrorSubject.h"

#include <algorithm>
#include <limits>
#include <new>
#include <thread>

namespace tarsel {

namespace {
const std::thread::id mainThread = std::this_thread::get_id(); // which initialises the program's variables
} // namespace

void requireMainThread(const char* routine) {
    if (std::this_thread::get_id() != mainThread)
        qFatal("%s traps errors outside of the main thread", routine);
}

ErrorReport GlobalErrorHandler(const QString& description, qint32 number, qint16 line,
                               const QString& routine) {
    const ErrorReport report{
        .ErrApplicationVersion = QStringLiteral(TARSEL_VERSION),
        .ErrRoutine = routine,
        .ErrLine = line,
        .ErrTrappingString = TrappingString,
        .ErrSystem = QString::number(number) + QStringLiteral(" - ") + namingSubject(description),
    };
    service<Dialogs>().showErrorReport(report);
    return report;
}

ErrorReport reportTrapped(const char* routine) {
    const QString name = QString::fromLatin1(routine);
    try {
        throw;
    } catch (const TrappedError& error) {
        const auto line =
            std::min<std::uint_least32_t>(error.where.line(), std::numeric_limits<qint16>::max());
        return GlobalErrorHandler(error.description, error.number, qint16(line), name);
    } catch (const std::bad_alloc&) {
        return GlobalErrorHandler(errorText(ErrorNumber::OutOfMemory), ErrorNumber::OutOfMemory, 0, name);
    } catch (const std::exception& error) {
        return GlobalErrorHandler(QString::fromUtf8(error.what()), ErrorNumber::InvalidCall, 0, name);
    }
}

} // namespace tarsel
