// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tarsel {

/// Takes fields and lines from the bytes of a file of comma-separated quoted records, one after the other.
/// Lines end with CR LF, LF or CR. Each call takes at least one byte, so that a loop until the end ends.
/// A line or field of more than 1 MB is error 5, and the reader is at its end.
class QuotedRecordReader {
public:
    explicit QuotedRecordReader(QByteArray bytes);

    bool atEnd() const { return m_at >= m_bytes.size(); }
    /// The next line without its end; empty at the end of the file.
    QString line();
    /// The next field, without its quotes. Error 62 at the end of the file.
    QString field();

private:
    struct Part {
        qsizetype start;
        qsizetype size;
    };
    Part quotedField();
    Part plainField();
    QString decoded(qsizetype start, qsizetype size);
    void skipBlanks();
    void skipDelimiter();
    void skipLineEnd();

    QByteArray m_bytes;
    qsizetype m_at = 0;
};

} // namespace tarsel
