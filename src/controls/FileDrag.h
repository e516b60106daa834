// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>

class QPixmap;
class QWidget;

namespace tarsel {

class ListView;

/// The files of the selected rows, which have their paths as Tag.
QList<QUrl> selectedFiles(const ListView& list);

/// Drags copies of the selected rows' files out of `source`, for other programs and our own lists.
void dragFiles(const ListView& list, const QPixmap& picture, QWidget* source);

} // namespace tarsel
