// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/CachedThumbnails.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "codecs/DecoderLost.h"
#include "codecs/PictureFile.h"
#include "collections/ThumbnailStore.h"
#include "imaging/Upright.h"

#include <QDir>
#include <cmath>
#include <memory>
#include <utility>

namespace tarsel {

namespace {

constexpr int uprightOrientation = 1;

/// Smaller pictures are decoded faster than their thumbnails are found.
constexpr std::int64_t pixelsWorthKeeping = 256 * 256;
constexpr qint64 bytesWorthKeeping = 64 << 10;

bool isMetafile(const PictureFile& file) {
    return file.usualExtension() == QLatin1String("wmf") || file.usualExtension() == QLatin1String("emf");
}

/// From upright back to the orientation: only quarter turns differ in their two directions.
int inverseOf(int orientation) {
    return orientation == 6 ? 8 : orientation == 8 ? 6 : orientation;
}

Size turnedSize(Size size, int orientation) {
    return exchangesSides(orientation) ? Size{size.height, size.width} : size;
}

/// False for a thumbnail that was cropped, or that its program did not turn upright.
bool hasProportionsOf(Size full, const Picture& picture) {
    const Size expected = sizeInBox(full, {picture.width(), picture.height()});
    return std::abs(expected.width - picture.width()) <= 1 &&
           std::abs(expected.height - picture.height()) <= 1;
}

/// The stored picture as the program shows its source.
QuickPicture shown(const StoredThumbnail& stored, bool upright) {
    if (upright)
        return {stored.picture, turnedSize(stored.sourceSize, stored.orientation), {}};
    const bool isUpright = stored.orientation == uprightOrientation;
    return {isUpright ? stored.picture : uprightPicture(stored.picture, inverseOf(stored.orientation)),
            stored.sourceSize,
            {}};
}

/// Adds what another program did not note down about the source. False for a picture that can't be its
/// thumbnail.
bool complete(StoredThumbnail& stored, const ThumbnailSource& source) {
    if (stored.sourceSize.width < 1 || stored.sourceSize.height < 1 || stored.orientation < 1) {
        const PictureFile file(source.path);
        const PictureHeader header = file.header();
        stored.sourceSize = {header.width, header.height};
        stored.orientation = fileOrientation(file, currentStop());
    }
    return stored.orientation <= 8 &&
           hasProportionsOf(turnedSize(stored.sourceSize, stored.orientation), stored.picture);
}

class ThumbnailCache {
public:
    ThumbnailCache(const QString& folder, const QString& privateFolder) :
        m_store(folder), m_private(QDir::cleanPath(privateFolder) + QLatin1Char('/')) {}

    std::optional<Thumbnail> load(const QString& path, std::optional<Size> box, bool upright) {
        const int side = box ? ThumbnailStore::sideFor(*box) : 0;
        const auto source = side > 0 ? ThumbnailSource::of(path) : std::nullopt;
        if (!source || m_store.contains(source->path) || source->path.startsWith(m_private))
            return loadThumbnail(path, box, upright);
        std::optional<Thumbnail> thumbnail;
        ignoringErrors([&] { thumbnail = loadFrom(*source, side, *box, upright); });
        return thumbnail;
    }

private:
    std::optional<Thumbnail> loadFrom(const ThumbnailSource& source, int side, Size box, bool upright) {
        if (std::optional<StoredThumbnail> stored = m_store.find(source, side))
            if (complete(*stored, source))
                if (auto thumbnail = fitted(*stored, box, upright))
                    return thumbnail;
        if (m_store.hasFailed(source))
            return std::nullopt;
        const std::optional<PictureFile> file = openPicture(source.path);
        if (!file || !file->isRecognised())
            return std::nullopt;
        if (!isWorthKeeping(*file, source))
            return thumbnailOf(*file, box, upright);
        try {
            return make(*file, source, side, box, upright);
        } catch (const DecoderLost&) {
            throw; // perhaps for lack of time: the next visit tries again
        } catch (const TrappedError& error) {
            if (error.number == ErrorNumber::UnreadableFile)
                m_store.keepFailure(source);
            throw;
        }
    }

    /// Nothing when the stored picture is smaller than it would be drawn, and could be larger.
    static std::optional<Thumbnail> fitted(const StoredThumbnail& stored, Size box, bool upright) {
        const auto [picture, full, profile] = shown(stored, upright);
        const Size drawn = sizeInBox(full, box);
        const bool isFull = Size{picture.width(), picture.height()} == full;
        if (!isFull && (picture.width() + 1 < drawn.width || picture.height() + 1 < drawn.height))
            return std::nullopt;
        return Thumbnail{drawInBox(picture, full, box), stored.sourceSize};
    }

    static bool isWorthKeeping(const PictureFile& file, const ThumbnailSource& source) {
        const PictureHeader header = file.header();
        return isMetafile(file) || source.bytes >= bytesWorthKeeping ||
               std::int64_t(header.width) * header.height >= pixelsWorthKeeping;
    }

    std::optional<Thumbnail> make(const PictureFile& file, const ThumbnailSource& source, int side, Size box,
                                  bool upright) {
        const LoadMode mode = isMetafile(file) ? LoadMode::ExactBox : LoadMode::FitInside;
        FittedPicture read = loadFitted(file, mode, {side, side});
        StoredThumbnail stored{std::move(read.picture), read.sourceSize,
                               fileOrientation(file, currentStop())};
        if (stored.orientation != uprightOrientation)
            stored.picture = uprightPicture(stored.picture, stored.orientation);
        m_store.keep(source, side, stored);
        return fitted(stored, box, upright);
    }

    ThumbnailStore m_store;
    const QString m_private;
};

} // namespace

QuickPictureReader storedPictures(const QString& folder) {
    return [store = std::make_shared<const ThumbnailStore>(folder)](
               const PictureFile& file, bool upright) -> std::optional<QuickPicture> {
        const auto source = ThumbnailSource::of(file.name());
        std::optional<StoredThumbnail> stored = source ? store->findLargest(*source) : std::nullopt;
        return stored && complete(*stored, *source) ? std::optional(shown(*stored, upright)) : std::nullopt;
    };
}

ThumbnailReader cachedThumbnails(const QString& folder, const QString& privateFolder) {
    return [cache = std::make_shared<ThumbnailCache>(folder, privateFolder)](
               const QString& path, std::optional<Size> box, bool upright) {
        return cache->load(path, box, upright);
    };
}

} // namespace tarsel
