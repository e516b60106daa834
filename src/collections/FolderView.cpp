// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FolderView.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/FileNames.h"
#include "base/Locale.h"
#include "collections/PageFiles.h"
#include "collections/PictureFiles.h"
#include "collections/modFileSystem.h"

#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <numeric>

namespace tarsel {

namespace {

constexpr int detailView = 3;
constexpr Color white = 0xFFFFFF;
/// What is taken over in one step, between two looks at pending input.
constexpr FolderScan::Limits oneStep{6400, 100};

} // namespace

FolderView::FolderView(CollectionLists lists) : m_lists(lists) {
    m_sharp.ended = [this] { sharpenVisibleRows(); };
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
        if (m_folder != path)
            m_alsoListed.clear();
        m_folder = path;
        m_lists.sbMain.setPanel(QStringLiteral("folder"), tr("Current Folder - %1").arg(path));
        clearList();
        takeThumbnailSize();
        startScan();
    });
    if (failure)
        stop();
}

void FolderView::clearList() {
    keepSorting();
    m_lists.lvFolder.clear();
    m_lists.lvFolder.attachImages(nullptr);
    m_lists.ilFolder.clear();
    m_unreadable.clear();
    m_written.clear();
    m_isOutOfOrder = false;
    if (!m_refusal.isEmpty() && m_lists.sbMain.panel(QStringLiteral("status")) == m_refusal)
        m_lists.sbMain.setPanel(QStringLiteral("status"), {});
    m_refusal.clear();
    m_lastRead.clear();
}

FolderScan::Request FolderView::request(QStringList known) const {
    FolderScan::Request made{
        m_folder, settings, FileInfo(), std::move(known), QFileInfo(m_alsoListed).fileName(), readThumbnail};
    made.info.setDateForms(service<Locale>().dateForms());
    return made;
}

void FolderView::startScan(QStringList known) {
    m_expected = int(known.size());
    m_completed = int(known.count(QString()));
    m_hasAllRows = !known.isEmpty();
    m_hasGaps = m_completed > 0;
    if (settings.folderView == 0)
        m_lists.lvFolder.attachImages(&m_lists.ilFolder);
    FolderScan::Request wanted = request(std::move(known));
    FileInfo().fSizeFormated(settings.longFileSize ? 1 : 0);
    m_scan.start(std::move(wanted));
    Q_EMIT runningChanged();
}

void FolderView::setThumbnailSize(Size size) {
    m_nextSize = size;
    if (m_lists.lvFolder.isEmpty() && !isRunning())
        takeThumbnailSize();
}

void FolderView::takeThumbnailSize() {
    if (!m_nextSize)
        return;
    settings.folderThumb = *std::exchange(m_nextSize, {});
    Q_EMIT thumbnailSizeChanged();
}

void FolderView::changeThumbnailSize(Size size) {
    m_nextSize.reset();
    settings.folderThumb = size;
    makeThumbnailsAgain();
}

void FolderView::makeThumbnailsAgain() {
    if (settings.folderView != 0)
        return m_lists.ilFolder.clear(); // the thumbnail view lists the folder again then
    if (isRunning() && !m_hasAllRows)
        return subShowFilesInFolder(m_folder);
    if (m_lists.lvFolder.isEmpty())
        return;
    retireScan();
    showOwnThumbnails();
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

int FolderView::firstFreeNumber() const {
    int free = 0;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row)
        free = std::max(free, m_lists.lvFolder.row(row).number + 1);
    return free;
}

void FolderView::showOwnThumbnails() {
    std::vector<int> icons;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row) {
        const ListRow& each = m_lists.lvFolder.row(row);
        icons.push_back(each.icon < 0 ? -1 : each.number);
    }
    m_lists.lvFolder.setIcons(icons);
}

void FolderView::retireScan() {
    m_scan.retire();
    m_sharp.stop();
}

void FolderView::refresh() {
    if (!m_folder.isEmpty())
        subShowFilesInFolder(m_folder);
}

bool FolderView::listAlso(const QString& file) {
    if (file == m_alsoListed || file != joinedPath(m_folder, QFileInfo(file).fileName()))
        return false;
    m_alsoListed = file;
    refresh();
    return true;
}

void FolderView::stop() {
    retireScan();
    FolderChanging = false;
    hideBar();
    Q_EMIT runningChanged();
}

void FolderView::cancel() {
    if (!isRunning())
        return;
    stop();
    refuse(tr("The listing was stopped. Press F5 to list the folder again."));
}

// --- what a scan delivers

void FolderView::fetchDelivery(FolderScan& scan) {
    FolderScan::Delivery delivery = scan.fetch(oneStep);
    if (delivery.failure) {
        stop();
        reportFailure(*delivery.failure);
    } else if (!delivery.isEmpty()) {
        take(std::move(delivery), scan.count());
    }
}

void FolderView::reportFailure(const TrappedError& error) {
    const ErrorSubject subject(m_folder); // other work may be in progress, with a subject of its own
    if (error.number != ErrorNumber::PermissionDenied) {
        std::ignore = trap("FrmMain.subShowFilesInFolder", [&] { throw error; });
        return;
    }
    refuse(tr("You have no permission to read the folder %1.").arg(m_folder));
}

void FolderView::refuse(const QString& reason) {
    m_refusal = reason;
    m_lists.sbMain.setPanel(QStringLiteral("status"), m_refusal);
    Q_EMIT runningChanged();
}

void FolderView::take(FolderScan::Delivery delivery, int files) {
    if (FolderChanging)
        m_expected = files;
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
    sharpenVisibleRows();
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
    m_lastRead = row.text;
    row.iconKey = detailIcon();
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
    std::ranges::sort(rows);
    for (const int row : rows) {
        m_unreadable.push_back({m_lists.lvFolder.row(row).number, m_lists.lvFolder.row(row)});
        m_unreadable.back().row.iconKey = detailIcon();
    }
    m_lists.lvFolder.remove(rows);
}

void FolderView::preferVisibleRows() {
    std::vector<int> numbers;
    for (const int row : rowsInView())
        numbers.push_back(m_lists.lvFolder.row(row).number);
    if (m_scan.get())
        m_scan.get()->prefer(std::move(numbers));
    sharpenVisibleRows();
}

std::vector<int> FolderView::rowsInView() const {
    std::vector<int> rows;
    if (!visibleRows)
        return rows;
    const auto [first, last] = visibleRows();
    for (int row = std::max(first, 0); row <= std::min(last, m_lists.lvFolder.count() - 1); ++row)
        rows.push_back(row);
    return rows;
}

void FolderView::finish() {
    m_scan.retire();
    if (m_hasGaps || m_isOutOfOrder)
        numberAgain();
    sortAgain();
    hideBar();
    Q_EMIT runningChanged();
    showWrittenNames();
}

void FolderView::showBar() {
    if (!isRunning() || m_expected == 0 || m_isBarLent)
        return;
    m_lists.pbQueue.start(m_expected, m_completed);
    m_lists.pbQueue.setSubject(m_lastRead);
}

void FolderView::hideBar() {
    if (!m_isBarLent)
        m_lists.pbQueue.hide();
}

void FolderView::lendBar(bool lent) {
    m_isBarLent = lent;
    showBar();
}

/// Rows without a picture are gone, and others may have come: the rows, and their pictures, are numbered
/// without gaps, in the order of names where all of them have pictures.
void FolderView::numberAgain() {
    ListView& list = m_lists.lvFolder;
    std::vector<int> rows(size_t(list.count()));
    std::iota(rows.begin(), rows.end(), 0);
    std::ranges::sort(rows, [&](int a, int b) {
        return settings.folderView == 0 ? standsBefore(list.row(a).text, list.row(b).text)
                                        : list.row(a).number < list.row(b).number;
    });
    ImageList pictures;
    for (int number = 0; number < list.count(); ++number) {
        const int row = rows[size_t(number)];
        if (const QVariant picture = m_lists.ilFolder.at(list.row(row).number); picture.isValid())
            pictures.set(number, picture);
        list.setNumber(row, number);
    }
    m_lists.ilFolder = std::move(pictures);
    m_expected = m_completed = list.count();
    m_hasGaps = m_isOutOfOrder = false;
    m_rowOf.clear();
    m_sharp.stop();
    showOwnThumbnails();
    std::ranges::sort(m_unreadable, {}, &PlacedRow::place);
}

// --- files that the program has written

void FolderView::showWritten(const QStringList& files) {
    if (m_folder.isEmpty())
        return;
    const QString folder = QFileInfo(joinedPath(m_folder, QStringLiteral("-"))).absolutePath();
    for (const QString& file : files) {
        const QFileInfo written(file);
        const QString name = written.fileName();
        if (written.absolutePath() == folder && isPictureName(name) && !name.startsWith(QLatin1Char('.')))
            m_written << name;
    }
    m_written.removeDuplicates();
    showWrittenNames();
}

/// What the file system says of each file is asked here, in the window's thread, so there may not be many.
/// False where the folder is too slow to look at its files here.
bool FolderView::dropMissing(QStringList& names) const {
    constexpr auto longest = std::chrono::milliseconds(200);
    const auto begun = std::chrono::steady_clock::now();
    for (qsizetype at = names.size(); at-- > 0;) {
        if (!QFileInfo::exists(joinedPath(m_folder, names[at])))
            names.removeAt(at);
        if (std::chrono::steady_clock::now() - begun > longest)
            return false;
    }
    return true;
}

void FolderView::showWrittenNames() {
    constexpr int most = 50;
    if (m_written.isEmpty() || isRunning() || !m_hasAllRows || !m_refusal.isEmpty())
        return;
    const bool hasSmallThumbnails = settings.affordableRatio(m_lists.lvFolder.count() + most) < 1;
    if (m_written.size() > most || hasSmallThumbnails || !dropMissing(m_written))
        return refresh();
    if (settings.folderView != 0)
        m_lists.ilFolder.clear(); // the thumbnail view lists the folder again then
    QStringList fresh = std::exchange(m_written, {});
    takeFromUnreadable(fresh);
    QStringList known(firstFreeNumber());
    keepSorting();
    for (int index = 0; index < m_lists.lvFolder.count(); ++index) {
        const ListRow& old = m_lists.lvFolder.row(index);
        if (fresh.removeAll(old.text) == 0)
            continue;
        ListRow changed = writtenRow(old.text);
        changed.number = old.number;
        changed.icon = old.icon;
        changed.selected = old.selected;
        known[changed.number] = changed.text;
        m_lists.lvFolder.replace(index, std::move(changed));
    }
    addWritten(std::move(fresh), known);
    if (known.isEmpty())
        return;
    m_isOutOfOrder = true; // new rows come last by number
    m_rowOf.clear();
    startScan(std::move(known));
}

/// Those that were written again aren't left out any more; the others move up.
void FolderView::takeFromUnreadable(const QStringList& names) {
    int taken = 0;
    for (PlacedRow& each : m_unreadable)
        if (names.contains(each.row.text))
            ++taken;
        else
            each.place -= taken;
    std::erase_if(m_unreadable, [&](const PlacedRow& each) { return names.contains(each.row.text); });
}

ListRow FolderView::writtenRow(const QString& name) const {
    clsFileInfo info = request({}).info;
    info.fSizeFormated(settings.longFileSize ? 1 : 0);
    return folderRow(m_folder, name, info, settings);
}

/// New rows in the order of names, numbered after those that are there.
void FolderView::addWritten(QStringList fresh, QStringList& known) {
    std::ranges::sort(fresh, standsBefore);
    const bool inOrder = m_sorting.first < 0;
    std::vector<PlacedRow> placed;
    int next = 0;
    for (const QString& name : fresh) {
        while (next < m_lists.lvFolder.count() &&
               (!inOrder || standsBefore(m_lists.lvFolder.row(next).text, name)))
            ++next;
        ListRow row = writtenRow(name);
        row.number = int(known.size());
        known << name;
        placed.push_back({next + int(placed.size()), std::move(row)});
        for (PlacedRow& left : m_unreadable)
            left.place += standsBefore(name, left.row.text);
    }
    m_lists.lvFolder.insert(std::move(placed));
}

// --- thumbnails in view

/// In a list that is too long for thumbnails in full size, those in view are read once more.
void FolderView::sharpenVisibleRows() {
    const std::optional<Size> box = settings.folderBox();
    if (settings.folderView != 0 || !box || settings.affordableRatio(m_expected) == 1 || m_sharp.isReading())
        return;
    const std::vector<int> rows = rowsInView();
    QStringList names;
    for (const int row : rows) {
        const int shown = m_lists.lvFolder.row(row).icon;
        const int owner = shown < 0 || m_sharp.holds(shown) ? -1 : rowOf(shown);
        if (owner < 0)
            continue;
        while (names.size() <= shown)
            names << QString();
        names[shown] = m_lists.lvFolder.row(owner).text;
    }
    m_sharp.read(request(std::move(names)));
    for (const int number : m_sharp.takeOldest(2 * rows.size()))
        showThumbnail(number, ScalePicture(pictureAt(m_lists.ilFolder, number), LoadMode::ExactBox,
                                           smallBox(*box), white));
}

Size FolderView::smallBox(Size box) const {
    const double ratio = settings.affordableRatio(m_expected);
    return {std::max(1, int(box.width * ratio)), std::max(1, int(box.height * ratio))};
}

void FolderView::showThumbnail(int number, const Picture& picture) {
    if (picture.isNull() || !m_lists.ilFolder.at(number).isValid())
        return;
    m_lists.ilFolder.set(number, QVariant::fromValue(picture));
    for (const int row : rowsInView())
        if (m_lists.lvFolder.row(row).icon == number)
            m_lists.lvFolder.setIcon(row, number); // paints it
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
    if (isRunning() || !m_refusal.isEmpty())
        refresh();
    else if (!m_unreadable.empty())
        addUnreadable();
}

/// Numbered after the rows that have a thumbnail, in the places that the listing had for them.
void FolderView::addUnreadable() {
    keepSorting();
    QStringList names(m_lists.lvFolder.count());
    for (PlacedRow& each : m_unreadable) {
        each.row.number = int(names.size());
        names << each.row.text;
    }
    m_lists.lvFolder.insert(std::exchange(m_unreadable, {}));
    startScan(std::move(names));
}

void FolderView::leaveOutUnreadable() {
    std::vector<int> rows;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row)
        if (m_lists.lvFolder.row(row).number >= m_lists.ilFolder.count()) {
            rows.push_back(row);
            m_unreadable.push_back({row, m_lists.lvFolder.row(row)});
        }
    m_lists.lvFolder.remove(rows);
    m_expected = m_completed = m_lists.lvFolder.count();
}

void FolderView::cmdThumbnailFolder() {
    const bool fromDetails = std::exchange(settings.folderView, 0) != 0;
    if (m_lists.ilFolder.count() == 0 || !m_refusal.isEmpty() || (isRunning() && !fromDetails))
        return refresh();
    if (isRunning())
        stop();
    leaveOutUnreadable();
    m_lists.lvFolder.attachImages(&m_lists.ilFolder);
    // By row number: after a sort the pictures belong to other rows than they show.
    std::vector<int> icons;
    for (int row = 0; row < m_lists.lvFolder.count(); ++row)
        icons.push_back(row);
    m_lists.lvFolder.setIcons(icons);
}

} // namespace tarsel
