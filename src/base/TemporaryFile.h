// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <sys/types.h>

namespace tarsel {

/// A file that is being written, in the folder of its target: without a name where the file system supports
/// that, else with a hidden one. It is locked as long as its writer runs; a file without a lock was left by a
/// dead process. The steps throw an errno value as int.
class TemporaryFile {
public:
    /// Opens it for reading and writing, and removes what dead writers left in the folder. `shown` is the
    /// path for messages; 70 names the folder. Errors 76, 70, 61, 5.
    TemporaryFile(const QByteArray& folder, mode_t mode, const QString& shown);
    ~TemporaryFile(); ///< removes it unless it was put in its place
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int descriptor() const { return m_file; }
    /// A path under which this process can open it.
    QByteArray path() const;
    /// Forces content and length to the disk.
    void sync() const;
    /// Puts it under its name in the folder, in place of an old file when `replaces`. A file that appeared
    /// under that name in the meantime is replaced as well.
    void putInPlace(const QByteArray& name, bool replaces);
    /// Puts it under its name in the folder unless something has that name at this very moment: false then.
    /// A file system that can neither link nor rename without replacing gets an empty file under the name
    /// first, which the new one replaces: a kill between the two leaves the empty file.
    bool putInPlaceAsNew(const QByteArray& name);

private:
    void openNamed(mode_t mode);
    void nameIt();
    int linkAs(const QByteArray& name) const;
    int renameAsNew(const QByteArray& name);

    QByteArray m_folder;
    QByteArray m_name; ///< its own hidden name, empty as long as it has none
    int m_directory = -1;
    int m_file = -1;
};

} // namespace tarsel
