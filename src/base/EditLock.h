// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// While it lives, other edits of the same file by programs of ours wait. It says nothing to other programs,
/// and where a file system has no locks nobody waits.
class EditLock {
public:
    /// Waits its turn, at most half a minute; error 70 after that. A file that can't be opened isn't locked.
    explicit EditLock(const QString& path);
    ~EditLock();
    EditLock(const EditLock&) = delete;
    EditLock& operator=(const EditLock&) = delete;

private:
    int m_file = -1;
};

} // namespace tarsel
