// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

namespace tarsel {

/// A text file of lines and of comma-separated quoted records, in the code page, lines ended by CR LF.
///
/// Opening and writing don't raise: on failure the open flag stays clear, reads then return empty texts and
/// fEof is true. What was written reaches the file, all at once, in closefile.
class clsFile {
public:
    /// Fields of one record of a task list: kind, key, seventeen columns.
    static constexpr int editingListFields = 19;

    clsFile();
    ~clsFile();
    clsFile(const clsFile&) = delete;
    clsFile& operator=(const clsFile&) = delete;

    bool OpenForRead(const QString& path);
    bool OpenForWrite(const QString& path);
    bool isOpen() const;
    /// Why the last open failed; nothing after one that succeeded.
    const std::optional<TrappedError>& openError() const;
    bool fEof() const; ///< true when no file is open or at the end

    /// The next line without its end; empty when no file is open.
    QString readLine();
    /// Writes text as one quoted field and a line end, when a file is open.
    void writeline(const QString& text);

    /// Reads `count` fields. A field may be quoted or not, blanks around it are skipped, a line end inside
    /// quotes belongs to the field; what follows a closing quote up to the comma is the next field. A field
    /// that is missing on its line comes from the next one. Error 62 at the end of the file. Empty texts when
    /// no file is open.
    QStringList readFields(int count);
    /// Writes one line of quoted fields. No escape exists for a quote inside a field.
    void writeFields(const QStringList& fields);

    void write_ImageBasket(const QString& path, const QString& description);
    void read_ImageBasket(QString& path, QString& description);
    /// Error 5 for another number of fields.
    void write_EditingList(const QStringList& fields);
    QStringList read_EditingList();

    /// Closes; a file that was written is put in place now. Raises what the safe writer raises.
    void closefile();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace tarsel
