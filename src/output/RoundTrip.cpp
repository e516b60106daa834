// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/RoundTrip.h"

#include "base/Stop.h"
#include "codecs/Formats.h"
#include "codecs/PictureFile.h"
#include "imaging/DisplayColors.h"
#include "imaging/SaveFormats.h"
#include "pixels/ColorReduction.h"

#include <QElapsedTimer>
#include <algorithm>

namespace tarsel {

namespace {

const SaveFormat& formatAt(int format) {
    return saveFormats()[std::size_t(format)];
}

bool is(int format, const char* extension) {
    return extensionOfFormat(format) == QLatin1String(extension);
}

/// Which colour becomes transparent: that of the format's own controls.
void takeTransparency(SaveSettings& save, quint8 isTransparent, qint32 color) {
    save.BackColorTransparent = isTransparent != 0;
    if (save.BackColorTransparent)
        save.BackColor = color;
}

} // namespace

QString extensionOfFormat(int format) {
    return QLatin1String(formatAt(format).extension);
}

int rememberedColors(const settings::SaveAdvanced& settings, int format) {
    const int index = is(format, "gif")   ? settings.GifColorFormat
                      : is(format, "jpg") ? settings.JpgColorFormat
                      : is(format, "png") ? settings.PngColorFormat
                      : is(format, "tif") ? settings.TiffColorFormat
                                          : settings.BmpColorFormat;
    return index >= 0 && std::size_t(index) < formatAt(format).colors.size() ? index : 0;
}

void rememberColors(settings::SaveAdvanced& settings, int format, int index) {
    if (is(format, "gif"))
        settings.GifColorFormat = index;
    else if (is(format, "jpg"))
        settings.JpgColorFormat = index;
    else if (is(format, "png"))
        settings.PngColorFormat = index;
    else if (is(format, "tif"))
        settings.TiffColorFormat = index;
    else
        settings.BmpColorFormat = qint16(index);
}

bool hasJpegData(const RoundTripSettings& settings) {
    const auto colors = ColorFormat(settings.save.ColorFormat);
    const bool isJpegInPdf =
        is(settings.format, "pdf") &&
        (colors == ColorFormat::TrueColor || colors == ColorFormat::Gray256); // the rest is deflated
    return isJpegInPdf || is(settings.format, "jpg");
}

RoundTripSettings roundTripSettings(const settings::SaveAdvanced& settings) {
    const int jpeg = int(findSaveFormat(QStringLiteral("jpg")) - saveFormats().data());
    const bool isKnown = settings.Format >= 0 && std::size_t(settings.Format) < saveFormats().size();
    RoundTripSettings wanted;
    const int format = wanted.format = isKnown ? settings.Format : jpeg;
    SaveSettings& save = wanted.save;
    const auto colors = formatAt(format).colors;
    save.ColorFormat = colors[std::size_t(rememberedColors(settings, format))].colorFormat;
    if (is(format, "gif")) {
        save.GifCompression = settings.GifCompression == 1;
        takeTransparency(save, settings.GifTransparent, settings.GifTransparentColor);
    } else if (is(format, "jpg")) {
        save.JpegQuality = std::clamp<int>(settings.JpgQuality, 1, 100);
        save.JpegEncoding = settings.JpgEncoding == 1;
        if (settings.JpgLimited == 1)
            wanted.budget = {qint64(std::max(settings.JpgMostKilobytes, 1)) * 1024,
                             std::clamp<int>(settings.JpgLowestQuality, 1, 100), settings.JpgMayShrink == 1};
    } else if (is(format, "png")) {
        takeTransparency(save, settings.PngTransparent, settings.PngTransparentColor);
    } else if (hasJpegData(wanted)) { // in a PDF file
        save.JpegQuality = std::clamp<int>(settings.JpgQuality, 1, 100);
    } else if (is(format, "tif")) {
        save.TiffCompression = std::clamp<int>(settings.TiffCompression, 0, 2);
    }
    return wanted;
}

std::size_t RoundTripResult::memory() const {
    return std::size_t(bytes.size()) +
           std::size_t(decoded.width()) * std::size_t(decoded.height()) * std::size_t(decoded.channels());
}

namespace {

bool isSeen(ConstPixelView view, int x, int y) {
    return view.channels == 3 || view.pixel(x, y)[3] > 0;
}

qint64 madeTransparent(const Picture& source, const Picture& decoded) {
    qint64 count = 0;
    if (!decoded.hasAlpha() || decoded.width() != source.width() || decoded.height() != source.height())
        return count;
    const ConstPixelView before = source.view(), after = decoded.view();
    for (int y = 0; y < after.height; ++y)
        for (int x = 0; x < after.width; ++x)
            count += isSeen(before, x, y) && !isSeen(after, x, y);
    return count;
}

} // namespace

RoundTripResult roundTrip(const RoundTripSource& source, const RoundTripSettings& settings) {
    QElapsedTimer timer;
    timer.start();
    RoundTripResult result{settings, {}, {}, {}};
    const QString extension = extensionOfFormat(settings.format);
    result.jpegQuality = settings.save.JpegQuality;
    if (settings.budget.bytes > 0) {
        BudgetedJpeg fitting = jpegWithin(settings.budget, source.picture, settings.save, source.metadata);
        result.jpegQuality = fitting.quality();
        result.bytes = std::move(fitting.bytes);
    } else {
        result.bytes = encodePicture(extension, source.picture, settings.save, source.metadata);
    }
    result.milliseconds = timer.elapsed();
    raiseIfStopped();
    const PictureFile file(result.bytes, QStringLiteral("temp.") + extension);
    if (file.isRecognised() && file.usualExtension() == extension) {
        DecodedPicture decoded = file.decode(1, currentStop());
        result.decoded = std::move(decoded.picture);
        result.madeTransparent = madeTransparent(source.picture, result.decoded);
        result.iccProfile = std::move(decoded.metadata.iccProfile);
    }
    return result;
}

std::optional<operations::Similarity> similarityOf(const RoundTripSource& source,
                                                   const RoundTripResult& result) {
    if (result.decoded.width() != source.picture.width() ||
        result.decoded.height() != source.picture.height())
        return std::nullopt;
    if (result.iccProfile == source.metadata.iccProfile)
        return operations::similarity(source.picture.view(), result.decoded.view());
    const Picture original = inDisplayColors(source.picture, source.metadata.iccProfile);
    return operations::similarity(original.view(), inDisplayColors(result.decoded, result.iccProfile).view());
}

// --- the cache

RoundTripResult* RoundTripCache::find(const RoundTripSettings& settings) {
    const auto found = std::ranges::find(m_results, settings, &RoundTripResult::settings);
    if (found == m_results.end())
        return nullptr;
    m_results.splice(m_results.begin(), m_results, found);
    return &m_results.front();
}

void RoundTripCache::keep(RoundTripResult result) {
    std::erase_if(m_results, [&](const RoundTripResult& old) { return old.settings == result.settings; });
    m_results.push_front(std::move(result));
    std::size_t memory = 0;
    for (const RoundTripResult& each : m_results)
        memory += each.memory();
    while (m_results.size() > 1 && (m_results.size() > m_mostResults || memory > m_mostBytes)) {
        memory -= m_results.back().memory();
        m_results.pop_back();
    }
}

} // namespace tarsel
