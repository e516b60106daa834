// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FileDrag.h"

#include "base/ListView.h"

#include <QDrag>
#include <QMimeData>
#include <QPixmap>

namespace tarsel {

namespace {

constexpr int shownSide = 96;

QPixmap dragPicture(const QPixmap& picture) {
    const QSize size = picture.size().boundedTo({shownSide, shownSide});
    return picture.isNull() ? picture : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QList<QUrl> selectedFiles(const ListView& list) {
    QList<QUrl> files;
    for (const int row : list.selectedRows())
        if (const QString& path = list.row(row).tag; !path.isEmpty())
            files << QUrl::fromLocalFile(path);
    return files;
}

void dragFiles(const ListView& list, const QPixmap& picture, QWidget* source) {
    auto* data = new QMimeData;
    data->setUrls(selectedFiles(list));
    auto* drag = new QDrag(source);
    drag->setMimeData(data);
    drag->setPixmap(dragPicture(picture));
    drag->exec(Qt::CopyAction);
}

} // namespace tarsel
