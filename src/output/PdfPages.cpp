// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/PdfPages.h"

#include "base/ProgramIdentity.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"

#include <QIODevice>
#include <QPdfWriter>
#include <optional>

namespace tarsel {

namespace {

/// Passes on what Qt writes, which is in small pieces. Qt goes on after a failure, which the commit raises.
class SafeFileDevice final : public QIODevice {
public:
    explicit SafeFileDevice(const QString& path) : m_writer(path) { open(QIODevice::WriteOnly); }

    bool isSequential() const override { return true; }
    void requireWritten() const {
        if (m_failure)
            throw *m_failure;
    }
    void commit() {
        requireWritten();
        flush();
        m_writer.commit();
    }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override {
        if (m_failure)
            return -1;
        m_waiting.append(data, size);
        if (m_waiting.size() < pieceSize)
            return size;
        try {
            flush();
        } catch (const TrappedError& error) {
            m_failure = error;
            return -1;
        }
        return size;
    }

private:
    static constexpr qsizetype pieceSize = 1 << 18;

    void flush() {
        const QByteArray piece = std::exchange(m_waiting, {});
        m_writer.write(piece);
    }

    SafeFileWriter m_writer;
    QByteArray m_waiting;
    std::optional<TrappedError> m_failure;
};

} // namespace

struct PdfPages::State {
    explicit State(const QString& path) : file(path), pages(&file) {}
    SafeFileDevice file;
    QPdfWriter pages;
};

PdfPages::PdfPages(const QString& path, const QPageLayout& sheet) : m_state(std::make_unique<State>(path)) {
    constexpr int dotsPerInch = 600;
    QPdfWriter& pages = m_state->pages;
    pages.setResolution(dotsPerInch);
    pages.setCreator(programIdentity::title);
    pages.setPageLayout({sheet.pageSize(), sheet.orientation(), {}}); // drawn from corner to corner
}

PdfPages::~PdfPages() = default;

QPagedPaintDevice& PdfPages::device() {
    return m_state->pages;
}

void PdfPages::requireWritten() const {
    m_state->file.requireWritten();
}

void PdfPages::commit() {
    m_state->file.commit();
}

} // namespace tarsel
