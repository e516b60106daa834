// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ProgressText.h"

#include <QCoreApplication>
#include <cmath>

namespace tarsel {

namespace {

/// Minutes and seconds, or hours, minutes and seconds.
QString durationText(double seconds) {
    const qint64 rounded = std::llround(seconds);
    const QString clock =
        QStringLiteral("%1:%2").arg(rounded / 60 % 60).arg(rounded % 60, 2, 10, QLatin1Char('0'));
    return rounded < 3600
               ? clock
               : QStringLiteral("%1:%2").arg(rounded / 3600).arg(clock.rightJustified(5, QLatin1Char('0')));
}

} // namespace

QString progressText(int value, int maximum, double secondsSinceStart) {
    if (value <= 0 || value >= maximum || secondsSinceStart <= 0)
        return QCoreApplication::translate("Progress", "%1 of %2").arg(value).arg(maximum);
    return QCoreApplication::translate("Progress", "%1 of %2, %3 left")
        .arg(value)
        .arg(maximum)
        .arg(durationText(secondsSinceStart / value * (maximum - value)));
}

} // namespace tarsel
