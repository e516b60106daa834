// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"
#include "imaging/ImageBox.h"
#include "tests/support/Corpus.h"
#include "tests/support/PictureBlocks.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <map>

using namespace tarsel;
using namespace tarsel::test;

namespace {

const QString software = QStringLiteral("Software");

std::multimap<QString, QString> attributesOf(const ImageBox& box) {
    std::multimap<QString, QString> attributes;
    for (int i = 0; i < box.ExifCount(); ++i)
        attributes.emplace(box.ExifName(i), box.ExifValue(i));
    attributes.erase(software);
    return attributes;
}

bool isPointer(const QString& name) {
    return name.endsWith(QLatin1String("Offset")) || name == QLatin1String("GPSInfo");
}

bool isWholeJpeg(const CorpusPicture& picture) {
    return picture.fact("format") == QLatin1String("jpeg") &&
           picture.fact("state") == QLatin1String("valid") &&
           picture.fact("category") != QLatin1String("meta-damaged") && picture.number("width") > 0;
}

} // namespace

TEST(SavedPicture, ABrandedJpegKeepsEveryAttributeAndEveryIptcField) {
    TARSEL_REQUIRE_CORPUS();
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("saved.jpg"));
    int seen = 0;
    for (const CorpusPicture& picture : corpusPictures()) {
        if (!isWholeJpeg(picture))
            continue;
        ImageBox box;
        box.LoadFromFile(picture.path);
        const EmbeddedMetadata blocks = box.metadata().blocks();
        std::multimap<QString, QString> before = attributesOf(box);
        ASSERT_TRUE(box.ExifSet(software, QStringLiteral("Editor 1.0"))) << qPrintable(picture.path);
        box.SaveToFile(target);

        ImageBox saved;
        saved.LoadFromFile(target);
        EXPECT_EQ(saved.ExifValueByName(software), QStringLiteral("Editor 1.0"));
        std::multimap<QString, QString> after = attributesOf(saved);
        std::erase_if(before, [](const auto& pair) { return isPointer(pair.first); });
        std::erase_if(after, [](const auto& pair) { return isPointer(pair.first); });
        EXPECT_EQ(after, before) << qPrintable(picture.path);
        EXPECT_EQ(saved.metadata().blocks().resources, blocks.resources) << qPrintable(picture.path);
        EXPECT_EQ(blocksOfPicture(target).exif, saved.metadata().blocks().exif);
        ++seen;
    }
    EXPECT_GT(seen, 30);
}

TEST(SavedPicture, ALongDescriptionIsWrittenWholeOrRefused) {
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("saved.jpg"));
    ImageBox box;
    box.setPictureHandle(Picture(8, 8, 3));
    EXPECT_FALSE(box.ExifSet(QStringLiteral("ImageDescription"), QString(70000, u'x')));
    EXPECT_TRUE(box.ExifSet(QStringLiteral("ImageDescription"), QString(60000, u'x')));
    box.SaveToFile(target);
    box.LoadFromFile(target);
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("ImageDescription")).size(), 60000);
}
