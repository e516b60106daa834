// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPageLayout>
#include <QString>
#include <memory>

class QPagedPaintDevice;

namespace tarsel {

/// A PDF document that takes pages as a printer does. It is written through the safe writer: until the commit
/// the old file is there.
class PdfPages {
public:
    /// Errors as SafeFileWriter.
    PdfPages(const QString& path, const QPageLayout& sheet);
    ~PdfPages();
    PdfPages(const PdfPages&) = delete;
    PdfPages& operator=(const PdfPages&) = delete;

    QPagedPaintDevice& device();
    /// The error that writing has met, if any: the device itself only refuses.
    void requireWritten() const;
    /// After PrintPages::finish.
    void commit();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace tarsel
