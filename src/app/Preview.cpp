// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Preview.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "collections/FolderView.h"
#include "collections/clsFileInfo.h"
#include "configuration/ConfigRecord.h"
#include "imaging/Upright.h"
#include "imaging/fncLoadPicture.h"
#include "metadata/modMetadata.h"
#include "tasks/modProcessTasks.h"

namespace tarsel {

namespace {

constexpr int SnapshotFormat = 7;

bool isOneOf(const QString& extension, std::initializer_list<const char*> extensions) {
    return std::any_of(extensions.begin(), extensions.end(),
                       [&](const char* each) { return extension == QLatin1String(each); });
}

} // namespace

Preview::Preview(Lists lists) : m_lists(lists) {}

void Preview::ShowRow(ListView& list, int row) {
    if (row < 0 || row >= list.count() || list.row(row).tag == m_shownPath)
        return;
    const QString path = list.row(row).tag;
    m_lists.ibMain.Clear();
    m_lists.lvExif.clear();
    m_lists.lvIPTC.clear();
    fncReadFile(path);
    completeResolution(list, row);
    listMetadata(path);
    Q_EMIT pictureChanged();
}

bool Preview::fncReadFile(const QString& path) {
    bool shown = false;
    trap("FrmMain.fncReadFile", [&] {
        TrappingString = QStringLiteral("Trying to read/view selected image file");
        FileInfo().setFilePath(path);
        m_lists.ibMain.Clear();
        m_lists.ibMain.StretchToFit = true;
        if (!load(path))
            return;
        prepareForTasks(m_lists.ibMain, path, ConfigRecord.BatchSave.UprightByExif == 1);
        m_original = m_lists.ibMain.SaveToMemory(SnapshotFormat);
        if (OptimizedPreview)
            runTasks(path);
        m_shownPath = path;
        showPanels();
        m_lists.ibMain.Visible = true;
        m_lists.ibMain.Tag = path;
        TrappingString = QStringLiteral("Resizing image to fit the container control");
        shown = true;
    });
    return shown;
}

/// Formats that carry metadata go through the box, all others through the picture loader. An unreadable file
/// is no error here: the box stays empty.
bool Preview::load(const QString& path) {
    ImageBox& box = m_lists.ibMain;
    if (isOneOf(FileInfo().fFileExtention().toLower(), {"tiff", "tif", "jpg", "jpeg"})) {
        box.PageNumber = 1;
        ignoringErrors([&] { box.LoadFromFile(path); });
        return !box.LoadFailed() && box.HasImage();
    }
    ignoringErrors([&] {
        if (const auto picture = fncLoadPicture(path, LoadMode::FullSize))
            box.setPictureHandle(*picture);
    });
    return box.HasImage();
}

void Preview::runTasks(const QString& path) {
    const ErrorSubject subject(path);
    modProcessTasks::subProcessPages(m_lists.tasks.lvEdit, m_lists.tasks.lvEditBatch, m_lists.ibMain,
                                     &m_lists.tasks.lvEditPreview, false);
}

void Preview::rebuild() {
    if (!m_lists.ibMain.HasImage())
        return;
    m_lists.ibMain.LoadFromMemory(m_original, SnapshotFormat);
    if (OptimizedPreview)
        runTasks(m_shownPath);
    Q_EMIT pictureChanged();
}

void Preview::reload() {
    if (!m_shownPath.isEmpty() && fncReadFile(QString(m_shownPath)))
        Q_EMIT pictureChanged();
}

void Preview::completeResolution(ListView& list, int row) const {
    const ImageBox& box = m_lists.ibMain;
    if (row >= list.count() || !box.HasImage())
        return;
    const QString known = list.subItem(row, FolderColumn::Resolution);
    if (known.isEmpty() || known == QLatin1String("0 X 0 X 0"))
        list.setSubItem(
            row, FolderColumn::Resolution,
            QStringLiteral("%1 X %2 X %3").arg(box.Width()).arg(box.Height()).arg(box.BitsPerPixel()));
}

void Preview::listMetadata(const QString& path) {
    FileInfo().setFilePath(path);
    const QString extension = FileInfo().fFileExtention().toLower();
    if (isOneOf(extension, {"tif", "tiff", "jpg", "jpeg", "jpe"})) {
        modMetadata::ListExifAttributes(m_lists.ibMain, m_lists.lvExif, path);
        modMetadata::ListIptcAttributes(m_lists.ibMain, m_lists.lvIPTC, path);
        Q_EMIT metadataRead(MetadataTab::Exif);
    } else if (extension == QLatin1String("psd")) {
        modMetadata::ListIptcAttributes(m_lists.ibMain, m_lists.lvIPTC, path);
        Q_EMIT metadataRead(MetadataTab::Iptc);
    }
    QString found;
    if (!m_lists.lvExif.isEmpty())
        found += QStringLiteral("EXIF");
    if (!m_lists.lvIPTC.isEmpty() || m_lists.ibMain.HasIptc())
        found += QStringLiteral(" IPTC");
    m_lists.sbMain.setPanel(QStringLiteral("metadata"), found.isEmpty()
                                                            ? QStringLiteral("No metadata")
                                                            : QStringLiteral("Metadata - ") + found);
}

void Preview::showPanels() {
    const ListView& folder = m_lists.lvFolder;
    m_lists.sbMain.setPanel(QStringLiteral("filename"), FileInfo().fName32bit());
    const int row = folder.selectedIndex();
    if (row < 0)
        return;
    m_lists.sbMain.setPanel(QStringLiteral("pages"),
                            folder.subItem(row, FolderColumn::Pages) + QStringLiteral(" page(s)"));
    m_lists.sbMain.setPanel(QStringLiteral("resolution"), folder.subItem(row, FolderColumn::Resolution) +
                                                              QStringLiteral("  ") +
                                                              folder.subItem(row, FolderColumn::FileSize));
}

} // namespace tarsel
