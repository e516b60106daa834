// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLockFile>
#include <QString>

namespace tarsel {

/// The file by which one instance holds a program folder. What a killed run left is taken away, also that of
/// another user, and so is what can't be a lock.
class InstanceLock {
public:
    explicit InstanceLock(const QString& programFolder);
    ~InstanceLock() = default; ///< gives it back
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    /// False when another instance has it. Where none can be made, the run goes ahead without.
    bool take();

private:
    bool takeOver();
    QLockFile m_lock;
};

} // namespace tarsel
