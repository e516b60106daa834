// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Desktop.h"

namespace tarsel::cli {

class Terminal;

/// The desktop of the command line: messages and error reports are lines on standard error, questions are
/// answered by their refusal, dialogs are cancelled, and nothing is opened or started.
class TerminalDesktop final : public Desktop {
public:
    explicit TerminalDesktop(Terminal& terminal) : m_terminal(terminal) {}

    MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                             const QString& title) override;
    void showErrorReport(const ErrorReport& report) override;
    std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest&) override { return {}; }
    std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest&) override { return {}; }
    std::optional<QString> folderDialog(const QString&) override { return {}; }
    std::optional<qint32> colorDialog(qint32) override { return {}; }
    std::optional<FontChoice> fontDialog(const FontChoice&) override { return {}; }
    void yield() override {} // one thread, no events
    void setBusyPointer(bool) override {}
    bool shellOpen(const QString&) override { return false; }
    QString browserPath() override { return {}; }
    bool startHidden(const QString&, const QStringList&) override { return false; }
    bool isOnline() override { return false; }
    bool closeWindowTitled(const QString&) override { return false; }
    QDateTime now() override;
    double randomNumber() override;
    QString shortDateFormat() override;
    QString longTimeFormat() override;

private:
    Terminal& m_terminal;
};

} // namespace tarsel::cli
