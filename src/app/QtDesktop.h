// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Desktop.h"

#include <QString>
#include <random>

class QFileDialog;

namespace tarsel {

/// The desktop of the application: Qt's dialogs and the system's services.
class QtDesktop final : public Desktop {
public:
    /// `networkFolder` is where the system lists its network interfaces.
    explicit QtDesktop(QString networkFolder = QStringLiteral("/sys/class/net"));

    /// Starts the random numbers; until then they are the same in every run.
    void seedRandomNumbers(quint32 seed) { m_random.seed(seed); }

    MessageAnswer messageBox(const QString& text, MessageIcon icon, MessageButtons buttons,
                             const QString& title) override;
    void showErrorReport(const ErrorReport& report) override;
    std::optional<FileDialogChoice> openFileDialog(const FileDialogRequest& request) override;
    std::optional<FileDialogChoice> saveFileDialog(const FileDialogRequest& request) override;
    std::optional<QString> folderDialog(const QString& startFolder) override;
    std::optional<qint32> colorDialog(qint32 initial) override;
    std::optional<FontChoice> fontDialog(const FontChoice& initial) override;

    void yield() override;
    void setBusyPointer(bool busy) override;

    bool shellOpen(const QString& target) override;
    QString browserPath() override;
    bool startHidden(const QString& program, const QStringList& arguments) override;
    bool isOnline() override;
    bool closeWindowTitled(const QString& title) override;
    QDateTime now() override;
    double randomNumber() override;
    QString shortDateFormat() override;
    QString longTimeFormat() override;

private:
    std::optional<FileDialogChoice> runFileDialog(QFileDialog& dialog, const FileDialogRequest& request);

    QString m_networkFolder;
    QString m_lastFolder; ///< of the last file that was chosen
    std::mt19937 m_random;
    bool m_busy = false;
};

} // namespace tarsel
