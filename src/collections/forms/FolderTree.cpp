// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/FolderTree.h"

#include "collections/forms/FolderModel.h"
#include "controls/LineIcon.h"

#include <QAbstractFileIconProvider>
#include <QDir>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

/// Our own folder for every folder, whatever icon theme the desktop has. The type is one word for all: the
/// default looks up the MIME type of each file, on the window's thread, whenever something changes in an
/// expanded folder. An empty one would make the model treat its nodes as unknown.
class FolderIcons final : public QAbstractFileIconProvider {
public:
    QIcon icon(IconType) const override { return m_folder; }
    QIcon icon(const QFileInfo&) const override { return m_folder; }
    QString type(const QFileInfo&) const override { return FolderTree::tr("Folder"); }

private:
    QIcon m_folder = lineIcon(QStringLiteral("folder"));
};

} // namespace

/// The model's own thread asks for icons: it ends first.
FolderTree::~FolderTree() {
    delete m_model;
}

FolderTree::FolderTree(QWidget* parent) :
    QTreeView(parent), m_model(new FolderModel(this)), m_icons(std::make_unique<FolderIcons>()) {
    setObjectName(QStringLiteral("ftvBrowse"));
    setAccessibleName(tr("Folders"));
    m_model->setIconProvider(m_icons.get());
    m_model->setRootPath(QDir::rootPath());
    setModel(m_model);
    setEditTriggers(NoEditTriggers);
    showNamesOnly();
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &FolderTree::choose);
    connect(this, &QTreeView::clicked, this, &FolderTree::chooseAgain);
    connect(m_model, &FolderModel::foldersFound, this, &FolderTree::scheduleDelayedItemsLayout);
    keepSelectionInView();
    keepNamesComplete();
}

void FolderTree::showNamesOnly() {
    for (int column = 1; column < m_model->columnCount(); ++column)
        hideColumn(column);
    header()->hide();
    // Deep folders keep their names: the tree scrolls sideways instead.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Fixed);
    header()->setMinimumSectionSize(0);
    header()->setResizeContentsPrecision(0); // only what is in view is measured
    setTextElideMode(Qt::ElideNone);
    setIndentation(16);
    setUniformRowHeights(true);
}

/// Folders come in later than the selection.
void FolderTree::keepSelectionInView() {
    m_settle.setObjectName(QStringLiteral("settle"));
    m_settle.setSingleShot(true);
    m_settle.setInterval(30);
    connect(&m_settle, &QTimer::timeout, this, &FolderTree::centreCurrentFolder);
    const auto settle = [this] {
        if (m_following)
            m_settle.start();
    };
    connect(m_model, &QFileSystemModel::directoryLoaded, this, settle);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, settle);
    connect(m_model, &QAbstractItemModel::layoutChanged, this, settle);
}

void FolderTree::keepNamesComplete() {
    m_fit.setSingleShot(true);
    m_fit.setInterval(0);
    connect(&m_fit, &QTimer::timeout, this, &FolderTree::fitColumn);
    const auto fit = [this] { m_fit.start(); };
    connect(m_model, &QFileSystemModel::directoryLoaded, this, fit);
    connect(this, &QTreeView::expanded, this, fit);
    connect(this, &QTreeView::collapsed, this, fit);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, fit);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, fit);
}

void FolderTree::choose(const QModelIndex& folder) {
    m_model->lookAgain(folder);
    if (folder.isValid())
        Q_EMIT folderSelected(m_selected = m_model->filePath(folder));
}

/// A click on the current folder lists it again, once for a double click.
void FolderTree::chooseAgain(const QModelIndex& clicked) {
    if (clicked == std::exchange(m_currentAtPress, {}))
        choose(clicked);
}

void FolderTree::selectFolder(const QString& folder) {
    const QModelIndex index = m_model->index(folder);
    if (!index.isValid())
        return selectHiddenFolder(folder);
    if (index == currentIndex())
        choose(index);
    else
        setCurrentIndex(index);
    expand(index.parent());
    m_following = true;
    m_settle.start();
}

/// A folder without a row in the tree; none is current then, so that a click on any row counts.
void FolderTree::selectHiddenFolder(const QString& folder) {
    if (folder.isEmpty())
        return;
    setCurrentIndex({});
    Q_EMIT folderSelected(m_selected = folder);
}

/// Wide enough for the names in view.
void FolderTree::fitColumn() {
    setColumnWidth(0, std::max(viewport()->width(), sizeHintForColumn(0)));
}

void FolderTree::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    fitColumn();
}

/// Centres the current folder vertically. Sideways the tree moves only as far as that folder's name needs:
/// parents' names start at the left edge.
void FolderTree::centreCurrentFolder() {
    scrollTo(currentIndex(), PositionAtCenter);
    fitColumn();
    const int scrolled = horizontalScrollBar()->value();
    const int left = visualRect(currentIndex()).left() + scrolled;
    const int right = left + sizeHintForIndex(currentIndex()).width();
    const int beyond = std::max(0, right - viewport()->width());
    horizontalScrollBar()->setValue(std::min(beyond, left));
}

QString FolderTree::selectedFolder() const {
    return m_selected;
}

/// From here on the view is the user's own.
bool FolderTree::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel)
        m_following = false;
    if (event->type() == QEvent::MouseButtonPress)
        m_currentAtPress = currentIndex();
    return QTreeView::viewportEvent(event);
}

} // namespace tarsel
