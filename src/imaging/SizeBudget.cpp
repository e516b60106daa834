// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/SizeBudget.h"

#include "base/TrappedError.h"
#include "codecs/Formats.h"
#include "codecs/JpegTables.h"
#include "embedded/MetadataStore.h"
#include "imaging/PictureParts.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tarsel {

namespace {

constexpr double wellUsed = 0.97;
constexpr double aimedAt = 0.985;
constexpr int mostTrials = 16;

/// A file made with the value `x` of what is searched for: the scale of the tables, or the length of a side.
struct Trial {
    double x = 0;
    QByteArray bytes;
};

/// Where the limit is on the line through two files, both scales logarithmic: sizes are nearly powers of
/// either value. Every third trial halves the interval, for pictures of which that isn't true.
double between(const Trial& tooLarge, const Trial& fits, double limit, int trial) {
    const double large = std::log(double(tooLarge.bytes.size())), small = std::log(double(fits.bytes.size()));
    double part = 0.5;
    if (trial % 3 != 2 && large > small)
        part = std::clamp((large - std::log(limit)) / (large - small), 0.0, 1.0);
    return std::exp(std::log(tooLarge.x) + part * (std::log(fits.x) - std::log(tooLarge.x)));
}

/// EXIF data that state the size of the picture state the new one.
EmbeddedMetadata withSize(const EmbeddedMetadata& metadata, int width, int height) {
    MetadataStore store(metadata);
    for (const auto& [name, length] : {std::pair{"PixelXDimension", width}, {"PixelYDimension", height}})
        if (store.HasExif(QLatin1String(name)))
            store.ExifSet(QLatin1String(name), QString::number(length));
    return store.blocks();
}

class BudgetSearch {
public:
    BudgetSearch(const SizeBudget& budget, const Picture& picture, const SaveSettings& settings,
                 const EmbeddedMetadata& metadata) :
        m_budget(budget),
        m_full(picture), m_picture(picture), m_settings(settings), m_fullMetadata(metadata),
        m_metadata(metadata), m_best(std::max(jpegTableScale(settings.JpegQuality), 1)),
        m_lowest(std::max(jpegTableScale(budget.lowestQuality), m_best)) {}

    BudgetedJpeg find() {
        const Trial best = withTables(m_best);
        if (fits(best))
            return result(best);
        Trial lowest = withTables(m_lowest);
        if (!fits(lowest))
            lowest = shrunk(lowest);
        // A smaller picture might have room for the best quality.
        const Trial largest = isSmaller() ? withTables(m_best) : best;
        return result(fits(largest) ? largest : finest(largest, lowest));
    }

private:
    bool fits(const Trial& trial) const { return trial.bytes.size() <= m_budget.bytes; }
    bool isSmaller() const { return longSide(m_picture) < longSide(m_full); }

    Trial withTables(double scale) {
        m_settings.JpegTableScale = int(std::lround(scale));
        return {scale, encodePicture(QStringLiteral("jpg"), m_picture, m_settings, m_metadata)};
    }

    /// Between a file that is too large and one that fits, until the budget is used up. Values are multiples
    /// of one.
    template <class Make>
    Trial nearest(Trial tooLarge, Trial fitting, Make make) {
        for (int trial = 0; trial < mostTrials; ++trial) {
            const double low = std::min(tooLarge.x, fitting.x), high = std::max(tooLarge.x, fitting.x);
            if (double(fitting.bytes.size()) >= wellUsed * double(m_budget.bytes) || high - low < 2)
                break;
            const double wanted = between(tooLarge, fitting, aimedAt * double(m_budget.bytes), trial);
            Trial next = make(std::clamp(std::round(wanted), low + 1, high - 1));
            (fits(next) ? fitting : tooLarge) = std::move(next);
        }
        return fitting;
    }

    Trial finest(const Trial& tooLarge, const Trial& fitting) {
        return nearest(tooLarge, fitting, [this](double scale) { return withTables(scale); });
    }

    /// The file of the largest picture that fits with the lowest quality.
    Trial shrunk(const Trial& full) {
        if (!m_budget.mayShrink)
            failBeyond(full);
        Trial tooLarge, smaller{double(longSide(m_full)), full.bytes};
        do {
            if (smaller.x <= 1)
                failBeyond(smaller);
            tooLarge = smaller;
            const double ratio = double(m_budget.bytes) / double(smaller.bytes.size());
            smaller = withLongSide(std::max(1.0, std::floor(smaller.x * std::sqrt(ratio) * wellUsed)));
        } while (!fits(smaller));
        const Trial fitting = nearest(tooLarge, smaller, [this](double side) { return withLongSide(side); });
        setLongSide(fitting.x);
        return {double(m_lowest), fitting.bytes};
    }

    static int longSide(const Picture& picture) { return std::max(picture.width(), picture.height()); }

    Trial withLongSide(double side) {
        setLongSide(side);
        return {side, withTables(m_lowest).bytes};
    }

    void setLongSide(double side) {
        const double scale = side / longSide(m_full);
        const int width = std::max(1, int(std::lround(m_full.width() * scale)));
        const int height = std::max(1, int(std::lround(m_full.height() * scale)));
        if (m_picture.width() != width || m_picture.height() != height)
            m_picture = resizedTo(m_full, {width, height});
        m_metadata = withSize(m_fullMetadata, width, height);
    }

    BudgetedJpeg result(const Trial& trial) {
        m_settings.JpegTableScale = int(std::lround(trial.x));
        return {trial.bytes, m_settings, m_picture};
    }

    [[noreturn]] void failBeyond(const Trial& smallest) const {
        SaveSettings lowest = m_settings;
        lowest.JpegTableScale = m_lowest;
        const QString text = QCoreApplication::translate(
            "SizeBudget",
            "No file of at most %1 bytes is possible: at the lowest quality allowed, %2, it has %3 "
            "bytes with %4 x %5 pixels");
        throw TrappedError{ErrorNumber::InvalidCall, text.arg(m_budget.bytes)
                                                         .arg(std::round(jpegQualityOf(lowest)))
                                                         .arg(smallest.bytes.size())
                                                         .arg(m_picture.width())
                                                         .arg(m_picture.height())};
    }

    const SizeBudget m_budget;
    const Picture m_full;
    Picture m_picture; ///< of the last trial
    SaveSettings m_settings;
    const EmbeddedMetadata& m_fullMetadata;
    EmbeddedMetadata m_metadata; ///< of m_picture
    const int m_best;
    const int m_lowest;
};

} // namespace

double BudgetedJpeg::quality() const {
    return jpegQualityOf(settings);
}

BudgetedJpeg jpegWithin(const SizeBudget& budget, const Picture& picture, const SaveSettings& settings,
                        const EmbeddedMetadata& metadata) {
    return BudgetSearch(budget, picture, settings, metadata).find();
}

} // namespace tarsel
