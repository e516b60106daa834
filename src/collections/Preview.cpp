// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Preview.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "collections/FolderRow.h"
#include "collections/clsFileInfo.h"
#include "metadata/modMetadata.h"
#include "tasks/modProcessTasks.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace tarsel {

namespace {

int rowOfPath(const ListView& list, const QString& path) {
    for (int row = 0; row < list.count(); ++row)
        if (list.row(row).tag == path)
            return row;
    return -1;
}

QString resolutionText(Size size, int bitsPerPixel) {
    return QStringLiteral("%1 X %2 X %3").arg(size.width).arg(size.height).arg(bitsPerPixel);
}

} // namespace

Preview::Preview(Lists lists) :
    m_lists(lists), m_worker([this](PreviewWorker::Result result) {
        auto shared = std::make_shared<PreviewWorker::Result>(std::move(result));
        QMetaObject::invokeMethod(
            this, [this, shared] { apply(std::move(*shared)); }, Qt::QueuedConnection);
    }) {
    connect(this, &Preview::pictureChanged, this, [this] {
        if (m_describesEdited)
            showResolution();
    });
    // Rows are completed in the background, perhaps after their picture is shown.
    for (const ListView* list : {&m_lists.lvFolder, &m_lists.lvPages})
        connect(list, &QAbstractItemModel::dataChanged, this,
                [this, list](const QModelIndex& first, const QModelIndex& last) {
                    if (first.row() == last.row() && list->row(first.row()).tag == describedPath())
                        showFilePanels();
                });
}

// --- requests

void Preview::ShowRow(ListView& list, int row) {
    if (row < 0 || row >= list.count())
        return;
    const QString path = list.row(row).tag;
    const bool isWanted = m_pending
                              ? m_pending->path == path || (m_pending->path.isEmpty() && path == m_shownPath)
                              : path == m_shownPath && m_lists.ibMain.HasImage();
    if (isWanted)
        return;
    TrappingString = QStringLiteral("Trying to read/view selected image file");
    const int described = m_lists.lvFolder.selectedIndex();
    m_nextDescribedPath = described < 0 ? QString() : m_lists.lvFolder.row(described).tag;
    m_lists.ibMain.Clear();
    m_lists.lvExif.clear();
    m_lists.lvIPTC.clear();
    m_wantedPath = path;
    load(path, OptimizedPreview);
}

void Preview::showAdded(ListView& list, int row) {
    ShowRow(list, row);
    m_nextDescribedPath.clear();
}

void Preview::showNew(const Picture& picture, const QString& path) {
    drop();
    Q_EMIT loadingBegun(path);
    if (!OptimizedPreview)
        m_lists.tasks.deselect();
    m_lists.ibMain.setPictureHandle(picture);
    m_lists.ibMain.Visible = true;
    m_lists.ibMain.Tag = m_shownPath = m_wantedPath = path;
    m_original = picture;
    m_shown.path = path;
    m_shown.picture = picture;
    m_shown.size = {picture.width(), picture.height()};
    m_lists.sbMain.setPanel(QStringLiteral("filename"), clsFileInfo::StripFileFromPath(path));
    Q_EMIT pictureChanged();
    Q_EMIT replaced();
}

void Preview::rebuild() {
    show(OptimizedPreview);
}

void Preview::showTasks(bool editing) {
    show(true, editing);
}

void Preview::reload() {
    if (!m_wantedPath.isEmpty())
        load(m_wantedPath, OptimizedPreview);
}

void Preview::show(bool withTasks, bool editing) {
    if (m_pending && !m_pending->path.isEmpty())
        return load(m_pending->path, withTasks);
    if (!m_lists.ibMain.HasImage())
        return;
    PreviewWorker::Request request = requestFor(m_original);
    if (withTasks)
        addTasks(request, editing);
    else
        m_lists.tasks.deselect();
    send(std::move(request));
}

void Preview::load(const QString& path, bool withTasks) {
    PreviewWorker::Request request = requestFor({});
    request.path = path;
    if (withTasks)
        addTasks(request, false);
    else
        m_lists.tasks.deselect(); // of a row the picture would have the tasks
    send(std::move(request));
    Q_EMIT loadingBegun(path);
}

void Preview::showPreview(const Picture& start, const TaskRow& row, PreviewReason reason) {
    PreviewWorker::Request request = requestFor(start);
    request.preview = row;
    request.followsOptions = reason == PreviewReason::Followed;
    request.reducedFirst = m_lists.ibMain.StretchToFit;
    if (request.followsOptions)
        follow(std::move(request));
    else
        send(std::move(request));
}

void Preview::showSnapshot(const Picture& snapshot) {
    stop();
    service<EventLoop>().setBusyPointer(false);
    m_lists.ibMain.LoadFromMemory(snapshot, 7);
    m_shown.picture = snapshot;
    m_shown.size = {snapshot.width(), snapshot.height()};
    m_shown.isReduced = false;
    Q_EMIT pictureChanged();
}

/// The settings of the box go along; picture and metadata don't.
PreviewWorker::Request Preview::requestFor(const Picture& start) const {
    PreviewWorker::Request request;
    request.start = start;
    request.original = m_original;
    request.metadata = m_lists.ibMain.metadata();
    request.box = m_lists.ibMain;
    request.box.Clear();
    request.box.StretchToFit = true;
    request.view = view;
    request.upright = upright;
    request.readStored = readStored;
    return request;
}

void Preview::addTasks(PreviewWorker::Request& request, bool editing) const {
    request.tasks = modProcessTasks::rowsToReplay(m_lists.tasks.lvEdit, m_lists.tasks.lvEditBatch,
                                                  &m_lists.tasks.lvEditPreview, false, editing);
}

/// A newer preview drops the one in work, unless nothing new has been seen for a while: options that change
/// all the time would never show then.
void Preview::follow(PreviewWorker::Request request) {
    constexpr int longestStandstill = 100; // milliseconds
    const bool isFollowing = m_pending && m_pending->isQuiet;
    if (!isFollowing)
        m_standstill.start();
    if (isFollowing && m_standstill.hasExpired(longestStandstill))
        m_followUp = std::move(request);
    else
        send(std::move(request));
}

void Preview::send(PreviewWorker::Request request) {
    m_followUp.reset();
    request.number = ++m_lastNumber;
    if (!request.followsOptions && (!request.tasks.empty() || request.preview))
        service<EventLoop>().setBusyPointer(true);
    m_pending = Pending{request.number, request.path, request.preview.has_value(), request.followsOptions};
    m_worker.request(std::move(request));
}

void Preview::dropUnselected() {
    const auto selects = [this](const ListView& list) {
        const int row = list.selectedIndex();
        return row >= 0 && list.row(row).tag == m_wantedPath;
    };
    if (!m_wantedPath.isEmpty() && !selects(m_lists.lvFolder) && !selects(m_lists.lvPages))
        clear();
}

void Preview::clear() {
    drop();
    Q_EMIT pictureChanged();
    Q_EMIT replaced();
}

void Preview::drop() {
    stop();
    service<EventLoop>().setBusyPointer(false);
    for (QString* text :
         {&m_shownPath, &m_wantedPath, &m_describedPath, &m_nextDescribedPath, &m_fileResolution})
        text->clear();
    m_original = {};
    m_shown = {};
    m_lists.ibMain.Clear();
    m_lists.lvExif.clear();
    m_lists.lvIPTC.clear();
    for (const char* panel : {"pages", "resolution", "metadata"})
        m_lists.sbMain.setPanel(QLatin1String(panel), {});
    m_lists.sbMain.setPanel(QStringLiteral("filename"), tr("No file selected"));
}

void Preview::stop() {
    m_worker.cancel();
    m_pending.reset();
    m_followUp.reset();
}

// --- results

void Preview::apply(PreviewWorker::Result result) {
    if (!m_pending || result.number != m_pending->number)
        return;
    m_shown = std::move(result.shown);
    m_shown.path = result.path.isEmpty() ? m_shownPath : result.path;
    m_standstill.start();
    if (result.isFinal && !m_followUp)
        return takeResult(std::move(result));
    Q_EMIT pictureChanged();
    if (m_followUp)
        send(*std::exchange(m_followUp, std::nullopt));
}

void Preview::takeResult(PreviewWorker::Result result) {
    const bool isPreview = m_pending->isPreview;
    const char* routine = isPreview ? "FrmMain.cmdApply_Click" : "subProcessPages";
    const bool isQuiet = m_pending->isQuiet;
    m_pending.reset();
    const std::optional<TrappedError> failure = std::move(result.failure);
    const QString path = result.path;
    if (result.box.HasImage())
        takePicture(result);
    else
        m_lists.ibMain.Clear();
    if (!failure || isPreview) // a failed replay leaves it on
        service<EventLoop>().setBusyPointer(false);
    if (!path.isEmpty())
        describe(path);
    Q_EMIT pictureChanged();
    if (path.isEmpty())
        Q_EMIT settled(failure.has_value());
    else
        Q_EMIT replaced();
    if (failure && !isQuiet) {
        const ErrorSubject subject(m_shownPath);
        std::ignore = trap(routine, [&] { throw *failure; });
    }
}

/// Settings that the tasks leave in the box stay there, from picture to picture. Metadata are those of the
/// last load.
void Preview::takePicture(PreviewWorker::Result& result) {
    if (result.path.isEmpty())
        result.box.metadata() = m_lists.ibMain.metadata();
    else
        m_shownPath = result.path;
    m_original = std::move(result.original);
    m_lists.ibMain = std::move(result.box);
    m_lists.ibMain.Visible = true;
    m_lists.ibMain.Tag = m_shownPath;
}

/// Fills panels and lists from the path that was asked for.
void Preview::describe(const QString& path) {
    if (m_lists.ibMain.HasImage()) {
        m_describedPath = m_nextDescribedPath;
        m_lists.sbMain.setPanel(QStringLiteral("filename"), clsFileInfo::StripFileFromPath(path));
        showFilePanels();
    }
    showFailure(m_lists.ibMain.HasImage()
                    ? QString()
                    : tr("%1 can't be shown").arg(clsFileInfo::StripFileFromPath(path)));
    for (ListView* list : {&m_lists.lvFolder, &m_lists.lvPages})
        completeResolution(*list, path);
    listMetadata(path);
    showMetadataPanel();
}

/// The panels of the picture stay as they were, and the status line says why nothing fits them.
void Preview::showFailure(const QString& text) {
    const QString status = QStringLiteral("status");
    if (!text.isEmpty() || m_lists.sbMain.panel(status) == m_failureText)
        m_lists.sbMain.setPanel(status, text);
    m_failureText = text;
}

void Preview::completeResolution(ListView& list, const QString& path) const {
    const int row = rowOfPath(list, path);
    if (row < 0 || !m_lists.ibMain.HasImage())
        return;
    const QString known = list.subItem(row, FolderColumn::Resolution);
    if (known.isEmpty() || known == QLatin1String("0 X 0 X 0"))
        list.setSubItem(row, FolderColumn::Resolution,
                        resolutionText({m_original.width(), m_original.height()}, m_original.bitsPerPixel()));
}

void Preview::listMetadata(const QString& path) {
    m_lists.lvExif.clear();
    m_lists.lvIPTC.clear();
    using modMetadata::ListedMetadata;
    const ListedMetadata listed = modMetadata::listedMetadata(clsFileInfo::StripFileExtention(path));
    if (listed == ListedMetadata::ExifAndIptc) {
        modMetadata::ListExifAttributes(m_lists.ibMain, m_lists.lvExif, path);
        modMetadata::ListIptcAttributes(m_lists.ibMain, m_lists.lvIPTC, path);
        Q_EMIT metadataRead(MetadataTab::Exif);
    } else if (listed == ListedMetadata::Iptc) {
        modMetadata::ListIptcAttributes(m_lists.ibMain, m_lists.lvIPTC, path);
        Q_EMIT metadataRead(MetadataTab::Iptc);
    } else {
        Q_EMIT metadataAbsent();
    }
}

/// The list of IPTC fields has all its rows for every picture: the box knows whether there are data.
void Preview::showMetadataPanel() {
    const bool exif = !m_lists.lvExif.isEmpty();
    const bool iptc = m_lists.ibMain.HasIptc();
    m_lists.sbMain.setPanel(QStringLiteral("metadata"), exif && iptc ? tr("Metadata - EXIF IPTC")
                                                        : exif       ? tr("Metadata - EXIF")
                                                        : iptc       ? tr("Metadata -  IPTC")
                                                                     : tr("No metadata"));
}

const QString& Preview::describedPath() const {
    return m_describedPath.isEmpty() ? m_shownPath : m_describedPath;
}

/// A row of the basket is one page; resolution and size have the same columns in both lists.
void Preview::showFilePanels() {
    const QString& path = describedPath();
    if (path.isEmpty())
        return;
    const int inFolder = rowOfPath(m_lists.lvFolder, path);
    const bool isOfFolder = inFolder >= 0;
    const ListView& list = isOfFolder ? m_lists.lvFolder : m_lists.lvPages;
    const int row = isOfFolder ? inFolder : rowOfPath(list, path);
    if (row < 0)
        return;
    const QString pages = isOfFolder ? list.subItem(row, FolderColumn::Pages) : QStringLiteral("1");
    m_lists.sbMain.setPanel(QStringLiteral("pages"), tr("%1 page(s)").arg(pages));
    m_fileResolution = list.subItem(row, FolderColumn::Resolution) + QStringLiteral("  ") +
                       list.subItem(row, FolderColumn::FileSize);
    showResolution();
}

void Preview::describeEdited(bool edited) {
    if (std::exchange(m_describesEdited, edited) != edited)
        showResolution();
}

void Preview::showResolution() {
    const auto [width, height] = m_shown.size;
    const bool isEdited = m_describesEdited && width > 0;
    m_lists.sbMain.setPanel(QStringLiteral("resolution"),
                            isEdited ? resolutionText({width, height}, m_original.bitsPerPixel())
                                     : m_fileResolution);
}

} // namespace tarsel
