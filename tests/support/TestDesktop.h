// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Clock.h"
#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "base/Locale.h"
#include "base/RandomNumbers.h"
#include "base/SystemServices.h"

#include <deque>
#include <functional>
#include <vector>

namespace tarsel::test {

/// The user and the system, whose answers a test scripts and whose messages it reads afterwards, for as long
/// as it lives. A dialog that was not scripted is answered as cancelled and noted in `unexpected`.
class TestDesktop final : public Dialogs,
                          public EventLoop,
                          public SystemServices,
                          public Clock,
                          public RandomNumbers,
                          public Locale {
public:
    struct Message {
        QString text;
        MessageIcon icon;
        MessageButtons buttons;
        QString title;
    };

    // what happened
    std::vector<Message> messages;
    std::vector<ErrorReport> reports;
    std::vector<FileDialogRequest> fileDialogs;
    QStringList opened;
    QStringList started; ///< program and arguments, joined by blanks
    QStringList closedTitles;
    QStringList unexpected;
    int yields = 0;
    bool busy = false;

    // what to answer
    std::deque<MessageAnswer>
        answers; ///< when empty: Ok, Cancel or No, whichever the buttons offer as refusal
    std::deque<std::optional<FileDialogChoice>> fileChoices;
    std::deque<std::optional<QString>> folderChoices;
    std::deque<std::optional<qint32>> colorChoices;
    std::deque<std::optional<FontChoice>> fontChoices;
    std::function<void()> onYield;
    std::function<void()> onReport;
    QString browser;
    bool online = true;
    bool opens = true;   ///< what shellOpen answers
    QStringList windows; ///< titles of open top-level windows
    QDateTime time = QDateTime(QDate(2004, 3, 7), QTime(15, 5, 9));
    double random = 0.5;
    DateForms forms{QStringLiteral("M/d/yyyy"), QStringLiteral("h:mm:ss AP")};

    MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                             const QString& title) override;
    void showErrorReport(const ErrorReport& report) override {
        reports.push_back(report);
        if (onReport)
            onReport();
    }
    std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest& request) override;
    std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest& request) override;
    std::optional<QString> folderDialog(const QString& startFolder) override;
    std::optional<qint32> colorDialog(qint32 initial) override;
    std::optional<FontChoice> fontDialog(const FontChoice& initial) override;
    void yield() override;
    void setBusyPointer(bool value) override { busy = value; }
    bool shellOpen(const QString& target) override;
    QString browserPath() override { return browser; }
    bool startHidden(const QString& program, const QStringList& arguments) override;
    bool isOnline() override { return online; }
    bool closeWindowTitled(const QString& title) override;
    QDateTime now() override { return time; }
    double randomNumber() override { return random; }
    DateForms dateForms() override { return forms; }

private:
    ServiceScope<Dialogs> m_dialogs{*this};
    ServiceScope<EventLoop> m_eventLoop{*this};
    ServiceScope<SystemServices> m_system{*this};
    ServiceScope<Clock> m_clock{*this};
    ServiceScope<RandomNumbers> m_randomNumbers{*this};
    ServiceScope<Locale> m_locale{*this};
};

} // namespace tarsel::test
