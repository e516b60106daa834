// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

class QFile;

namespace tarsel {

/// The one writer of a user's file. The bytes go to a temporary file in the folder of the target, are flushed
/// and synced, and take the target's place by a rename: a failure or a kill at any moment leaves the old file
/// intact. Symbolic links are followed (a dangling one gets its target made); mode, group, owner and the
/// user's extended attributes of an existing file are kept as far as the system lets this user keep them; a
/// hard link to it keeps the old content. A new file gets 0666 less the umask.
///
/// The temporary file has no name where the file system supports that, so that a kill leaves no debris; it
/// has one only between two system calls, when it replaces an old file. Elsewhere it is a hidden
/// ".tarsel-*.part". Such a file of a dead writer is removed by the next writer in its folder.
///
/// Errors: 61 disk full, 70 permission denied, 76 folder missing, 5 for the rest, such as a target that is a
/// folder or a device. Each names the target; 70 names the folder when that is what can't be written in.
class SafeFileWriter {
public:
    explicit SafeFileWriter(const QString& path);
    ~SafeFileWriter(); ///< without a commit: drops the temporary file, the target stays as it was
    SafeFileWriter(const SafeFileWriter&) = delete;
    SafeFileWriter& operator=(const SafeFileWriter&) = delete;

    /// Not buffered: pass large pieces. After a failure commit fails too.
    void write(const QByteArray& bytes);
    void write(const void* data, qsizetype size);
    /// Path of the temporary file, for a library of this process that opens and writes by path. It may be one
    /// of /proc; the library must write into that file and not replace it.
    QString temporaryPath() const;
    /// Descriptor of the temporary file, open for reading and writing, for a library that writes by
    /// descriptor. It stays the writer's own: don't close it.
    int descriptor() const;
    /// Syncs, and puts the file in its place. The target is as it was when it throws.
    /// `check` is called last: an error of its own leaves the target too.
    void commit(const std::function<void()>& check = {});
    /// The same, but under a name that nothing has at that very moment: false when something has it, and the
    /// file there stays.
    bool commitAsNew();

private:
    struct State;
    template <class Step>
    void finish(Step&& putInPlace);
    std::unique_ptr<State> m_state;
};

/// The complete file in one call.
void writeFileSafely(const QString& path, const QByteArray& bytes);

/// The same for a file that must replace nothing: false when something has the name already, or gets it while
/// the bytes are written.
bool writeNewFileSafely(const QString& path, const QByteArray& bytes);

/// Makes a write past the limit for the size of files (RLIMIT_FSIZE) fail with error 61: without this call
/// its signal ends the program. For the start of a program.
void reportFileSizeLimitAsError();

/// A regular file, open for reading; 53 when it is missing, 70 when it can't be read, 5 when it is another
/// kind of file.
std::unique_ptr<QFile> openRegularFile(const QString& path);

/// The bytes of a regular file; errors as openRegularFile.
QByteArray readWholeFile(const QString& path);

} // namespace tarsel
