// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifBlock.h"
#include "embedded/ExifTagTable.h"
#include "embedded/MetadataStore.h"
#include "embedded/PrivateMetadata.h"
#include "tests/support/Corpus.h"
#include "tests/support/PictureBlocks.h"

#include <exiv2/error.hpp>
#include <exiv2/exif.hpp>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

using namespace tarsel;
using namespace tarsel::test;

namespace {

std::vector<CorpusPicture> picturesWithExif() {
    std::vector<CorpusPicture> pictures;
    for (const CorpusPicture& picture : corpusPictures())
        if (!blocksOfPicture(picture.path).exif.isEmpty())
            pictures.push_back(picture);
    return pictures;
}

Exiv2::ExifData decoded(const QByteArray& exif) {
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::ExifData data;
    try {
        Exiv2::ExifParser::decode(data, reinterpret_cast<const Exiv2::byte*>(exif.constData()),
                                  uint32_t(exif.size()));
    } catch (const Exiv2::AnyError&) {
    }
    return data;
}

/// What a foreign parser reads, maker notes decoded; a repeated key counts.
std::multimap<std::string, std::string> foreignReading(const QByteArray& exif) {
    std::multimap<std::string, std::string> values;
    for (const Exiv2::Exifdatum& datum : decoded(exif)) {
        const bool isPointer = datum.tagName() == "ExifTag" || datum.tagName() == "GPSTag" ||
                               datum.tagName() == "InteroperabilityTag";
        values.emplace(datum.key(), isPointer ? "" : datum.toString());
    }
    return values;
}

int foreignCount(const QByteArray& exif) {
    int count = 0;
    for (const Exiv2::Exifdatum& datum : decoded(exif)) {
        const std::string group = datum.groupName();
        count += group == "Image" || group == "Photo" || group == "GPSInfo" || group == "Iop";
    }
    return count;
}

bool isDamaged(const CorpusPicture& picture) {
    const QString category = picture.fact("category");
    return category == QLatin1String("meta-damaged") || category == QLatin1String("bad");
}

} // namespace

TEST(ExifCorpus, ListsAsManyAttributesAsAForeignParserAndTheManifestsMakeModelAndDate) {
    TARSEL_REQUIRE_CORPUS();
    for (const CorpusPicture& picture : picturesWithExif()) {
        if (isDamaged(picture))
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        const EmbeddedMetadata blocks = blocksOfPicture(picture.path);
        const MetadataStore store(blocks);
        EXPECT_EQ(store.ExifCount(), foreignCount(blocks.exif));
        for (const auto& [name, heading] :
             {std::pair("Make", "make"), {"Model", "model"}, {"DateTimeOriginal", "datetime_original"}})
            if (const QString fact = picture.fact(heading); !fact.isEmpty()) { // else it may be misplaced
                EXPECT_EQ(store.ExifValueByName(QLatin1String(name)).trimmed(), fact) << name;
            }
    }
}

TEST(ExifCorpus, ChangingOneAttributeKeepsAllOthersForAForeignParserMakerNotesIncluded) {
    TARSEL_REQUIRE_CORPUS();
    for (const CorpusPicture& picture : picturesWithExif()) {
        MetadataStore store(blocksOfPicture(picture.path));
        const QByteArray before = store.blocks().exif;
        if (!ExifBlock::read(before))
            continue;
        ASSERT_TRUE(store.ExifSet(QStringLiteral("Artist"), QStringLiteral("Ansel Adams and several others")))
            << qPrintable(picture.path);
        auto expected = foreignReading(before);
        expected.erase("Exif.Image.Artist");
        expected.emplace("Exif.Image.Artist", "Ansel Adams and several others");
        if (!isDamaged(picture)) {
            EXPECT_EQ(foreignReading(store.blocks().exif), expected) << qPrintable(picture.path);
        }
    }
}

TEST(ExifCorpus, PositionAndSerialNumbersGoAndTheRestStays) {
    TARSEL_REQUIRE_CORPUS();
    int cleaned = 0;
    for (const CorpusPicture& picture : picturesWithExif()) {
        if (isDamaged(picture))
            continue;
        EmbeddedMetadata blocks = blocksOfPicture(picture.path);
        const auto before = foreignReading(blocks.exif);
        std::multimap<std::string, std::string> expected;
        for (const auto& [key, value] : before) {
            const auto has = [&](const char* part) { return key.find(part) != std::string::npos; };
            const bool isStandard =
                has("Exif.Image.") || has("Exif.Photo.") || has("Exif.Thumbnail.") || has("Exif.Iop.");
            if (isStandard && !has("GPS") && !has("SerialNumber") && !has("UniqueID") && !has("MakerNote"))
                expected.emplace(key, value);
        }
        cleaned += expected.size() < before.size();
        removePrivateMetadata(blocks);
        EXPECT_EQ(foreignReading(blocks.exif), expected) << qPrintable(picture.path);
        EXPECT_TRUE(blocks.cameraSegments.empty());
    }
    EXPECT_GT(cleaned, 10);
}
