#include "base/clsFile.h"

#include "base/CodePage.h"
#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"

#include <optional>
#include <utility>

namespace tarsel {

namespace {

bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Takes records and lines from the bytes of a file, one after the other. Lines end with CR LF, LF or CR.
class RecordReader {
public:
    RecordReader(QString path, QByteArray bytes) : m_path(std::move(path)), m_bytes(std::move(bytes)) {
        if (m_bytes.startsWith("\xEF\xBB\xBF")) // the mark of some editors
            m_at = 3;
    }

    bool atEnd() const { return m_at >= m_bytes.size(); }

    QString line() {
        const qsizetype start = m_at;
        while (!atEnd() && !isLineEnd(m_bytes[m_at]))
            ++m_at;
        const qsizetype length = m_at - start;
        skipLineEnd();
        return codePage::decode(m_bytes.mid(start, length));
    }

    QString field() {
        if (atEnd())
            fail(ErrorNumber::InputPastEnd, m_path);
        skipBlanks();
        const bool quoted = !atEnd() && m_bytes[m_at] == '"';
        const QByteArray bytes = quoted ? quotedField() : plainField();
        skipDelimiter();
        return codePage::decode(bytes);
    }

private:
    /// The field behind an opening quote; a line end in it belongs to it.
    QByteArray quotedField() {
        const qsizetype start = ++m_at;
        const qsizetype quote = m_bytes.indexOf('"', start);
        const qsizetype end = quote < 0 ? m_bytes.size() : quote;
        m_at = quote < 0 ? end : end + 1;
        skipBlanks();
        return m_bytes.mid(start, end - start);
    }

    QByteArray plainField() {
        const qsizetype start = m_at;
        while (!atEnd() && m_bytes[m_at] != ',' && !isLineEnd(m_bytes[m_at]))
            ++m_at;
        qsizetype end = m_at;
        while (end > start && isBlank(m_bytes[end - 1]))
            --end;
        return m_bytes.mid(start, end - start);
    }

    void skipBlanks() {
        while (!atEnd() && isBlank(m_bytes[m_at]))
            ++m_at;
    }

    void skipDelimiter() {
        if (!atEnd() && m_bytes[m_at] == ',')
            ++m_at;
        else
            skipLineEnd();
    }

    void skipLineEnd() {
        const bool carriageReturn = !atEnd() && m_bytes[m_at] == '\r';
        if (carriageReturn)
            ++m_at;
        if (!atEnd() && m_bytes[m_at] == '\n')
            ++m_at;
    }

    QString m_path;
    QByteArray m_bytes;
    qsizetype m_at = 0;
};

} // namespace

struct clsFile::State {
    std::optional<RecordReader> reader;
    std::unique_ptr<SafeFileWriter> writer;
    QByteArray written;
};

clsFile::clsFile() : m_state(std::make_unique<State>()) {}

clsFile::~clsFile() = default;

bool clsFile::OpenForRead(const QString& path) {
    *m_state = State();
    return ignoringErrors([&] { m_state->reader.emplace(path, readWholeFile(path)); });
}

bool clsFile::OpenForWrite(const QString& path) {
    *m_state = State();
    return ignoringErrors([&] { m_state->writer = std::make_unique<SafeFileWriter>(path); });
}

bool clsFile::isOpen() const {
    return m_state->reader || m_state->writer;
}

bool clsFile::fEof() const {
    return !m_state->reader || m_state->reader->atEnd();
}

QString clsFile::readLine() {
    return fEof() ? QString() : m_state->reader->line();
}

void clsFile::writeline(const QString& text) {
    writeFields({text});
}

QStringList clsFile::readFields(int count) {
    QStringList fields;
    for (int i = 0; i < count; ++i)
        fields << (m_state->reader ? m_state->reader->field() : QString());
    return fields;
}

void clsFile::writeFields(const QStringList& fields) {
    if (!m_state->writer)
        return;
    // Field by field, since a field is also what a reader decodes: each has its own choice of encoding.
    QByteArrayList encoded;
    for (const QString& field : fields)
        encoded << '"' + codePage::encode(field) + '"';
    m_state->written += encoded.join(',') + "\r\n";
}

void clsFile::write_ImageBasket(const QString& path, const QString& description) {
    writeFields({path, description});
}

void clsFile::read_ImageBasket(QString& path, QString& description) {
    const QStringList fields = readFields(2);
    path = fields[0];
    description = fields[1];
}

void clsFile::write_EditingList(const QStringList& fields) {
    if (fields.size() != editingListFields)
        fail(ErrorNumber::InvalidCall, QStringLiteral("a record of %1 fields").arg(fields.size()));
    writeFields(fields);
}

QStringList clsFile::read_EditingList() {
    return readFields(editingListFields);
}

void clsFile::closefile() {
    const State closed = std::exchange(*m_state, State());
    if (!closed.writer)
        return;
    closed.writer->write(closed.written);
    closed.writer->commit();
}

} // namespace tarsel
