// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "embedded/IptcFields.h"
#include "embedded/ResourceBlocks.h"
#include "metadata/modMetadata.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestDesktop.h"

#include <QTemporaryDir>
#include <exiv2/exiv2.hpp>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class SideFile : public testing::Test {
protected:
    TestDesktop desktop;
    QTemporaryDir folder;

    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    QString written(const QByteArray& bytes) const {
        writeFileSafely(path("side"), bytes);
        return path("side");
    }
};

/// One value for every member, with letters beyond any code page.
MetadataStore fullStore() {
    MetadataStore store;
    int number = 0;
    for (const IptcField& field : iptcFields()) {
        const std::string member = field.member.toStdString();
        ++number;
        switch (field.kind) {
        case IptcKind::Text:
            setIptcText(store, member, QStringLiteral("%1 谢谢").arg(number));
            break;
        case IptcKind::List:
            setIptcList(store, member, {QStringLiteral("a%1").arg(number), QStringLiteral("b, ü")});
            break;
        case IptcKind::Date:
        case IptcKind::Time:
            setIptcDate(store, member, QDateTime(QDate(2004, 1, 1), QTime(1, 2, 3)).addDays(number));
            break;
        case IptcKind::Urgency:
            setIptcUrgency(store, 3);
            break;
        }
    }
    return store;
}

} // namespace

TEST_F(SideFile, EveryIptcMemberComesBackFromAnFfoFile) {
    const MetadataStore saved = fullStore();
    saved.IptcSaveToFile(path("all.ffo"));
    MetadataStore loaded;
    loaded.IptcLoadFromFile(path("all.ffo"));
    const auto foreign = Exiv2::ImageFactory::open(path("all.ffo").toStdString());
    foreign->readMetadata();
    std::map<int, QStringList> foreignTexts;
    for (const Exiv2::Iptcdatum& datum : foreign->iptcData())
        foreignTexts[datum.record() == 2 ? datum.tag() : 0] << QString::fromStdString(datum.toString());
    for (const IptcField& field : iptcFields()) {
        EXPECT_FALSE(saved.iptcList(field.dataset).isEmpty()) << qPrintable(field.member);
        EXPECT_EQ(loaded.iptcList(field.dataset), saved.iptcList(field.dataset)) << qPrintable(field.member);
        const bool isText = field.kind != IptcKind::Date && field.kind != IptcKind::Time;
        EXPECT_EQ(foreignTexts[field.dataset].size(), saved.iptcList(field.dataset).size());
        if (isText && (field.dataset < 200 || field.dataset > 202)) { // which it takes for numbers
            EXPECT_EQ(foreignTexts[field.dataset], saved.iptcList(field.dataset)) << qPrintable(field.member);
        }
    }
}

TEST_F(SideFile, AnFfoFileReplacesAllIptcDataAndNothingElse) {
    MetadataStore source;
    setIptcText(source, "IptcHeadline", QStringLiteral("new"));
    source.IptcSaveToFile(path("one.ffo"));
    EmbeddedMetadata blocks = fullStore().blocks();
    const QByteArray resolution("8BIM\x03\xED\0\0\0\0\0\x02ok", 14);
    blocks.resources = resolution + blocks.resources;
    MetadataStore target(blocks);
    target.IptcLoadFromFile(path("one.ffo"));
    EXPECT_EQ(iptcText(target, "IptcHeadline"), QStringLiteral("new"));
    EXPECT_TRUE(iptcText(target, "IptcCaption").isEmpty());
    EXPECT_TRUE(iptcList(target, "IptcKeyword").isEmpty());
    EXPECT_TRUE(target.blocks().resources.startsWith(resolution));
    EXPECT_TRUE(modMetadata::HasIptcFields(path("one.ffo")));
    MetadataStore().IptcSaveToFile(path("none.ffo"));
    EXPECT_FALSE(modMetadata::HasIptcFields(path("none.ffo")));
    for (const QByteArray& older :
         {ResourceBlocks(target.blocks().resources).data(ResourceBlocks::iptcNumber),
          target.blocks().resources}) {
        MetadataStore again;
        again.IptcLoadFromFile(written(older));
        EXPECT_EQ(iptcText(again, "IptcHeadline"), QStringLiteral("new"));
    }
    target.IptcLoadFromFile(path("none.ffo"));
    EXPECT_EQ(target.blocks().resources, resolution) << "a file without data empties the picture";
}

TEST_F(SideFile, AnFfoFileCutAnywhereIsRefusedAndLeavesThePicture) {
    fullStore().IptcSaveToFile(path("all.ffo"));
    const QByteArray all = readWholeFile(path("all.ffo"));
    MetadataStore target;
    setIptcText(target, "IptcHeadline", QStringLiteral("kept"));
    const QByteArray before = target.blocks().resources;
    for (qsizetype size = 0; size < all.size() - 1; ++size) {
        const QString cut = written(all.left(size));
        EXPECT_EQ(errorNumberOf([&] { target.IptcLoadFromFile(cut); }), ErrorNumber::UnreadableFile) << size;
        EXPECT_EQ(target.blocks().resources, before);
    }
    EXPECT_EQ(errorNumberOf([&] { target.IptcLoadFromFile(path("missing.ffo")); }),
              ErrorNumber::FileNotFound);
}

TEST_F(SideFile, AppliedAttributesBrandThePictureAndDatesAreTurned) {
    ImageBox box;
    for (const QString& setsNothing : {written("\"NoSuchName\",\"x\"\r\n"), path("missing.xiff")})
        modMetadata::ApplyXiffFile(setsNothing, box);
    EXPECT_EQ(box.ExifCount(), 0);
    modMetadata::ApplyXiffFile(written("\"Make\",\"Acme, Inc.\"\r\n"
                                       "  DateTimeOriginal ,\"12/11/2004 3:05:09 PM\"\r\n"
                                       "DateTime,\"31/1/2004\"\r\n"
                                       "\"Copyright\",\"Ann\nBob\"\r\n"
                                       "DateTimeDigitized,\"2004.01.31 15.05.09\"\r\n"
                                       "\"FNumber\",\"28/10\"\r\n"
                                       "\"NoSuchName\",\"x\"\r\n"),
                               box, {QStringLiteral("d/M/yyyy"), QStringLiteral("HH:mm:ss")});
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("Make")), QStringLiteral("Acme, Inc."));
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("DateTimeOriginal")), QStringLiteral("2004:12:11 15:05:09"));
    EXPECT_TRUE(box.metadata().blocks().exif.contains(QByteArray("Ann\0Bob\0", 8)));
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("Copyright")), QStringLiteral("Ann\nBob"));
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("DateTime")), QStringLiteral("2004:01:31 00:00:00"));
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("DateTimeDigitized")),
              QStringLiteral("2004.01.31 15.05.09"));
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("FNumber")), QStringLiteral("28/10"));
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("Software")), modMetadata::ProductTitle);
}

TEST_F(SideFile, AnInvalidDateAndACutRecordAreErrors) {
    ImageBox box;
    const auto apply = [&](const QByteArray& bytes) {
        return errorNumberOf([&] { modMetadata::ApplyXiffFile(written(bytes), box); });
    };
    EXPECT_EQ(apply("\"Make\",\"Acme\"\r\n\"DateTime\",\"yesterday\"\r\n"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(apply("\"Artist\"\r\n"), ErrorNumber::InputPastEnd);
    EXPECT_EQ(box.ExifValueByName(QStringLiteral("Make")), QStringLiteral("Acme"));
}
