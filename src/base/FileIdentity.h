// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>

namespace tarsel {

/// Which file a path leads to. Two paths that reach one file, through links or linked folders, have equal
/// identities; so have two paths that would make the same new file.
class FileIdentity {
public:
    FileIdentity() = default; ///< of no file
    static FileIdentity of(const QString& path);

    bool operator==(const FileIdentity&) const = default;
    friend size_t qHash(const FileIdentity& identity, size_t seed = 0) {
        return qHashMulti(seed, identity.m_device, identity.m_inode, identity.m_name);
    }

private:
    // Of an existing file: device and inode. Of a missing one: those of its folder, and its name. Of one in a
    // missing folder: the path.
    quint64 m_device = 0;
    quint64 m_inode = 0;
    QString m_name;
};

} // namespace tarsel
