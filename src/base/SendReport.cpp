// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SendReport.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "base/SystemServices.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel {

namespace {

const QString basePath = QStringLiteral("/cgi-bin/cgiemail/support/submitBug.txt?");

/// Titles of browser windows that show the form's answer.
constexpr const char* successTitles[] = {
    "Success - Windows Internet Explorer",
    "Success - Microsoft Internet Explorer",
    "Success",
    "Success - Internet Explorer",
    "Success - Explorer",
    "Success - Windows Explorer",
};

QString thanks() {
    return QCoreApplication::translate("SendReport",
                                       "Report send. Thank you very much for your time.\n"
                                       "\n"
                                       "If you had provided us with a valid email address,\n"
                                       "one of our support staff will attend to this error report,\n"
                                       "and you might get a responce from us");
}

} // namespace

QString errorReportUrl(const ErrorReport& report, const QString& email, const QString& description) {
    const QString address =
        email.trimmed().isEmpty() ? QStringLiteral(TARSEL_REPORT_ADDRESS) : email.trimmed();
    return QStringLiteral(TARSEL_REPORT_ENDPOINT) + basePath + QStringLiteral("ApplicationName=") +
           ApplicationName + QStringLiteral("&EmailFrom=") + address +
           QStringLiteral("&ApplicationVersion=") + report.ErrApplicationVersion +
           QStringLiteral("&RoutineName=") + report.ErrRoutine + QStringLiteral("&ErrorLineNumber=") +
           QString::number(report.ErrLine) + QStringLiteral("&StringMessage=") + report.ErrTrappingString +
           QStringLiteral("&Error=") + report.ErrSystem + QStringLiteral("&UserDescription=") + description;
}

void sendErrorReport(const ErrorReport& report, const QString& email, const QString& description) {
    SendReport(errorReportUrl(report, email, description), thanks());
}

bool SendReport(const QString& url, const QString& message) {
    if (!IsOnline()) {
        service<Dialogs>().messageBox(
            QCoreApplication::translate("SendReport",
                                        "No active internet connection detected on your system!"),
            MessageIcon::Stop, MessageButtons::Ok, ApplicationName);
        return false;
    }
    CloseSuccessWindow();
    const QString browser = service<SystemServices>().browserPath().trimmed();
    if (browser.isEmpty()) {
        service<SystemServices>().shellOpen(url);
        return true;
    }
    service<SystemServices>().startHidden(browser, {url});
    service<Dialogs>().messageBox(message, MessageIcon::Information, MessageButtons::Ok, ApplicationName);
    return true;
}

bool CloseSuccessWindow() {
    const bool closed =
        std::any_of(std::begin(successTitles), std::end(successTitles), [](const char* title) {
            return service<SystemServices>().closeWindowTitled(QString::fromLatin1(title));
        });
    if (closed)
        service<EventLoop>().yield(); // lets the window go before the next report opens its own
    return closed;
}

bool IsOnline() {
    return service<SystemServices>().isOnline();
}

} // namespace tarsel
