// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanTarget.h"

#include "acquisition/scanner/AcquiredPages.h"

#include <QDir>
#include <QRegularExpression>

namespace tarsel {

namespace {

/// How many pages a feeder holds is not known: every later number counts.
QStringList numberedFiles(const QDir& folder, const settings::Twain& choice, int firstNumber) {
    const QString extension = singlePageExtension(choice);
    const QRegularExpression numbered(
        QStringLiteral("^%1([0-9]+)\\.%2$").arg(QRegularExpression::escape(choice.GenericName), extension));
    QStringList found;
    for (const QString& file : folder.entryList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name)) {
        const QRegularExpressionMatch match = numbered.match(file);
        if (match.hasMatch() && match.captured(1).toInt() >= firstNumber)
            found << file;
    }
    return found;
}

} // namespace

ScanTarget scanTarget(const settings::Twain& choice, int firstNumber) {
    const QDir folder(choice.Folder);
    ScanTarget target{choice.Folder, folder.exists(), {}};
    const QString document = documentName(choice);
    if (choice.FileOption == 0)
        target.replaced = numberedFiles(folder, choice, firstNumber);
    else if (folder.exists(document))
        target.replaced << document;
    return target;
}

} // namespace tarsel
