// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"

namespace tarsel::cli {

class Terminal;

/// Messages and error reports are lines on standard error, questions are refused, other dialogs cancelled.
class TerminalDialogs : public Dialogs {
public:
    explicit TerminalDialogs(Terminal& terminal) : m_terminal(terminal) {}

    MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                             const QString& title) override;
    void showErrorReport(const ErrorReport& report) override;
    std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest&) override { return {}; }
    std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest&) override { return {}; }
    std::optional<QString> folderDialog(const QString&) override { return {}; }
    std::optional<qint32> colorDialog(qint32) override { return {}; }
    std::optional<FontChoice> fontDialog(const FontChoice&) override { return {}; }

private:
    Terminal& m_terminal;
};

} // namespace tarsel::cli
