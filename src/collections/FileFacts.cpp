// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FileFacts.h"

#include "base/Locale.h"
#include "collections/UnwaitedWork.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <tuple>
#include <utility>
#include <vector>

namespace tarsel {

struct FileFactsReading::Found {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<FileFacts> facts; ///< by index, as far as they are known
    bool isWanted = true;

    bool add(FileFacts more) {
        const std::lock_guard lock(mutex);
        facts.push_back(std::move(more));
        changed.notify_all();
        return isWanted;
    }
};

namespace {

FileFacts factsOf(const QString& path, clsFileInfo& info) {
    info.ClearFileInfo();
    info.setFilePath(path);
    const bool isReadable = !info.FilePath().isEmpty();
    return {path, info.fSizeFormated(0), info.fType(), isReadable};
}

} // namespace

FileFactsReading::FileFactsReading(QStringList paths, const clsFileInfo& info) :
    m_found(std::make_shared<Found>()) {
    clsFileInfo own = info;
    own.setDateForms(service<Locale>().dateForms());
    std::ignore = startUnwaited([found = m_found, paths = std::move(paths), own = std::move(own)]() mutable {
        for (const QString& path : std::as_const(paths))
            if (!found->add(factsOf(path, own)))
                return;
    });
}

FileFactsReading::~FileFactsReading() {
    const std::lock_guard lock(m_found->mutex);
    m_found->isWanted = false;
}

int FileFactsReading::countBeyond(int index) const {
    constexpr std::chrono::milliseconds betweenEvents(10);
    std::unique_lock lock(m_found->mutex);
    m_found->changed.wait_for(lock, betweenEvents, [&] { return index < int(m_found->facts.size()); });
    return int(m_found->facts.size());
}

FileFacts FileFactsReading::take(int index) {
    std::unique_lock lock(m_found->mutex);
    m_found->changed.wait(lock, [&] { return index < int(m_found->facts.size()); });
    return std::exchange(m_found->facts[size_t(index)], {});
}

} // namespace tarsel
