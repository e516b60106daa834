#include "app/FolderTree.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>

namespace tarsel {

namespace {

QString nearestFolder(const QString& path) {
    QString folder = QDir::cleanPath(path);
    while (!folder.isEmpty() && !QFileInfo(folder).isDir() && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

} // namespace

FolderTree::FolderTree(QWidget* parent) : QTreeView(parent), m_model(new QFileSystemModel(this)) {
    setObjectName(QStringLiteral("ftvBrowse"));
    setAccessibleName(QStringLiteral("Folders"));
    m_model->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives);
    m_model->setRootPath(QDir::rootPath());
    setModel(m_model);
    for (int column = 1; column < m_model->columnCount(); ++column)
        hideColumn(column);
    header()->hide();
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (current.isValid())
            Q_EMIT folderSelected(m_model->filePath(current));
    });
    // Folders come in later than the selection; it is to stay in view while they do.
    connect(m_model, &QFileSystemModel::directoryLoaded, this, [this](const QString& loaded) {
        if (selectedFolder().startsWith(loaded))
            bringToView();
    });
}

void FolderTree::selectFolder(const QString& path) {
    const QModelIndex index = m_model->index(nearestFolder(path));
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    bringToView();
}

QString FolderTree::selectedFolder() const {
    return currentIndex().isValid() ? m_model->filePath(currentIndex()) : QString();
}

void FolderTree::bringToView() {
    scrollTo(currentIndex(), PositionAtCenter);
}

} // namespace tarsel
