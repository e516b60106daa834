// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IimData.h"
#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "embedded/IptcFields.h"
#include "embedded/MetadataStore.h"
#include "embedded/ResourceBlocks.h"
#include "tests/support/Corpus.h"
#include "tests/support/Digest.h"
#include "tests/support/PictureBlocks.h"

#include <ctime>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr int headline = 105;
constexpr int caption = 120;
constexpr int keyword = 25;

QByteArray dataSet(int number, const QByteArray& data, int record = 2) {
    QByteArray bytes("\x1C", 1);
    bytes += char(record);
    bytes += char(number);
    bytes += char(data.size() >> 8);
    bytes += char(data.size());
    return bytes + data;
}

const QByteArray utf8Mark = dataSet(90, "\x1B%G", 1);

MetadataStore storeWith(const QByteArray& iim) {
    EmbeddedMetadata blocks;
    blocks.resources = ResourceBlocks::block(ResourceBlocks::iptcNumber, iim);
    return MetadataStore(blocks);
}

} // namespace

TEST(IimData, UnchangedDataSetsKeepTheirBytes) {
    const QByteArray extended = QByteArray("\x1C\x02\x78\x80\x04\0\0\0\x04", 9) + "long";
    const QByteArray foreign = dataSet(77, QByteArray("\0\x01\x02\xFF", 4), 3);
    IimData data(dataSet(0, QByteArray("\0\x02", 2)) + dataSet(headline, "old") + extended + foreign +
                 "tail");
    data.setText(headline, QStringLiteral("new"));
    EXPECT_EQ(data.bytes(),
              dataSet(0, QByteArray("\0\x02", 2)) + dataSet(headline, "new") + extended + foreign + "tail");
    EXPECT_EQ(data.text(caption), QStringLiteral("long"));
}

TEST(IimData, TextsAreReadInTheirCharacterSet) {
    const struct {
        QByteArray bytes;
        QString text;
    } cases[] = {
        {dataSet(headline, "plain"), QStringLiteral("plain")},
        {dataSet(headline, "caf\xE9"), QStringLiteral("café")},
        {dataSet(headline, "caf\xC3\xA9"), QStringLiteral("café")},
        {utf8Mark + dataSet(headline, "\xD7\xAA\xD7\x95"), QStringLiteral("תו")},
        {utf8Mark + dataSet(headline, "caf\xE9"), QStringLiteral("café")},
        {dataSet(headline, QByteArray("filled\0\0", 8)), QStringLiteral("filled")},
        {dataSet(headline, ""), QString()},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IimData(c.bytes).text(headline), c.text) << c.bytes.toHex().constData();
}

TEST(IimData, ANewTextBeyondAsciiIsMarkedAsUtf8) {
    IimData data;
    data.setText(headline, QStringLiteral("plain"));
    EXPECT_FALSE(data.bytes().contains("\x1B%G"));
    data.setText(caption, QStringLiteral("שלום"));
    EXPECT_TRUE(data.bytes().startsWith(utf8Mark));
    EXPECT_EQ(IimData(data.bytes()).text(caption), QStringLiteral("שלום"));
    EXPECT_EQ(IimData(data.bytes()).text(headline), QStringLiteral("plain"));
}

TEST(IimData, OldTextsReadTheSameAfterANewOneInAnyCharacterSet) {
    const QByteArray old =
        dataSet(caption, "caf\xE9") + dataSet(keyword, "gar\xE7on") + dataSet(keyword, "boy");
    for (const QString& added :
         {QStringLiteral("naïve"), QStringLiteral("šest €"), QStringLiteral("谢谢"), QStringLiteral("Ã©")}) {
        IimData data(old);
        data.setText(headline, added);
        const IimData again(data.bytes());
        EXPECT_EQ(again.text(headline), added);
        EXPECT_EQ(again.text(caption), QStringLiteral("café"));
        EXPECT_EQ(again.texts(keyword), QStringList({QStringLiteral("garçon"), QStringLiteral("boy")}));
    }
    IimData turned(old);
    const QStringList words{QStringLiteral("garçon"), QStringLiteral("谢谢")}; // the second needs UTF-8
    turned.setTexts(keyword, words);
    EXPECT_EQ(IimData(turned.bytes()).texts(keyword), words);
}

TEST(IimData, ATextTooLongForADataSetChangesNothing) {
    IimData data(dataSet(headline, "old"));
    const QByteArray before = data.bytes();
    data.setText(caption, QString(32767, u'x'));
    EXPECT_EQ(IimData(data.bytes()).text(caption).size(), 32767);
    data = IimData(before);
    EXPECT_THROW(data.setText(caption, QString(32768, u'x')), TrappedError);
    EXPECT_EQ(data.bytes(), before);
}

TEST(IimData, OneOfSeveralAuthorsIsReplacedAndTheOthersStay) {
    IimData data(dataSet(80, "Ann") + dataSet(80, "Bob"));
    data.setText(80, QStringLiteral("Cid"));
    EXPECT_EQ(data.texts(80), QStringList({QStringLiteral("Cid"), QStringLiteral("Bob")}));
    MetadataStore store = storeWith(data.bytes());
    setIptcText(store, "IptcByline", QStringLiteral("Ann, Dr.; Bob "));
    EXPECT_EQ(iptcRowText(store, iptcField("IptcByline"), {}), QStringLiteral("Ann, Dr.; Bob"));
    EXPECT_EQ(store.iptcList(80), QStringList({QStringLiteral("Ann, Dr."), QStringLiteral("Bob")}));
    data.setText(80, QString());
    EXPECT_TRUE(data.texts(80).isEmpty());
}

TEST(IimData, EmptyingTheLastFieldRemovesTheBlock) {
    MetadataStore store;
    setIptcText(store, "IptcHeadline", QStringLiteral("שלום"));
    EXPECT_TRUE(store.HasIptc());
    setIptcText(store, "IptcHeadline", QString());
    EXPECT_FALSE(store.HasIptc());
    EXPECT_TRUE(store.blocks().resources.isEmpty());
}

TEST(IimData, CutAtAnyLengthKeepsTheDataSetsInFrontOfTheCut) {
    const QByteArray first = dataSet(headline, "a headline");
    const QByteArray whole = first + dataSet(caption, "a caption") + dataSet(keyword, "word");
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        MetadataStore store = storeWith(whole.left(size));
        EXPECT_EQ(store.iptcText(headline), size >= first.size() ? QStringLiteral("a headline") : QString())
            << size;
        store.setIptcText(5, QStringLiteral("title"));
        const MetadataStore again(store.blocks());
        EXPECT_EQ(again.iptcText(5), QStringLiteral("title")) << size;
        EXPECT_EQ(again.iptcText(headline), size >= first.size() ? QStringLiteral("a headline") : QString())
            << size;
    }
}

TEST(ResourceBlocks, OtherBlocksKeepTheirBytesAndPlaces) {
    const QByteArray named = QByteArray("8BIM\x03\xEE\x03"
                                        "abc\0\0\0\x03xyz\0",
                                        18);
    const QByteArray other = QByteArray("AgHg\x0F\xA0\0\0\0\0\0\x02ok", 14);
    ResourceBlocks blocks(named + ResourceBlocks::block(0x0404, "old") + other + "tail");
    EXPECT_EQ(blocks.count(), 3);
    EXPECT_EQ(blocks.data(0x03EE), "xyz");
    blocks.replace(0x0404, "newer");
    EXPECT_EQ(blocks.bytes(), named + ResourceBlocks::block(0x0404, "newer") + other + "tail");
    blocks.replace(0x0404, {});
    EXPECT_EQ(blocks.bytes(), named + other + "tail");
}

TEST(ResourceBlocks, ABlockIsFoundThatFollowsOneWithoutFillingOrWithAClaimOfMore) {
    const std::pair<QByteArray, QByteArray> cases[] = {
        {ResourceBlocks::block(0x0400, "odd").chopped(1), "odd"},
        {ResourceBlocks::block(0x0400, "a long one").chopped(4), "a long"},
    };
    for (const auto& [last, data] : cases) {
        ResourceBlocks blocks(last);
        blocks.replace(0x0404, "data");
        EXPECT_EQ(ResourceBlocks(blocks.bytes()).data(0x0400), data);
        EXPECT_EQ(ResourceBlocks(blocks.bytes()).data(0x0404), "data");
    }
}

TEST(IptcFields, DatesAndTimesGoOutInTheStandardsFormAndComeBack) {
    MetadataStore store;
    setIptcDate(store, "IptcDateCreated", QDateTime(QDate(2024, 2, 29), QTime(15, 5, 9)));
    EXPECT_EQ(store.iptcText(55), QStringLiteral("20240229"));
    EXPECT_EQ(iptcDate(store, "IptcDateCreated"), QDate(2024, 2, 29).startOfDay());
    store.setIptcText(60, QStringLiteral("101112-0330"));
    setIptcDate(store, "IptcTimeCreated", QDateTime(QDate(2024, 2, 29), QTime(15, 5, 9)));
    EXPECT_EQ(store.iptcText(60), QStringLiteral("150509-0330"));
    EXPECT_EQ(iptcDate(store, "IptcTimeCreated").time(), QTime(15, 5, 9));
    store.setIptcText(60, QString());
    store.setIptcText(55, QStringLiteral("20240701"));
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "AAA-1BBB,M3.5.0,M10.5.0");
    ::tzset();
    setIptcDate(store, "IptcTimeCreated", QDateTime(emptyDate().date(), QTime(15, 5, 9)));
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    ::tzset();
    EXPECT_EQ(store.iptcText(60), QStringLiteral("150509+0200")) << "of the day of Date Created";
    setIptcDate(store, "IptcDateCreated", emptyDate());
    EXPECT_EQ(store.iptcText(55), QString());
}

TEST(IptcFields, WhatIsNoDateReadsAsTheEmptyDate) {
    MetadataStore store;
    for (const char* text : {"", "00000000", "20240000", "20240230", "soon", "2024"}) {
        store.setIptcText(55, QString::fromLatin1(text));
        EXPECT_EQ(iptcDate(store, "IptcDateCreated"), emptyDate()) << text;
    }
}

TEST(IptcFields, TheRowsStayInTheirOrderOverTheirDataSets) {
    QByteArray all;
    for (const IptcField& field : iptcFields())
        all += field.member.toLatin1() + ' ' + QByteArray::number(int(field.kind)) + ' ' +
               QByteArray::number(field.dataset) + (field.isListed ? " " : " -") + field.label.toLatin1() +
               '\n';
    EXPECT_EQ(digestOf(all), "1a15867a6d9f569d") << all.constData();
    EXPECT_THROW(iptcField("IptcNothing"), TrappedError);
}

TEST(IptcFields, OfTheCorpusAreThoseOfTheManifestAndKeepTheirDataSetsWhenOneChanges) {
    TARSEL_REQUIRE_CORPUS();
    int seen = 0;
    for (const CorpusPicture& picture : corpusPictures()) {
        const EmbeddedMetadata blocks = blocksOfPicture(picture.path);
        if (blocks.resources.isEmpty() || picture.fact("category") != QLatin1String("meta"))
            continue;
        SCOPED_TRACE(picture.path.toStdString());
        MetadataStore store(blocks);
        setIptcText(store, "IptcSpecialInstructions", QStringLiteral("אין")); // changes no other field
        store = MetadataStore(store.blocks());
        EXPECT_EQ(iptcText(store, "IptcHeadline"), picture.fact("headline"));
        EXPECT_EQ(iptcList(store, "IptcKeyword").join(u','), picture.fact("keywords"));
        EXPECT_EQ(iptcList(store, "IptcSupplementalCategory").join(u','),
                  picture.fact("supplemental_categories"));
        EXPECT_EQ(iptcUrgency(store), picture.number("urgency"));
        const QDateTime created = iptcDate(store, "IptcDateCreated");
        EXPECT_EQ(created == emptyDate() ? QString() : created.toString(QStringLiteral("yyyy:MM:dd")),
                  picture.fact("iptc_date_created"));
        ++seen;
    }
    EXPECT_GT(seen, 10);
}
