// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/OutputName.h"

#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "output/Naming.h"

#include <QCoreApplication>
#include <limits>

namespace tarsel {

namespace {

enum NameOption { Retain = 0, Hybrid = 1, Generic = 2 };

/// The number of a row in the generic option. Rows that are skipped use up theirs.
int outputNumber(const QString& pattern, int position) {
    if (pattern == QLatin1String("[Starting 1]"))
        return position;
    if (pattern == QLatin1String("[Starting 1001]"))
        return position + 1000;
    const int number = toInt16(pattern) + position - 1;
    if (number > std::numeric_limits<qint16>::max())
        fail(ErrorNumber::Overflow,
             QCoreApplication::translate("OutputName", "the count %1 of row %2 is beyond 32767")
                 .arg(number)
                 .arg(position));
    return number;
}

QString hybridName(const settings::BatchSave& settings, const RowToName& row, const TokenText& tokenText) {
    const QString prefix = tokenText(settings.RenamePrefix);
    const QString suffix = tokenText(settings.RenameSuffix);
    return prefix + fncRetrieveSeparator(settings.Separator1) + row.text +
           fncRetrieveSeparator(settings.Separator2) + suffix;
}

} // namespace

OutputName outputName(const settings::BatchSave& settings, const RowToName& row, const TokenText& tokenText) {
    const QString end = QLatin1Char('.') + outputExtension();
    const QString destination = settings.DestinationFolder.trimmed();
    switch (settings.NameOption) {
    case Hybrid:
        return {settings.DestinationOption == 0 ? row.folder : destination,
                hybridName(settings, row, tokenText) + end};
    case Generic:
        return {destination, settings.RenameGeneric +
                                 QString::number(outputNumber(settings.RenameGenericPattern, row.position)) +
                                 end};
    case Retain:
    default:
        return {destination, row.text + end};
    }
}

QString nameFault(const OutputName& target) {
    if (target.name.contains(QLatin1Char('/')))
        return QCoreApplication::translate("OutputName",
                                           "%1: the name \"%2\" holds a \"/\", which no file name can")
            .arg(target.folder, target.name);
    if (target.name.contains(QChar(0)))
        return QCoreApplication::translate(
                   "OutputName", "%1: the name \"%2\" holds a NUL character, which no file name can")
            .arg(target.folder, QString(target.name).remove(QChar(0)));
    return {};
}

} // namespace tarsel
