// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SafeFileWriter.h"
#include "publishing/joined/JoinedWriter.h"

#include <string>

namespace tarsel {

/// A self-running file on its way to the disk: a program that everybody may run who may read it. Without a
/// commit nothing is written, and an older file of that name stays.
class JoinedFile {
public:
    /// Begins with the player's bytes.
    JoinedFile(const QString& path, const QString& player);

    void add(const QString& name, const QByteArray& jpeg);
    /// Adds options and list and puts the file in its place.
    void commit(const std::string& options);
    /// Leaves a copy of the list under that name in the system's folder for temporary files, where it can.
    void leaveList(const QString& name) const;

private:
    QString m_path;
    SafeFileWriter m_file;
    joined::JoinedWriter m_writer;
};

} // namespace tarsel
