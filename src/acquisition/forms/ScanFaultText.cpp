// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanFaultText.h"

#include "acquisition/forms/ScanTarget.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/Translation.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

/// The disk is full, the folder is gone, and the like.
bool isOrdinary(const TrappedError& error) {
    switch (error.number) {
    case ErrorNumber::FileNotFound:
    case ErrorNumber::DiskFull:
    case ErrorNumber::PermissionDenied:
    case ErrorNumber::PathNotFound:
        return true;
    default:
        return false;
    }
}

QString unsavedText(const std::vector<int>& pages, const QString& reason) {
    QStringList numbers;
    for (const int page : pages)
        numbers << QString::number(page);
    return pages.size() == 1 ? QCoreApplication::translate("ScanFaultText", "Page %1 was not saved.\n%2")
                                   .arg(numbers.front(), reason)
                             : QCoreApplication::translate("ScanFaultText", "Pages %1 were not saved.\n%2")
                                   .arg(numbers.join(QStringLiteral(", ")), reason);
}

} // namespace

void showFaults(const ScanFaults& faults, int pages) {
    QStringList lines;
    QStringList reasons;
    for (const TrappedError& error : faults.errors)
        if (isOrdinary(error))
            reasons << error.description;
    if (!reasons.isEmpty())
        lines << unsavedText(faults.unsaved, reasons.join(QLatin1Char('\n')));
    for (const int page : faults.cut)
        lines << QCoreApplication::translate(
                     "ScanFaultText", "Page %1 ended early: the scanner sent fewer lines than it promised.")
                     .arg(page);
    if (faults.scanner)
        lines << faults.scanner->description;
    if (faults.scanner && pages > int(faults.unsaved.size()))
        lines << QCoreApplication::translate("ScanFaultText", "The pages that came before are kept.");
    if (!lines.isEmpty())
        service<Dialogs>().messageBox(lines.join(QStringLiteral("\n\n")), MessageIcon::Exclamation,
                                      MessageButtons::Ok, ApplicationName);
    for (const TrappedError& error : faults.errors)
        if (!isOrdinary(error))
            std::ignore = trap("FrmTwain.ImageBox1_TwainPage", [&] { throw error; });
}

QString pagesText(int pages) {
    if (pages == 0)
        return QCoreApplication::translate("ScanFaultText", "No page was acquired.");
    return countedText("ScanFaultText", "1 page was acquired.",
                       QT_TRANSLATE_N_NOOP("ScanFaultText", "%n pages were acquired."), pages);
}

QString replacingText(const ScanTarget& target) {
    constexpr qsizetype named = 5;
    QStringList names = target.replaced.mid(0, named);
    if (target.replaced.size() > named)
        names << QStringLiteral("...");
    return QCoreApplication::translate("ScanFaultText",
                                       "The folder %1 already has:\n%2\n\nPages of the scanner would replace "
                                       "these files. Do you want to go on?")
        .arg(target.folder, names.join(QLatin1Char('\n')));
}

} // namespace tarsel
