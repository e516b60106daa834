// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/MetadataRefusal.h"

#include "base/Dialogs.h"
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// Without the number's own text before the fact.
QString factOf(const TrappedError& error) {
    const QString before = errorText(error.number) + QStringLiteral(": ");
    return error.description.startsWith(before) ? error.description.mid(before.size()) : error.description;
}

/// Empty for an error that is not ordinary.
QString refusalOf(const TrappedError& error) {
    switch (error.number) {
    case ErrorNumber::Overflow:
        return QCoreApplication::translate("MetadataEditor", "%1.").arg(factOf(error));
    case ErrorNumber::FileNotFound:
    case ErrorNumber::DiskFull:
    case ErrorNumber::PermissionDenied:
    case ErrorNumber::PathNotFound:
        return QCoreApplication::translate("MetadataEditor", "The file was not written.\n%1")
            .arg(namingSubject(error.description));
    default:
        return {};
    }
}

} // namespace

bool runOrRefuse(const char* routine, const std::function<void()>& step) {
    QString refusal;
    const auto report = trap(routine, [&] {
        try {
            step();
        } catch (const TrappedError& error) {
            refusal = refusalOf(error);
            if (refusal.isEmpty())
                throw;
        }
    });
    if (!refusal.isEmpty())
        service<Dialogs>().messageBox(refusal, MessageIcon::Exclamation, MessageButtons::Ok, ApplicationName);
    return !report && refusal.isEmpty();
}

} // namespace tarsel
