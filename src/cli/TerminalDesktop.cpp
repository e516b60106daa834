// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TerminalDesktop.h"

#include "base/ErrorTrap.h"
#include "cli/Terminal.h"

#include <QLocale>
#include <QRandomGenerator>

namespace tarsel::cli {

namespace {

/// Years are always written with four digits, whatever the locale's short form does.
QString withFourDigitYear(QString format) {
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

} // namespace

MessageAnswer TerminalDesktop::messageBox(const QString& text, MessageIcon, MessageButtons buttons,
                                          const QString&) {
    m_terminal.message(QStringLiteral("tarsel: ") + text.simplified());
    if (buttons == MessageButtons::Ok)
        return MessageAnswer::Ok;
    return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

void TerminalDesktop::showErrorReport(const ErrorReport& report) {
    m_terminal.message(QStringLiteral("tarsel: %1 (in %2)").arg(report.ErrSystem, report.ErrRoutine));
}

QDateTime TerminalDesktop::now() {
    return QDateTime::currentDateTime();
}

double TerminalDesktop::randomNumber() {
    return QRandomGenerator::global()->generateDouble();
}

QString TerminalDesktop::shortDateFormat() {
    const QLocale locale = QLocale::system();
    // The C locale of the system writes month, day, year, which Qt's C locale does not.
    if (locale.language() == QLocale::C)
        return QStringLiteral("M/d/yyyy");
    return withFourDigitYear(locale.dateFormat(QLocale::ShortFormat));
}

QString TerminalDesktop::longTimeFormat() {
    return QStringLiteral("h:mm:ss AP");
}

} // namespace tarsel::cli
