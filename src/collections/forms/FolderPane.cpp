// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/FolderPane.h"

#include "collections/FolderRow.h"
#include "collections/FolderView.h"
#include "collections/forms/PictureImage.h"
#include "controls/ActionTable.h"
#include "controls/FocusSlider.h"
#include "controls/ListControl.h"
#include "controls/PaneCaption.h"
#include "controls/ShortenedButtons.h"
#include "controls/SortMenu.h"

#include <QAbstractItemView>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

// What users can choose, in pixels.
constexpr int smallestThumbnail = 20;
constexpr int largestThumbnail = 300;

} // namespace

FolderPane::FolderPane(FolderView& view, ListView& lvFolder, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_view(view), m_actions(actions), m_list(new ListControl(lvFolder, this)),
    m_size(new FocusSlider(Qt::Horizontal, this)) {
    setObjectName(QStringLiteral("picFolder"));
    m_list->setObjectName(QStringLiteral("lvFolder"));
    m_list->setAccessibleName(tr("Pictures of the folder"));
    m_list->setPixmapMaker(pixmapOf);
    m_list->setRowsDraggable();
    m_list->setUsualText(FolderColumn::Resolution, QStringLiteral("12000 X 9000 X 24"));
    m_list->setUsualText(FolderColumn::Type, QStringLiteral("Photoshop image"));
    for (const int column :
         {FolderColumn::DateCreated, FolderColumn::DateModified, FolderColumn::DateAccessed})
        m_list->setUsualText(column, QStringLiteral("12/28/2026 10:58:58 PM"));
    layOutPane(this, makeBar(), m_list);
    connectList();
    connectActions();
    connectSize();
}

void FolderPane::setForm(int folderView) {
    m_list->setForm(folderView == 0 ? ListControl::Form::Thumbnails : ListControl::Form::Details);
}

QLayout* FolderPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(tr("Folder"), this));
    bar->addStretch(1);
    bar->addWidget(m_size, 4);
    QToolButton* add = m_actions.makeButton("cmdAddToQueue", this, Qt::ToolButtonTextBesideIcon);
    bar->addWidget(add);
    (new ShortenedButtons(*bar, *this))->add(add);
    for (const char* name : {"cmdThumbnailFolder", "cmdDetailFolder", "cmdRefreshFolder"})
        bar->addWidget(m_actions.makeButton(name, this));
    return bar;
}

void FolderPane::connectList() {
    m_view.visibleRows = [this] {
        const ListControl::RowRange rows = m_list->visibleRows();
        return std::pair(rows.first, rows.last);
    };
    connect(&m_view, &FolderView::runningChanged, this, &FolderPane::showHint);
    // After the view has taken the rows.
    connect(&m_list->list(), &QAbstractItemModel::rowsInserted, this, &FolderPane::selectWantedFile,
            Qt::QueuedConnection);
    connect(&m_view, &FolderView::runningChanged, this, &FolderPane::selectWantedFile, Qt::QueuedConnection);
    connect(m_list, &ListControl::viewMoved, &m_view, &FolderView::preferVisibleRows);
    connect(m_list, &ListControl::rowDoubleClicked, this, &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::enterPressed, this, &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::rowClicked, this, &FolderPane::chooseRow);
    connect(m_list, &ListControl::keySelected, this, &FolderPane::chooseRow);
    connect(m_list, &ListControl::formChanged, this, &FolderPane::showForm);
}

void FolderPane::connectSize() {
    m_size->setObjectName(QStringLiteral("sldThumbnailSize"));
    m_size->setAccessibleName(tr("Size of the thumbnails"));
    m_size->setToolTip(tr("Size of the thumbnails (Ctrl+mouse wheel)"));
    m_size->setRange(smallestThumbnail, largestThumbnail);
    m_size->setPageStep(40);
    m_size->setMinimumWidth(fontMetrics().averageCharWidth() * 5);
    m_size->setMaximumWidth(fontMetrics().averageCharWidth() * 18);
    m_rest.setSingleShot(true);
    m_rest.setInterval(250);
    connect(m_size, &QSlider::valueChanged, this, &FolderPane::resizeThumbnails);
    connect(m_size, &QSlider::sliderReleased, this, &FolderPane::takeThumbnailSize);
    connect(m_list, &ListControl::zoomed, this, &FolderPane::zoom);
    connect(&m_rest, &QTimer::timeout, this, &FolderPane::takeThumbnailSize);
    connect(&m_view, &FolderView::thumbnailSizeChanged, this, &FolderPane::showThumbnailSize);
    showThumbnailSize();
}

/// The size that a listing begins with, unless the user is just choosing another one.
void FolderPane::showThumbnailSize() {
    if (m_rest.isActive() || m_size->isSliderDown())
        return;
    const Size size = m_view.settings.folderThumb;
    m_proportions = {size.width, size.height};
    const QSignalBlocker blocker(m_size);
    m_size->setValue(std::max(size.width, size.height));
    m_list->setThumbnailSize(m_proportions);
}

/// The thumbnails that are there are scaled at once.
void FolderPane::resizeThumbnails(int side) {
    const QSize inside = m_proportions.scaled(side, side, Qt::KeepAspectRatio);
    m_list->setThumbnailSize(inside.expandedTo({smallestThumbnail, smallestThumbnail}));
    m_rest.start();
}

void FolderPane::zoom(int angle) {
    constexpr int notch = 120;
    m_wheelAngle += angle;
    m_size->setValue(m_size->value() + m_wheelAngle / notch * m_size->pageStep() / 2);
    m_wheelAngle %= notch;
}

/// Sharp thumbnails are made when the size has stayed the same for a moment.
void FolderPane::takeThumbnailSize() {
    m_rest.stop();
    if (!m_size->isSliderDown())
        Q_EMIT thumbnailSizeChosen(m_list->thumbnailSize());
}

void FolderPane::selectFile(const QString& path) {
    m_wantedFile = path;
    selectWantedFile();
}

void FolderPane::selectWantedFile() {
    if (m_wantedFile.isEmpty())
        return;
    ListView& rows = m_list->list();
    for (int row = 0; row < rows.count(); ++row) {
        if (rows.row(row).tag != m_wantedFile)
            continue;
        m_wantedFile.clear();
        rows.selectOnly(row);
        m_list->view()->scrollTo(rows.index(row, 0));
        m_list->setFocus();
        Q_EMIT rowChosen(rows, row);
        return;
    }
    if (m_view.isRunning() || (m_view.refusal().isEmpty() && m_view.listAlso(m_wantedFile)))
        return;
    const QString name = QFileInfo(std::exchange(m_wantedFile, {})).fileName();
    if (m_view.refusal().isEmpty()) // else that is the reason
        Q_EMIT fileMissing(tr("The folder list does not contain %1.").arg(name));
}

void FolderPane::connectActions() {
    // The list itself takes the key.
    m_actions.action("cmdAddToQueue").setShortcutContext(Qt::WidgetShortcut);
    connect(&m_actions.action("cmdAddToQueue"), &QAction::triggered, this, &FolderPane::cmdAddToQueue);
    connect(&m_actions.action("cmdThumbnailFolder"), &QAction::triggered, this,
            &FolderPane::cmdThumbnailFolder);
    connect(&m_actions.action("cmdDetailFolder"), &QAction::triggered, this, &FolderPane::cmdDetailFolder);
    connect(&m_actions.action("cmdRefreshFolder"), &QAction::triggered, &m_view, &FolderView::refresh);
    QMenu* menu = m_actions.makeMenu("mnuContextFolderParent", {"cmdAddToQueue"}, this);
    addSortMenu(*menu, nullptr, m_list->list());
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
    showForm();
}

void FolderPane::cmdThumbnailFolder() {
    m_list->setForm(ListControl::Form::Thumbnails);
    m_view.cmdThumbnailFolder();
    Q_EMIT formChosen(m_view.settings.folderView);
}

void FolderPane::cmdDetailFolder() {
    m_list->setForm(ListControl::Form::Details);
    m_view.cmdDetailFolder();
    Q_EMIT formChosen(m_view.settings.folderView);
}

/// A click that leaves several rows selected, as before a drag, loads no picture.
void FolderPane::chooseRow() {
    const ListView& rows = m_list->list();
    if (rows.selectedRows().size() <= 1)
        Q_EMIT rowChosen(m_list->list(), rows.selectedIndex());
}

/// What an empty list says about its folder, once that has been read.
void FolderPane::showHint() {
    if (m_view.isRunning() || m_view.currentFolder().isEmpty())
        m_list->setHint({});
    else
        m_list->setHint(m_view.refusal().isEmpty() ? tr("This folder holds no pictures that can be shown.")
                                                   : m_view.refusal());
}

void FolderPane::showForm() {
    const bool details = m_list->form() == ListControl::Form::Details;
    m_size->setEnabled(!details);
    m_actions.action(details ? "cmdDetailFolder" : "cmdThumbnailFolder").setChecked(true);
}

} // namespace tarsel
