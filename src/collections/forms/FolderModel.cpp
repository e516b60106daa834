// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/FolderModel.h"

#include <QDirIterator>

namespace tarsel {

FolderModel::FolderModel(QObject* parent) : QFileSystemModel(parent) {
    setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    connect(this, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex& folder) { take(filePath(folder), true); });
    connect(this, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex& folder) { take(filePath(folder), rowCount(folder) > 0); });
}

FolderModel::~FolderModel() = default;

bool FolderModel::hasChildren(const QModelIndex& parent) const {
    if (!parent.isValid() || !QFileSystemModel::hasChildren(parent) || rowCount(parent) > 0)
        return QFileSystemModel::hasChildren(parent);
    const QString path = filePath(parent);
    const auto known = m_holdsFolders.constFind(path);
    if (known != m_holdsFolders.constEnd())
        return *known;
    m_holdsFolders.insert(path, true);
    look(path);
    return true;
}

void FolderModel::lookAgain(const QModelIndex& folder) {
    if (folder.isValid() && rowCount(folder) == 0)
        look(filePath(folder));
}

void FolderModel::look(const QString& path) const {
    auto* self = const_cast<FolderModel*>(this);
    m_looking.add([self, path, filter = filter()] {
        const bool holdsFolders = QDirIterator(path, filter).hasNext();
        QMetaObject::invokeMethod(
            self, [self, path, holdsFolders] { self->take(path, holdsFolders); }, Qt::QueuedConnection);
    });
}

void FolderModel::take(const QString& path, bool holdsFolders) {
    const bool before = m_holdsFolders.value(path, true);
    m_holdsFolders.insert(path, holdsFolders);
    if (before != holdsFolders)
        Q_EMIT foldersFound();
}

} // namespace tarsel
