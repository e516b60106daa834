#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

namespace tarsel {

/// The one writer of a user's file. The bytes go to a temporary file in the folder of the target, are flushed
/// and synced, and take the target's place by a rename: a failure or a kill at any moment leaves the old file
/// whole. Symbolic links are followed, mode and owner of an existing file are kept.
///
/// Errors: 61 disk full, 70 permission denied, 76 folder missing, 5 for the rest; each names the target.
class SafeFileWriter {
public:
    explicit SafeFileWriter(const QString& path);
    ~SafeFileWriter(); ///< without a commit: removes the temporary file, the target stays as it was
    SafeFileWriter(const SafeFileWriter&) = delete;
    SafeFileWriter& operator=(const SafeFileWriter&) = delete;

    void write(const QByteArray& bytes);
    void write(const void* data, qsizetype size);
    /// Path of the temporary file, for a library that writes by path.
    QString temporaryPath() const;
    /// Flushes, syncs and renames. Nothing was changed when it throws.
    void commit();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// The whole file in one call.
void writeFileSafely(const QString& path, const QByteArray& bytes);

/// The bytes of a file; 53 when it is missing, 70 when it can't be read.
QByteArray readWholeFile(const QString& path);

} // namespace tarsel
