// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "collections/WorkQueue.h"
#include "output/PrintLayout.h"

#include <QPageLayout>
#include <functional>
#include <memory>
#include <optional>

namespace tarsel {

struct PrintPicture;

/// One printing of pictures into a PDF document. Without `finish` nothing is written. All drawing is done on
/// a thread of its own, from the first page to the last: fonts of Qt belong to the thread that opened them.
/// Each call waits for that thread.
class PrintJob {
public:
    using Ended = Awaited<std::optional<TrappedError>>;
    /// `wait` is how the caller's thread waits; without one it does nothing else meanwhile. Errors as those
    /// of PdfPages.
    PrintJob(const QString& path, const QPageLayout& sheet, const PrintLayout& layout,
             std::function<void(Ended&)> wait = {});
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    void add(const PrintPicture& picture);
    /// Writes the document; then `deliver`, if any, is called on the thread.
    void finish(const std::function<void()>& deliver = {});
    bool isEmpty() const { return m_isEmpty; }

private:
    struct Pages;
    std::optional<TrappedError> failureOnThread(const std::function<void()>& work);
    void runOnThread(const std::function<void()>& work);

    const std::function<void(Ended&)> m_wait;
    bool m_isEmpty = true;
    std::unique_ptr<Pages> m_pages; ///< belongs to the thread
    WorkQueue m_thread{1};          // last, so that it ends first
};

} // namespace tarsel
