// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// A private folder for the files of one run, in the system's folder for temporary files. It is removed at
/// the end of its life, and after a kill by the next run: it holds a file that is locked as long as its
/// process runs.
class ScratchFolder {
public:
    /// Removes what dead processes of this user left as well. Raises what the system says.
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const QString& path() const { return m_path; }

    /// Removes the folders of dead processes of this user. What can't be removed stays.
    static void removeAbandoned();

private:
    QString m_path;
    int m_lock = -1;
};

} // namespace tarsel
