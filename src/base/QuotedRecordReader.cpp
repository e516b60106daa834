// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/QuotedRecordReader.h"

#include "base/CodePage.h"
#include "base/TrappedError.h"
#include <QCoreApplication>

namespace tarsel {

namespace {

bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Paths and descriptions are far shorter; a longer field is not from a list of ours.
constexpr qsizetype maxFieldBytes = qsizetype(1) << 20;

} // namespace

QuotedRecordReader::QuotedRecordReader(QByteArray bytes) : m_bytes(std::move(bytes)) {
    const QByteArray mark = "\xEF\xBB\xBF"; // some editors begin a UTF-8 file with it
    m_at = m_bytes.startsWith(mark) ? mark.size() : 0;
}

QString QuotedRecordReader::line() {
    const qsizetype start = m_at;
    while (!atEnd() && !isLineEnd(m_bytes.at(m_at)))
        ++m_at;
    const qsizetype length = m_at - start;
    skipLineEnd();
    return decoded(start, length);
}

QString QuotedRecordReader::field() {
    if (atEnd())
        fail(ErrorNumber::InputPastEnd);
    skipBlanks();
    const bool quoted = !atEnd() && m_bytes.at(m_at) == '"';
    const Part part = quoted ? quotedField() : plainField();
    skipDelimiter();
    return decoded(part.start, part.size);
}

QString QuotedRecordReader::decoded(qsizetype start, qsizetype size) {
    if (size > maxFieldBytes) {
        m_at = m_bytes.size();
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("QuotedRecordReader", "a field of %1 bytes").arg(size));
    }
    return codePage::decode(m_bytes.mid(start, size));
}

/// The field after an opening quote. A line end in it belongs to it; without a closing quote it ends with
/// the file.
QuotedRecordReader::Part QuotedRecordReader::quotedField() {
    const qsizetype start = ++m_at;
    const qsizetype quote = m_bytes.indexOf('"', start);
    const qsizetype end = quote < 0 ? m_bytes.size() : quote;
    m_at = quote < 0 ? end : end + 1;
    skipBlanks();
    return {start, end - start};
}

QuotedRecordReader::Part QuotedRecordReader::plainField() {
    const qsizetype start = m_at;
    while (!atEnd() && m_bytes.at(m_at) != ',' && !isLineEnd(m_bytes.at(m_at)))
        ++m_at;
    qsizetype end = m_at;
    while (end > start && isBlank(m_bytes.at(end - 1)))
        --end;
    return {start, end - start};
}

void QuotedRecordReader::skipBlanks() {
    while (!atEnd() && isBlank(m_bytes.at(m_at)))
        ++m_at;
}

void QuotedRecordReader::skipDelimiter() {
    if (!atEnd() && m_bytes.at(m_at) == ',')
        ++m_at;
    else
        skipLineEnd();
}

void QuotedRecordReader::skipLineEnd() {
    if (!atEnd() && m_bytes.at(m_at) == '\r')
        ++m_at;
    if (!atEnd() && m_bytes.at(m_at) == '\n')
        ++m_at;
}

} // namespace tarsel
