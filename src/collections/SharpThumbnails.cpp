// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/SharpThumbnails.h"

namespace tarsel {

namespace {

constexpr FolderScan::Limits oneStep{0, 20};

} // namespace

SharpThumbnails::SharpThumbnails(std::function<void(int number, const Picture& picture)> show) :
    m_show(std::move(show)), m_scan([this](FolderScan& scan) { fetch(scan); }) {}

void SharpThumbnails::read(FolderScan::Request request) {
    m_left = request.known.size() - request.known.count(QString());
    if (m_left > 0 && !isReading())
        m_scan.start(std::move(request));
}

void SharpThumbnails::stop() {
    m_scan.retire();
    m_sharp.clear();
    m_isSharp.clear();
}

void SharpThumbnails::fetch(FolderScan& scan) {
    FolderScan::Delivery delivery = scan.fetch(oneStep);
    for (const FolderScan::NumberedContent& read : delivery.contents) {
        m_sharp.push_back(read.number);
        m_isSharp.insert(read.number);
        m_show(read.number, read.content.thumbnail);
    }
    m_left -= qsizetype(delivery.contents.size());
    if (m_left > 0 && !delivery.failure)
        return;
    m_scan.retire();
    ended();
}

std::vector<int> SharpThumbnails::takeOldest(size_t kept) {
    std::vector<int> oldest;
    while (m_sharp.size() > kept) {
        oldest.push_back(m_sharp.front());
        m_isSharp.remove(m_sharp.front());
        m_sharp.pop_front();
    }
    return oldest;
}

} // namespace tarsel
