// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CsvTable.h"

#include "base/CodePage.h"
#include "base/TrappedError.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

class CsvReader {
public:
    explicit CsvReader(const QString& text) : m_text(text) {}

    QList<QStringList> read() {
        while (m_at < m_text.size())
            readRow();
        return m_rows;
    }

private:
    void readRow() {
        QStringList row;
        const qsizetype start = m_at;
        for (;;) {
            row << readField();
            if (next() != u',')
                break;
            ++m_at;
        }
        const bool isEmpty = m_at == start;
        if (next() == u'\r')
            ++m_at;
        if (next() == u'\n')
            ++m_at;
        if (!isEmpty)
            m_rows << row;
    }

    QString readField() {
        if (next() == u'"')
            return readQuoted();
        const qsizetype start = m_at;
        while (m_at < m_text.size() && next() != u',' && next() != u'\r' && next() != u'\n')
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

    QString readQuoted() {
        QString field;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (next() != u'"') {
                field += next();
                continue;
            }
            ++m_at;
            if (next() != u'"')
                return field + readField();
            field += u'"';
        }
        fail(ErrorNumber::InputPastEnd,
             QCoreApplication::translate("CommandLine", "row %1: a quote without its end")
                 .arg(m_rows.size() + 1));
    }

    QChar next() const { return m_at < m_text.size() ? m_text[m_at] : QChar(); }

    QString m_text;
    qsizetype m_at = 0;
    QList<QStringList> m_rows;
};

} // namespace

QList<QStringList> readCsv(const QByteArray& bytes) {
    QString text = codePage::decode(bytes);
    if (text.startsWith(QChar(u'\xFEFF')))
        text.remove(0, 1);
    if (text.contains(QChar(u'\0')))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "the table is not in UTF-8 or Windows-1252"));
    return CsvReader(text).read();
}

} // namespace tarsel::cli
