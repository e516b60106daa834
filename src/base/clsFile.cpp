// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/clsFile.h"

#include "base/CodePage.h"
#include "base/QuotedRecordReader.h"
#include "base/SafeFileWriter.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <new>
#include <utility>

namespace tarsel {

namespace {

/// Room for a million rows; a larger file is not a list of ours, and would only fill the memory.
constexpr qint64 largestListFile = qint64(256) << 20;

void refuseHugeFile(const QString& path) {
    if (const qint64 size = QFileInfo(path).size(); size > largestListFile)
        fail(ErrorNumber::UnreadableFile,
             QCoreApplication::translate("clsFile", "%1: %2 MB are too much for a list file")
                 .arg(path, QString::number(size >> 20)));
}

} // namespace

struct clsFile::State {
    std::optional<QuotedRecordReader> reader;
    std::unique_ptr<SafeFileWriter> writer;
    QByteArray written;
    std::optional<TrappedError> openError;

    /// Runs `step`, which opens the file. False, with the reason kept, when it raises.
    template <class Step>
    bool open(Step&& step) {
        try {
            step();
            return true;
        } catch (const TrappedError& error) {
            openError = error;
        } catch (const std::bad_alloc&) {
            openError = TrappedError{ErrorNumber::OutOfMemory, errorText(ErrorNumber::OutOfMemory)};
        }
        return false;
    }
};

clsFile::clsFile() : m_state(std::make_unique<State>()) {}

clsFile::~clsFile() = default;

bool clsFile::OpenForRead(const QString& path) {
    *m_state = State();
    return m_state->open([&] {
        refuseHugeFile(path);
        m_state->reader.emplace(readWholeFile(path));
    });
}

bool clsFile::OpenForWrite(const QString& path) {
    *m_state = State();
    return m_state->open([&] { m_state->writer = std::make_unique<SafeFileWriter>(path); });
}

bool clsFile::isOpen() const {
    return m_state->reader || m_state->writer;
}

const std::optional<TrappedError>& clsFile::openError() const {
    return m_state->openError;
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
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("clsFile", "a record of %1 fields").arg(fields.size()));
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
