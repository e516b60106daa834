// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FolderView.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/Locale.h"
#include "collections/PageFiles.h"
#include "collections/Thumbnail.h"
#include "collections/modFileSystem.h"

#include <algorithm>

namespace tarsel {

namespace {

constexpr int detailView = 3;
/// What is taken over in one step, between two looks at pending input.
constexpr FolderScan::Limits oneStep{6400, 100};

} // namespace

FolderView::FolderView(CollectionLists lists) : m_lists(lists) {
    const auto rowsMoved = [this] { m_rowOf.clear(); };
    const ListView& list = m_lists.lvFolder;
    connect(&list, &QAbstractItemModel::rowsInserted, this, rowsMoved);
    connect(&list, &QAbstractItemModel::rowsRemoved, this, rowsMoved);
    connect(&list, &QAbstractItemModel::modelReset, this, rowsMoved);
    connect(&list, &QAbstractItemModel::layoutChanged, this, [this] {
        m_rowOf.clear();
        preferVisibleRows();
    });
}

FolderView::~FolderView() = default;

void FolderView::subShowFilesInFolder(const QString& path) {
    FolderChanging = true;
    retireScan();
    const auto failure = trap("FrmMain.subShowFilesInFolder", [&] {
        TrappingString = QStringLiteral("Showing files from selected folder");
        modFileSystem::MakeFolder(temporaryFolder(settings.programFolder));
        m_folder = path;
        m_lists.sbMain.setPanel(QStringLiteral("folder"), tr("Current Folder - %1").arg(path));
        clearList();
        startScan();
    });
    if (failure)
        stop();
    else
        Q_EMIT runningChanged();
}

void FolderView::clearList() {
    keepSorting();
    m_lists.lvFolder.clear();
    m_lists.lvFolder.attachImages(nullptr);
    m_lists.ilFolder.clear();
    if (!m_refusal.isEmpty() && m_lists.sbMain.panel(QStringLiteral("status")) == m_refusal)
        m_lists.sbMain.setPanel(QStringLiteral("status"), {});
    m_refusal.clear();
}

/// What a scan that has been replaced still sends is dropped by its number.
void FolderView::startScan(QStringList known) {
    m_expected = int(known.size());
    m_completed = int(known.count(QString()));
    m_hasAllRows = false;
    m_hasGaps = m_completed > 0;
    if (settings.folderView == 0)
        m_lists.lvFolder.attachImages(&m_lists.ilFolder);
    FolderScan::Request request{m_folder, settings, FileInfo(), std::move(known)};
    request.info.setDateForms(service<Locale>().dateForms());
    FileInfo().fSizeFormated(settings.longFileSize ? 1 : 0);
    const int number = ++m_scanNumber;
    m_scan = std::make_unique<FolderScan>(std::move(request), [this, number] {
        QMetaObject::invokeMethod(
            this,
            [this, number] {
                if (m_scan && number == m_scanNumber)
                    fetchDelivery();
            },
            Qt::QueuedConnection);
    });
}

void FolderView::makeThumbnailsAgain() {
    if (isRunning())
        return subShowFilesInFolder(m_folder);
    if (settings.folderView != 0)
        return m_lists.ilFolder.clear(); // the thumbnail view lists the folder again then
    if (m_lists.lvFolder.isEmpty())
        return;
    iconsByNumber();
    m_rowOf.clear();
    startScan(namesByNumber());
    preferVisibleRows();
}

/// The names for another scan of the rows that are there; empty for numbers without a row.
QStringList FolderView::namesByNumber() const {
    QStringList names;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row) {
        const ListRow& each = m_lists.lvFolder.row(row);
        while (names.size() <= each.number)
            names << QString();
        names[each.number] = each.text;
    }
    return names;
}

/// Undoes closeGapsOfIcons: the old pictures show until the new ones are there.
void FolderView::iconsByNumber() {
    ImageList opened;
    std::vector<int> icons;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row) {
        const ListRow& each = m_lists.lvFolder.row(row);
        opened.set(each.number, m_lists.ilFolder.at(each.icon));
        icons.push_back(each.icon < 0 ? -1 : each.number);
    }
    m_lists.ilFolder = std::move(opened);
    m_lists.lvFolder.setIcons(icons);
}

/// A scan ends when the file in work is done, which may take its time: nobody waits for that.
void FolderView::retireScan() {
    std::erase_if(m_retired, [](const auto& scan) { return scan->hasEnded(); });
    if (!m_scan)
        return;
    m_scan->stop();
    m_retired.push_back(std::move(m_scan));
}

void FolderView::refresh() {
    if (!m_folder.isEmpty())
        subShowFilesInFolder(m_folder);
}

void FolderView::stop() {
    retireScan();
    FolderChanging = false;
    hideBar();
    Q_EMIT runningChanged();
}

// --- what a scan delivers

void FolderView::fetchDelivery() {
    FolderScan::Delivery delivery = m_scan->fetch(oneStep);
    if (!delivery.failure)
        return take(std::move(delivery));
    stop();
    reportFailure(*delivery.failure);
}

void FolderView::reportFailure(const TrappedError& error) {
    const ErrorSubject subject(m_folder); // other work may be in progress, with a subject of its own
    if (error.number != ErrorNumber::PermissionDenied) {
        std::ignore = trap("FrmMain.subShowFilesInFolder", [&] { throw error; });
        return;
    }
    m_refusal = tr("You have no permission to read the folder %1.").arg(m_folder);
    m_lists.sbMain.setPanel(QStringLiteral("status"), m_refusal);
    Q_EMIT runningChanged();
}

void FolderView::take(FolderScan::Delivery delivery) {
    if (FolderChanging)
        m_expected = m_scan->count();
    FolderChanging = false;
    addRows(std::move(delivery.rows));
    std::vector<int> unreadable;
    for (FolderScan::NumberedContent& completed : delivery.contents)
        complete(std::move(completed), unreadable);
    m_completed += int(delivery.contents.size());
    removeRows(std::move(unreadable));
    showBar();
    m_hasAllRows = m_hasAllRows || delivery.allRows;
    if (m_hasAllRows && m_completed == m_expected)
        finish();
}

void FolderView::addRows(std::vector<ListRow> rows) {
    if (rows.empty())
        return;
    keepSorting();
    m_lists.lvFolder.append(std::move(rows));
    if (m_lists.lvFolder.count() == m_expected)
        sortAgain();
    preferVisibleRows();
}

void FolderView::complete(FolderScan::NumberedContent completed, std::vector<int>& unreadable) {
    const int index = rowOf(completed.number);
    if (index < 0)
        return;
    if (!completed.content.isPicture) {
        unreadable.push_back(index);
        return;
    }
    ListRow row = m_lists.lvFolder.row(index);
    row.subItems[FolderColumn::Resolution - 1] = completed.content.resolution;
    row.subItems[FolderColumn::Pages - 1] = completed.content.pages;
    if (!completed.content.thumbnail.isNull()) {
        row.icon = completed.number;
        m_lists.ilFolder.set(row.icon, QVariant::fromValue(completed.content.thumbnail));
    }
    m_lists.lvFolder.replace(index, std::move(row));
}

int FolderView::rowOf(int number) {
    const ListView& list = m_lists.lvFolder;
    if (m_rowOf.empty()) {
        m_rowOf.assign(size_t(m_expected), -1);
        for (int row = 0; row < list.count(); ++row)
            if (const int each = list.row(row).number; each >= 0 && each < m_expected)
                m_rowOf[size_t(each)] = row;
    }
    return number < int(m_rowOf.size()) ? m_rowOf[size_t(number)] : -1;
}

void FolderView::removeRows(std::vector<int> rows) {
    m_hasGaps = m_hasGaps || !rows.empty();
    std::sort(rows.begin(), rows.end());
    m_lists.lvFolder.remove(rows);
}

void FolderView::preferVisibleRows() {
    if (!m_scan || !visibleRows)
        return;
    const auto [first, last] = visibleRows();
    std::vector<int> numbers;
    for (int row = std::max(first, 0); row <= std::min(last, m_lists.lvFolder.count() - 1); ++row)
        numbers.push_back(m_lists.lvFolder.row(row).number);
    m_scan->prefer(std::move(numbers));
}

void FolderView::finish() {
    retireScan();
    if (m_hasGaps)
        closeGapsOfIcons();
    sortAgain();
    hideBar();
    Q_EMIT runningChanged();
}

void FolderView::showBar() {
    if (m_scan && m_expected > 0 && !m_isBarLent)
        m_lists.pbQueue.start(m_expected, m_completed);
}

void FolderView::hideBar() {
    if (!m_isBarLent)
        m_lists.pbQueue.hide();
}

void FolderView::lendBar(bool lent) {
    m_isBarLent = lent;
    showBar();
}

/// Rows without a picture are gone: the pictures are numbered by the rows that are left.
void FolderView::closeGapsOfIcons() {
    std::vector<int> newIndex(size_t(m_lists.ilFolder.count()), -1);
    ImageList closed;
    for (int index = 0; index < m_lists.ilFolder.count(); ++index)
        if (const QVariant picture = m_lists.ilFolder.at(index); picture.isValid())
            newIndex[size_t(index)] = closed.add(picture);
    std::vector<int> icons;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row) {
        const int icon = m_lists.lvFolder.row(row).icon;
        icons.push_back(icon < 0 ? -1 : newIndex[size_t(icon)]);
    }
    m_lists.ilFolder = std::move(closed);
    m_lists.lvFolder.setIcons(icons);
}

// --- order

/// A new listing and rows that arrive late keep the order that the user chose.
void FolderView::keepSorting() {
    const ListView& list = m_lists.lvFolder;
    if (list.sortColumn() >= 0)
        m_sorting = {list.sortColumn(), list.sortOrder()};
}

void FolderView::sortAgain() {
    keepSorting();
    if (m_sorting.first >= 0)
        m_lists.lvFolder.sort(m_sorting.first, m_sorting.second);
}

// --- the two views

void FolderView::cmdDetailFolder() {
    settings.folderView = detailView;
    m_lists.lvFolder.attachImages(nullptr);
    m_lists.lvFolder.setIcons(std::vector<int>(size_t(m_lists.lvFolder.count()), -1));
    if (isRunning())
        refresh();
}

void FolderView::cmdThumbnailFolder() {
    settings.folderView = 0;
    if (isRunning() || m_lists.ilFolder.count() == 0)
        return refresh();
    m_lists.lvFolder.attachImages(&m_lists.ilFolder);
    // By row number: after a sort the pictures belong to other rows than they show.
    std::vector<int> icons;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row)
        icons.push_back(row);
    m_lists.lvFolder.setIcons(icons);
}

} // namespace tarsel
