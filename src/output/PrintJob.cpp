// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/PrintJob.h"

#include "base/FailureOf.h"
#include "output/PdfPages.h"
#include "output/PrintPages.h"

#include <utility>

namespace tarsel {

struct PrintJob::Pages {
    Pages(const QString& path, const QPageLayout& sheet, const PrintLayout& layout) :
        document(path, sheet), drawing(document.device(), layout, paperOf(sheet)) {}
    PdfPages document;
    PrintPages drawing;
};

PrintJob::PrintJob(const QString& path, const QPageLayout& sheet, const PrintLayout& layout,
                   std::function<void(Ended&)> wait) :
    m_wait(std::move(wait)) {
    runOnThread([&] { m_pages = std::make_unique<Pages>(path, sheet, layout); });
}

PrintJob::~PrintJob() {
    failureOnThread([this] { m_pages.reset(); });
}

void PrintJob::add(const PrintPicture& picture) {
    runOnThread([&] {
        m_pages->drawing.add(picture);
        m_pages->document.requireWritten();
    });
    m_isEmpty = false;
}

void PrintJob::finish(const std::function<void()>& deliver) {
    runOnThread([&] {
        m_pages->drawing.finish();
        m_pages->document.commit();
        if (deliver)
            deliver();
    });
}

std::optional<TrappedError> PrintJob::failureOnThread(const std::function<void()>& work) {
    const auto ended = std::make_shared<Ended>();
    m_thread.add([ended, work] { ended->set(failureOf(work)); });
    if (m_wait)
        m_wait(*ended);
    return ended->take();
}

void PrintJob::runOnThread(const std::function<void()>& work) {
    if (const std::optional<TrappedError> failure = failureOnThread(work))
        throw *failure;
}

} // namespace tarsel
