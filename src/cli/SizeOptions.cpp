// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SizeOptions.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace tarsel::cli {

namespace {

/// K and M are 1024 and 1024 x 1024 bytes, as file managers show them.
qint64 bytesIn(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^([1-9][0-9]{0,11})([KkMm]?)$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        throw UsageError{
            QCoreApplication::translate("CommandLine", "--max-size takes bytes, 200K or 2M, not \"%1\"")
                .arg(text)};
    const QString unit = match.captured(2).toUpper();
    return match.captured(1).toLongLong() * (unit == QLatin1String("K")   ? 1024
                                             : unit == QLatin1String("M") ? 1024 * 1024
                                                                          : 1);
}

} // namespace

SizeBudget sizeBudget(const Arguments& arguments) {
    SizeBudget budget;
    for (const char* option : {minQualityOption.name, shrinkOption.name})
        if (arguments.has(option) && !arguments.has(maxSizeOption.name))
            throw UsageError{QCoreApplication::translate("CommandLine", "--%1 goes with --max-size")
                                 .arg(QLatin1String(option))};
    if (!arguments.has(maxSizeOption.name))
        return budget;
    budget.bytes = bytesIn(arguments.value(maxSizeOption.name));
    budget.lowestQuality =
        numberIn(arguments.value(minQualityOption.name, QString::number(budget.lowestQuality)), 1, 100,
                 minQualityOption.name);
    budget.mayShrink = arguments.has(shrinkOption.name);
    return budget;
}

} // namespace tarsel::cli
