// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SaverSamples.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "collections/Basket.h"
#include "collections/forms/PictureImage.h"
#include "imaging/Upright.h"

namespace tarsel {

namespace {

constexpr int most = 20;
constexpr Size previewSize{640, 480}; ///< more than the preview shows of a screen

/// From a text such as "640 X 480 X 24", or with small letters.
QSize sizeIn(const QString& resolution) {
    const QStringList numbers =
        resolution.split(QStringLiteral(" X "), Qt::KeepEmptyParts, Qt::CaseInsensitive);
    return {numbers.value(0).toInt(), numbers.value(1).toInt()};
}

/// Without the margins that a thumbnail has above and below, or on the left and on the right. Null as it is.
QPixmap withoutMargins(const QPixmap& thumbnail, QSize picture) {
    if (thumbnail.isNull())
        return {};
    QRect shown(QPoint(), picture.scaled(thumbnail.size(), Qt::KeepAspectRatio));
    shown.moveCenter(thumbnail.rect().center());
    return thumbnail.copy(shown);
}

} // namespace

SaverSamples::SaverSamples(const ListView& lvPages, bool upright, double pixelRatio, QObject* parent) :
    QObject(parent), m_upright(upright), m_pixelRatio(pixelRatio),
    m_work([this](const QStringList& paths, const std::stop_token& stop) { readAll(paths, stop); }) {
    for (int row = 0; row < std::min(lvPages.count(), most); ++row) {
        const QSize size = sizeIn(lvPages.subItem(row, BasketColumn::Resolution));
        if (size.isEmpty())
            continue;
        const QPixmap thumbnail = pixmapOf(lvPages.data(lvPages.index(row, 0), Qt::DecorationRole));
        m_thumbnails.push_back({withoutMargins(thumbnail, size), size});
        m_paths << lvPages.row(row).tag;
    }
}

void SaverSamples::read() {
    m_work.request(m_paths);
}

/// On the thread.
void SaverSamples::readAll(const QStringList& paths, const std::stop_token& stop) {
    const StopScope scope(stop);
    const Size box{int(previewSize.width * m_pixelRatio), int(previewSize.height * m_pixelRatio)};
    for (int index = 0; index < int(paths.size()) && !stop.stop_requested(); ++index)
        ignoringErrors([&] { // the thumbnail stays
            const std::optional<Picture> picture =
                m_upright ? loadUprightPicture(paths[index], LoadMode::FitInside, box)
                          : fncLoadPicture(paths[index], LoadMode::FitInside, box);
            if (picture && !picture->isNull())
                QMetaObject::invokeMethod(
                    this,
                    [this, index, image = imageOf(*picture)] {
                        Q_EMIT loaded(index, QPixmap::fromImage(image));
                    },
                    Qt::QueuedConnection);
        });
    QMetaObject::invokeMethod(this, &QObject::deleteLater, Qt::QueuedConnection); // after those pictures
}

} // namespace tarsel
