// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <chrono>
#include <functional>

namespace tarsel {

/// The program folder of this run: the one that `makeFolder` returns, when files can be written there. Where
/// the disk is full or read-only, or its file system doesn't answer in time, a temporary folder takes its
/// place, with a copy of the settings as far as they can be read, so that the program starts as the user
/// knows it.
class StartFolder {
public:
    static constexpr std::chrono::milliseconds usualWait{3000};

    /// Without a home that answers, the folder is a temporary one already.
    explicit StartFolder(const std::function<QString()>& makeFolder, bool homeAnswers = true,
                         std::chrono::milliseconds longestWait = usualWait);
    /// Removes the settings in a temporary folder, and the folder unless there is anything else in it: a
    /// picture of the screen, a page, what the user has saved there.
    ~StartFolder();
    StartFolder(const StartFolder&) = delete;
    StartFolder& operator=(const StartFolder&) = delete;

    const QString& path() const { return m_path; }
    /// What the user is to know; empty when the usual folder is in use.
    const QString& remark() const { return m_remark; }

private:
    void takeTemporaryFolder(const QString& settings);
    QString remarkOnPictures() const;

    QString m_path;
    QString m_remark;
    bool m_isTemporary = false;
};

} // namespace tarsel
