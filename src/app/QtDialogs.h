// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "base/ErrorReport.h"

#include <vector>

class QFileDialog;

namespace tarsel {

/// Qt's dialogs, over the window in use.
class QtDialogs final : public Dialogs {
public:
    MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                             const QString& title) override;
    void showErrorReport(const ErrorReport& report) override;
    std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest& request) override;
    std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest& request) override;
    std::optional<QString> folderDialog(const QString& startFolder) override;
    std::optional<qint32> colorDialog(qint32 initial) override;
    std::optional<FontChoice> fontDialog(const FontChoice& initial) override;

    bool sessionEnds = false; ///< nobody is there to read a report: it goes to the log

    /// Reports wait from now on: the window isn't there yet, and nothing is to come before it.
    void holdReports() { m_holdsReports = true; }
    /// Shows each that has waited once, and the later ones at once.
    void showHeldReports();

private:
    std::optional<FileDialogChoice> askForFile(const FileDialogRequest& request);
    std::optional<FileDialogChoice> runFileDialog(QFileDialog& dialog, const FileDialogRequest& request);

    QString startFolder(bool isToSave) const;

    QString m_lastFolder; ///< of the last file that was chosen
    bool m_holdsReports = false;
    std::vector<ErrorReport> m_heldReports;
};

} // namespace tarsel
