// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/AcquiredPages.h"

#include "base/AcquiredFiles.h"
#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "base/SafeFileWriter.h"
#include "imaging/ImageBox.h"
#include "pixels/ColorReduction.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <utility>

namespace tarsel {

namespace {

constexpr const char* singlePages[] = {"BMP", "JPG", "TIF", "PDF", "PSD", "GIF"};
constexpr const char* multiPages[] = {"TIF", "PDF"};

QString formatAt(std::span<const char* const> entries, int index) {
    const auto count = int(entries.size());
    return QString::fromLatin1(entries[std::size_t(index >= 0 && index < count ? index : 0)]).toLower();
}

QString documentPath(const settings::Twain& choice) {
    return joinedPath(choice.Folder, documentName(choice));
}

ImageBox boxWith(const ScannedPage& page) {
    ImageBox box;
    box.setPictureHandle(page.picture);
    EmbeddedMetadata blocks;
    blocks.resolution = {page.dpiX, page.dpiY};
    box.metadata() = MetadataStore(blocks);
    box.ColorFormat = page.colorFormat;
    return box;
}

/// It came after the user was asked about the files there.
QString keptText(const QString& path) {
    return QCoreApplication::translate("AcquiredPages", "%1: another program has made a file of this name, "
                                                        "which is kept. Choose another name, and scan the "
                                                        "page again.")
        .arg(path);
}

bool saveBox(ImageBox box, const QString& path, OldFile oldFile) {
    if (oldFile == OldFile::Keep)
        return writeNewFileSafely(path, box.encoded(QFileInfo(path).suffix()));
    box.SaveToFile(path);
    return true;
}

} // namespace

std::span<const char* const> singlePageFormats() {
    return singlePages;
}

std::span<const char* const> multiPageFormats() {
    return multiPages;
}

QString singlePageExtension(const settings::Twain& choice) {
    return formatAt(singlePages, choice.SinglePageFormat);
}

QString documentName(const settings::Twain& choice) {
    return choice.GenericName + u'.' + formatAt(multiPages, choice.MultiPageFormat);
}

bool saveScannedPage(const ScannedPage& page, const QString& path, OldFile oldFile) {
    return saveBox(boxWith(page), path, oldFile);
}

bool PagedDocument::add(const ScannedPage& page) {
    constexpr int fax = 2;
    ImageBox box = boxWith(page);
    if (page.colorFormat == int(ColorFormat::BlackAndWhite))
        box.TiffCompression = fax;
    if (page.number == 1 || m_lacksFirstPage) {
        m_lacksFirstPage = true;
        m_lacksFirstPage = !saveBox(std::move(box), m_path, m_oldFile);
        return !m_lacksFirstPage;
    }
    if (!QFileInfo::exists(m_path)) // appending would begin a document without the pages before
        fail(ErrorNumber::FileNotFound, m_path);
    if (QFileInfo(m_path).suffix().compare(u"pdf", Qt::CaseInsensitive) == 0)
        box.AddPagePdf(m_path, {}, 0);
    else
        box.AddPageTiff(m_path, {}, 0);
    return true;
}

AcquiredPages::AcquiredPages(const settings::Twain& choice, const QString& temporaryFolder,
                             const std::optional<QStringList>& replaceable) :
    m_choice(choice),
    m_temporaryFolder(temporaryFolder), m_replaceable(replaceable),
    m_document(documentPath(choice), oldFileAt(documentPath(choice))) {}

OldFile AcquiredPages::oldFileAt(const QString& path) const {
    const bool mayReplace = !m_replaceable || m_replaceable->contains(QFileInfo(path).fileName());
    return mayReplace ? OldFile::Replace : OldFile::Keep;
}

AcquiredFile AcquiredPages::subAcquirePage(const ScannedPage& page) {
    AcquiredFile file;
    file.error =
        failureOf([&] { file.path = m_choice.Acquire == 0 ? saveForBasket(page) : saveToFile(page); });
    return file;
}

QString AcquiredPages::saveToFile(const ScannedPage& page) {
    const bool isDocument = m_choice.FileOption != 0;
    const QString path =
        isDocument ? documentPath(m_choice)
                   : joinedPath(m_choice.Folder, m_choice.GenericName + QString::number(page.number) + u'.' +
                                                     singlePageExtension(m_choice));
    acquiredFiles::listIfIn(m_temporaryFolder, path);
    if (!(isDocument ? m_document.add(page) : saveScannedPage(page, path, oldFileAt(path))))
        throw TrappedError{ErrorNumber::PermissionDenied, keptText(path)};
    return path;
}

/// The picture of another row must never be written over: the number counts on where a file has it. The page
/// is listed first: it may be lost to a kill while it is written, but never afterwards.
QString AcquiredPages::saveForBasket(const ScannedPage& page) const {
    constexpr int numbers = 9999;
    QDir().mkpath(m_temporaryFolder);
    for (int number = int(QRandomGenerator::global()->generateDouble() * numbers);; ++number) {
        QString path =
            joinedPath(m_temporaryFolder, QStringLiteral("%1_%2.tif").arg(page.number).arg(number));
        if (isNameTaken(path))
            continue;
        acquiredFiles::list({path}, true);
        if (saveScannedPage(page, path, OldFile::Keep))
            return path;
    }
}

} // namespace tarsel
