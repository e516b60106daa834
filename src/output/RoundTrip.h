// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"
#include "configuration/ConfigRecord.h"
#include "embedded/EmbeddedMetadata.h"
#include "imaging/SizeBudget.h"
#include "pixels/Picture.h"
#include "pixels/operations/Similarity.h"

#include <QByteArray>
#include <QString>
#include <list>
#include <optional>

namespace tarsel {

/// The picture to save, with the metadata that its file gets.
struct RoundTripSource {
    Picture picture;
    EmbeddedMetadata metadata;
};

/// A format and what its file depends on. Settings that the format doesn't use have their defaults, so that
/// equal files have equal settings.
struct RoundTripSettings {
    int format = 0; ///< index in saveFormats()
    SaveSettings save;
    SizeBudget budget{}; ///< of a JPEG file

    bool operator==(const RoundTripSettings&) const = default;
};

/// What the controls of the dialog ask for. An index beyond a list counts as its first entry.
RoundTripSettings roundTripSettings(const settings::SaveAdvanced& settings);

/// Whether the file has JPEG data, so that their quality counts.
bool hasJpegData(const RoundTripSettings& settings);

/// The index in the list of colours that is remembered for a format of saveFormats(). Formats that offer all
/// colours share one field, except for TIFF.
int rememberedColors(const settings::SaveAdvanced& settings, int format);
void rememberColors(settings::SaveAdvanced& settings, int format, int index);

/// A picture after it went through an encoder and back.
struct RoundTripResult {
    RoundTripSettings settings;
    QByteArray bytes;      ///< of the file
    Picture decoded;       ///< null for a format that isn't read
    QByteArray iccProfile; ///< of the decoded pixels
    qint64 milliseconds = 0;
    qint64 madeTransparent = 0; ///< pixels of the source that are transparent in the file
    double jpegQuality = 0;     ///< which a budget may have made lower than that of the settings
    std::optional<operations::Similarity> similarity = {}; ///< to the source; measured later

    std::size_t memory() const;
};

/// Encodes the picture and decodes it again. Errors as of encoder and decoder; stops with the thread's token.
RoundTripResult roundTrip(const RoundTripSource& source, const RoundTripSettings& settings);

/// How like the source the decoded picture is, both in the screen's colours; nothing where it has other
/// pixels or was not read.
std::optional<operations::Similarity> similarityOf(const RoundTripSource& source,
                                                   const RoundTripResult& result);

/// "jpg" for an index in saveFormats().
QString extensionOfFormat(int format);

/// The last results, so that going back to settings costs nothing.
class RoundTripCache {
public:
    explicit RoundTripCache(std::size_t mostBytes = std::size_t(256) << 20, std::size_t mostResults = 12) :
        m_mostBytes(mostBytes), m_mostResults(mostResults) {}

    /// Null when it isn't kept. It stays valid until the next `keep`.
    RoundTripResult* find(const RoundTripSettings& settings);
    /// The oldest ones give way; the newest is always kept.
    void keep(RoundTripResult result);

private:
    std::size_t m_mostBytes;
    std::size_t m_mostResults;
    std::list<RoundTripResult> m_results; ///< the one used last comes first
};

} // namespace tarsel
