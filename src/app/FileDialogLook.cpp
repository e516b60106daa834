// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FileDialogLook.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int characters = 130, lines = 34, charactersOfPlaces = 22;

void fitColumns(QTreeView& files) {
    QHeaderView& header = *files.header();
    header.setStretchLastSection(false);
    header.setResizeContentsPrecision(0); // of the rows in view: a folder may have thousands
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
}

} // namespace

void makeFileDialogReadable(QFileDialog& dialog) {
    const QSize letter(dialog.fontMetrics().averageCharWidth(), dialog.fontMetrics().height());
    const QSize room = dialog.screen()->availableSize() * 9 / 10;
    dialog.resize(std::min(characters * letter.width(), room.width()),
                  std::min(lines * letter.height(), room.height()));
    if (auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView")))
        fitColumns(*files);
    const int places = charactersOfPlaces * letter.width();
    if (auto* splitter = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
        splitter->setSizes({places, dialog.width() - places});
    QList<QUrl> urls{QUrl(QStringLiteral("file:")), QUrl::fromLocalFile(QDir::homePath())};
    if (const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
        pictures != QDir::homePath())
        urls << QUrl::fromLocalFile(pictures);
    dialog.setSidebarUrls(urls);
}

} // namespace tarsel
