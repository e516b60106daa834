// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketSource.h"

#include "base/FailureOf.h"
#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "collections/OpenDocument.h"
#include "imaging/DisplayColors.h"
#include "imaging/ImageBox.h"
#include "imaging/Upright.h"

namespace tarsel {

namespace {

/// The box's picture as its thumbnail shows it; the page file keeps it as it is, with its orientation.
Picture seenPicture(const ImageBox& box, bool upright) {
    const Picture picture = inDisplayColors(box.picture(), box.metadata());
    return upright ? uprightPicture(picture, exifOrientation(box.metadata())) : picture;
}

/// The pages of one document on their way to their files.
class PageReading {
public:
    PageReading(const BasketSource& source, const CollectionSettings& settings,
                const ThumbnailReader& readThumbnail) :
        m_source(source),
        m_settings(settings), m_readThumbnail(readThumbnail), m_document(source.path) {}

    /// A page that can't be read is left out. A page file that can't be written (a full disk) is a failure.
    BasketContent read(int page) {
        BasketContent content;
        content.page = page;
        if (m_document.loadPage(m_box, page)) {
            content.failure = failureOf([&] { save(content); });
            if (!content.thumbnail)
                deletePageFile(std::exchange(content.pageFile, {}));
        }
        return content;
    }

private:
    /// A drop takes the thumbnail from the page file once saved, the other ways from the box, before
    /// anything is saved.
    void save(BasketContent& content) {
        content.size = {m_box.Width(), m_box.Height()};
        std::optional<Thumbnail> made;
        const bool isDrop = m_source.addedBy == AddedBy::Drag;
        if (!isDrop && !ignoringErrors([&] {
                made = makeThumbnail(seenPicture(m_box, m_settings.upright), m_settings.basketBox());
            }))
            return;
        content.pageFile = newPageFile(m_settings.programFolder, m_source.addedBy, m_source.fileName,
                                       content.page, m_source.pageFileNumber);
        savePage(m_box, content.pageFile);
        content.thumbnail =
            isDrop ? m_readThumbnail(content.pageFile, m_settings.basketBox(), m_settings.upright)
                   : std::move(made);
    }

    const BasketSource& m_source;
    const CollectionSettings& m_settings;
    const ThumbnailReader& m_readThumbnail;
    const OpenDocument m_document;
    ImageBox m_box;
};

void readPages(PageReading reading, int pages, const BasketContentTaker& take) {
    for (int page = 1; page <= pages; ++page) {
        BasketContent content = reading.read(page);
        content.pages = pages;
        content.isLast = page == pages || content.failure;
        const bool isLast = content.isLast;
        const QString pageFile = content.pageFile;
        if (!take(std::move(content))) {
            deletePageFile(pageFile);
            return;
        }
        if (isLast)
            return;
    }
}

BasketContent readPicture(const BasketSource& source, const CollectionSettings& settings,
                          const ThumbnailReader& readThumbnail) {
    BasketContent content;
    if (source.shown.isNull())
        content.thumbnail = readThumbnail(source.path, settings.basketBox(), settings.upright);
    else
        content.thumbnail = makeThumbnail(source.shown, settings.basketBox());
    return content;
}

} // namespace

void readBasketSource(const BasketSource& source, const CollectionSettings& settings,
                      const ThumbnailReader& readThumbnail, const BasketContentTaker& take) {
    const auto failure = failureOf([&] {
        const int pages = source.pages > 0 ? source.pages : ImageBox::PageCount(source.path, currentStop());
        if (pages < 2)
            take(readPicture(source, settings, readThumbnail));
        else
            readPages(PageReading(source, settings, readThumbnail), pages, take);
    });
    if (!failure)
        return;
    BasketContent content;
    content.failure = failure;
    take(std::move(content));
}

} // namespace tarsel
