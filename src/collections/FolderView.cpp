// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/FolderView.h"

#include "base/Desktop.h"
#include "base/ErrorTrap.h"
#include "collections/PageFiles.h"
#include "collections/PictureHeaderReading.h"
#include "collections/Thumbnail.h"
#include "collections/clsFileInfo.h"

namespace tarsel {

namespace {

constexpr int DetailView = 3;

/// The texts that FileInfo holds of a file, in the columns from the size on.
QStringList factsOfFile(bool longFileSize) {
    clsFileInfo& file = FileInfo();
    return {file.fSizeFormated(longFileSize ? 1 : 0),
            QStringLiteral("1"),
            file.fType(),
            file.fDateCreated(),
            file.fDateModified(),
            file.fDateAccessed()};
}

/// Formats whose header the detail view shows.
bool showsHeader(const QString& extension) {
    static const QStringList shown{QStringLiteral("tif"),  QStringLiteral("tiff"), QStringLiteral("jpg"),
                                   QStringLiteral("jpeg"), QStringLiteral("png"),  QStringLiteral("bmp"),
                                   QStringLiteral("gif")};
    return shown.contains(extension);
}

QString headerText(const QString& path, const QString& extension) {
    if (!showsHeader(extension))
        return {};
    const PictureHeader header = readPictureHeader(path).value_or(PictureHeader{});
    return QStringLiteral("%1 X %2 X %3").arg(header.width).arg(header.height).arg(header.bitsPerPixel);
}

} // namespace

QStringList folderHeaders() {
    return {QStringLiteral("File Name"),     QStringLiteral("Resolution"),   QStringLiteral("Size"),
            QStringLiteral("Pages"),         QStringLiteral("Type"),         QStringLiteral("Date Created"),
            QStringLiteral("Date Modified"), QStringLiteral("Date Accessed")};
}

FolderView::FolderView(CollectionLists lists, ThumbnailMaker thumbnails) :
    m_lists(lists), m_thumbnails(std::move(thumbnails)) {}

void FolderView::subShowFilesInFolder(const QString& path) {
    const bool ended = trap("FrmMain.subShowFilesInFolder", [&] {
        TrappingString = QStringLiteral("Showing files from selected folder");
        modFileSystem::MakeFolder(temporaryFolder(settings.programFolder));
        m_folder = path;
        m_lists.sbMain.setPanel(QStringLiteral("folder"), QStringLiteral("Current Folder - ") + path);
        clearList();
        desktop().yield();
        const QStringList names = pictureFiles(path);
        if (!names.isEmpty())
            listFiles(path, names);
    });
    if (!ended)
        m_lists.pbQueue.hide();
}

void FolderView::clearList() {
    m_lists.lvFolder.clear();
    m_lists.lvFolder.attachImages(nullptr);
    m_lists.ilFolder.clear();
}

void FolderView::listFiles(const QString& folder, const QStringList& names) {
    FolderChanging = false;
    m_lists.pbQueue.start(int(names.size()));
    for (qsizetype i = 0; i < names.size(); ++i) {
        TrappingString = QStringLiteral("Looping through all available files");
        desktop().yield();
        if (FolderChanging)
            break;
        addFile(joinedPath(folder, names[i]), names[i]);
        m_lists.pbQueue.setValue(int(i) + 1);
    }
    m_lists.pbQueue.hide();
    FolderChanging = false;
}

void FolderView::addFile(const QString& path, const QString& name) {
    FileInfo().setFilePath(path);
    const QString extension = FileInfo().fFileExtention().toLower();
    // Whatever runs in the yield may ask FileInfo for another file: its texts are taken first.
    ListRow row;
    row.text = name;
    row.tag = path;
    row.iconKey = QStringLiteral("iDetailIcon");
    row.subItems = QStringList(QString()) + factsOfFile(settings.longFileSize);
    desktop().yield();
    if (mayHavePages(extension))
        row.subItems[FolderColumn::Pages - 1] = QString::number(ImageBox::PageCount(path));
    if (addPictureFacts(row, extension))
        m_lists.lvFolder.add(std::move(row));
}

/// Resolution and icon of a row; false when the view shows thumbnails and there is none.
bool FolderView::addPictureFacts(ListRow& row, const QString& extension) {
    QString& resolution = row.subItems[FolderColumn::Resolution - 1];
    if (settings.folderView != 0) {
        resolution = headerText(row.tag, extension);
        return true;
    }
    const auto thumbnail = loadThumbnail(row.tag, settings.folderThumb, m_thumbnails, settings.upright);
    if (!thumbnail)
        return false;
    resolution = QStringLiteral("%1 x %2").arg(thumbnail->sourceSize.width).arg(thumbnail->sourceSize.height);
    row.icon = addIcon(m_lists.ilFolder, *thumbnail);
    m_lists.lvFolder.attachImages(&m_lists.ilFolder);
    return true;
}

void FolderView::cmdDetailFolder() {
    settings.folderView = DetailView;
    m_lists.lvFolder.attachImages(nullptr);
    for (int row = 0; row < m_lists.lvFolder.count(); ++row)
        m_lists.lvFolder.setIcon(row, -1);
}

void FolderView::cmdThumbnailFolder() {
    settings.folderView = 0;
    if (m_lists.ilFolder.count() == 0)
        return subShowFilesInFolder(m_folder);
    m_lists.lvFolder.attachImages(&m_lists.ilFolder);
    // By row number: after a sort the pictures stand at other rows than they show.
    for (int row = 0; row < m_lists.lvFolder.count(); ++row)
        m_lists.lvFolder.setIcon(row, row);
}

} // namespace tarsel
