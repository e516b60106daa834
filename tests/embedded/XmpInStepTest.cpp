// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifBlock.h"
#include "embedded/IptcFields.h"
#include "embedded/MetadataStore.h"
#include "embedded/PrivateMetadata.h"
#include "embedded/ResourceBlocks.h"
#include "tests/support/TiffStructure.h"

#include <QCryptographicHash>
#include <algorithm>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QByteArray packet(const QByteArray& attributes, const QByteArray& elements, qsizetype padding) {
    return "<?xpacket begin='\xEF\xBB\xBF' id='W5M0MpCehiHzreSzNTczkc9d'?>\n<x:xmpmeta "
           "xmlns:x='adobe:ns:meta/'>"
           "<r:RDF xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>\n <r:Description r:about=''"
           " xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmlns:dc='http://purl.org/dc/elements/1.1/'"
           " xmlns:ps='http://ns.adobe.com/photoshop/1.0/' xmlns:exif='http://ns.adobe.com/exif/1.0/'\n"
           "   xmlns:mm='http://ns.adobe.com/xap/1.0/mm/'" +
           attributes +
           ">\n  <mm:DerivedFrom r:parseType='Resource'><ps:City>inside</ps:City></mm:DerivedFrom>" +
           elements + "\n </r:Description></r:RDF></x:xmpmeta>" + QByteArray(padding, ' ') +
           "<?xpacket end='w'?>";
}

MetadataStore storeWith(const QByteArray& xmp) {
    EmbeddedMetadata blocks;
    blocks.xmp = xmp;
    return MetadataStore(blocks);
}

/// "exif:Artist=Ann" or "105=Head"; items of lists with commas, nothing for a deletion.
void edit(MetadataStore& store, const QString& change) {
    const QString name = change.section(u'=', 0, 0), value = change.section(u'=', 1);
    if (!name.startsWith(QLatin1String("exif:")))
        store.setIptcList(name.toInt(), value.split(u',', Qt::SkipEmptyParts));
    else
        ASSERT_TRUE(value.isEmpty() ? store.ExifDelete(name.mid(5)) : store.ExifSet(name.mid(5), value));
}

void editAll(MetadataStore& store, const QByteArray& changes) {
    for (const QString& change : QString::fromUtf8(changes).split(u'|'))
        edit(store, change);
}

} // namespace

TEST(XmpInStep, AnEditChangesItsPropertyInWhateverFormAndNoOtherByte) {
    constexpr struct {
        const char* changes;
        const char* attributes;
        const char* elements;
        const char* newAttributes;
        const char* newElements;
    } cases[]{
        {"90=A<\"'&é", " ps:City = 'Old'", "", " ps:City = 'A&lt;&quot;&apos;&amp;é'", ""},
        {"90=x|90=", " ps:State='S' ps:City='Old'", "<ps:City>x</ps:City>", " ps:State='S'", ""},
        {"105=x|105=", "", "\n  <ps:Headline>\n Old</ps:Headline>\n  <ps:Credit/>", "", "\n  <ps:Credit/>"},
        {"110=C", "", "<ps:Credit/>", "", "<ps:Credit>C</ps:Credit>"},
        {"25=a,b&", "", "<dc:subject><r:Bag>\n <r:li>x</r:li>\n <r:li>y</r:li>\n</r:Bag></dc:subject>", "",
         "<dc:subject><r:Bag>\n <r:li>a</r:li>\n <r:li>b&amp;</r:li>\n</r:Bag></dc:subject>"},
        {"25=a", "", "<dc:subject><r:Bag/></dc:subject>", "",
         "<dc:subject><r:Bag><r:li>a</r:li></r:Bag></dc:subject>"},
        {"exif:ImageDescription=N", "",
         "<dc:description><r:Alt><r:li xml:lang='fr'>F</r:li><r:li xml:lang='x-default'>E</r:li></r:Alt>"
         "</dc:description>",
         "",
         "<dc:description><r:Alt><r:li xml:lang='fr'>F</r:li><r:li xml:lang='x-default'>N</r:li></r:Alt>"
         "</dc:description>"},
        {"116=C", "", "<dc:rights><r:Alt></r:Alt></dc:rights>", "",
         "<dc:rights><r:Alt><r:li xml:lang=\"x-default\">C</r:li></r:Alt></dc:rights>"},
        {"exif:Artist=Ann; Bob", "", "<dc:creator><r:Seq><r:li>Old</r:li></r:Seq></dc:creator>", "",
         "<dc:creator><r:Seq><r:li>Ann</r:li><r:li>Bob</r:li></r:Seq></dc:creator>"},
        // What one block loses stays while the other has it, in whatever words.
        {"80=Bob|exif:Artist=Ann|exif:Artist=", " dc:creator='?'", "", " dc:creator='Ann'", ""},
        {"exif:Copyright=C|116=N|116=", " dc:rights='?'", "", " dc:rights='N'", ""},
        {"exif:Artist=Ann|exif:Artist=", " dc:creator='old'", "", "", ""},
        {"exif:DateTimeOriginal=2004:01:31 15:05:09|exif:DateTime=2004:01:31 15:05:09",
         " exif:DateTimeOriginal='1999-01-01T01:02:03.25+02:00' xmp:ModifyDate='1999'", "",
         " exif:DateTimeOriginal='2004-01-31T15:05:09.25+02:00' xmp:ModifyDate='2004-01-31T15:05:09'", ""},
        {"55=20040131", " ps:DateCreated='1999-01-01T01:02:03Z'", "",
         " ps:DateCreated='2004-01-31T01:02:03Z'", ""},
        {"55=20040131|60=150509+0100", " ps:DateCreated='1999-01-01'", "",
         " ps:DateCreated='2004-01-31T15:05:09+01:00'", ""},
        {"exif:Software=S|exif:PixelXDimension=7|exif:FNumber=28/10|exif:FNumber=",
         " xmp:CreatorTool='T' exif:PixelXDimension='9'", "<exif:FNumber>28/10</exif:FNumber>",
         " xmp:CreatorTool='S' exif:PixelXDimension='7'", ""},
        {"105=H", " ps:City='C'", "", " ps:City='C'", ""}, // not stated, not added
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.changes);
        for (const qsizetype padding : {300, 0}) {
            const QByteArray before = packet(each.attributes, each.elements, padding);
            MetadataStore store = storeWith(before);
            editAll(store, each.changes);
            const QByteArray unpadded = packet(each.newAttributes, each.newElements, 0);
            const qsizetype room = std::max<qsizetype>(before.size() - unpadded.size(), 0);
            EXPECT_EQ(store.blocks().xmp.toStdString(),
                      packet(each.newAttributes, each.newElements, room).toStdString());
            EXPECT_FALSE(store.ContradictsXmp());
        }
    }
}

TEST(XmpInStep, APacketThatCannotFollowStaysAsItIsAndIsReported) {
    const QByteArray whole = packet(" ps:City='C'", "", 9);
    QByteArray wide("\xFE\xFF", 2);
    for (const char letter : whole)
        wide += QByteArray(1, '\0') + letter;
    for (const QByteArray& xmp :
         {whole.chopped(40), "<!DOCTYPE a [<!ENTITY b 'c'>]>" + whole,
          QByteArray(whole).replace("'C'", "'\xE9'"), wide,
          packet("", "<ps:City r:parseType='Resource'><r:value>C</r:value></ps:City>", 9)}) {
        MetadataStore store = storeWith(xmp);
        editAll(store, "90=N");
        EXPECT_EQ(store.blocks().xmp, xmp);
        EXPECT_TRUE(store.ContradictsXmp());
        EXPECT_EQ(iptcText(store, "IptcCity"), QStringLiteral("N"));
    }
    MetadataStore full =
        storeWith(packet(" ps:City='C'", "<ps:State>" + QByteArray(64500, 's') + "</ps:State>", 0));
    editAll(full, "90=" + QByteArray(1000, 'N'));
    EXPECT_TRUE(full.ContradictsXmp() && full.blocks().xmp.contains("'C'")) << "no room in a segment";
    for (const char* name : {"City", "CityCode"}) {
        EmbeddedMetadata blocks;
        blocks.xmp = whole;
        blocks.extendedXmp = QByteArray("<ps:") + name + '>';
        MetadataStore store(blocks);
        editAll(store, "90=N");
        EXPECT_EQ(store.ContradictsXmp(), QByteArray(name) == "City") << "in an extension";
    }
}

TEST(XmpInStep, TheDigestFollowsIptcDataOnlyWhileThePacketAgrees) {
    const auto digest = [](const QByteArray& data) {
        return QCryptographicHash::hash(data, QCryptographicHash::Md5);
    };
    MetadataStore start = storeWith(packet(" ps:City='C'", "", 9));
    editAll(start, "90=C");
    const QByteArray iptc = ResourceBlocks(start.blocks().resources).data(ResourceBlocks::iptcNumber);
    const QByteArray older = digest("older"), right = digest(iptc);
    for (const auto& [stored, change, follows] : {std::tuple(right, "90=N", true),
                                                  {right, "90=N|105=H", false},
                                                  {older, "90=N", false},
                                                  {right, "90=", true}}) {
        SCOPED_TRACE(change);
        EmbeddedMetadata blocks = start.blocks();
        blocks.resources += ResourceBlocks::block(ResourceBlocks::digestNumber, stored);
        MetadataStore store(blocks);
        editAll(store, change);
        const ResourceBlocks after(store.blocks().resources);
        const QByteArray now = after.data(ResourceBlocks::iptcNumber);
        EXPECT_EQ(after.data(ResourceBlocks::digestNumber) == (now.isEmpty() ? now : digest(now)), follows);
    }
}

TEST(XmpInStep, PositionAndSerialNumbersGoFromStructuresCopiesAndExtensionsToo) {
    const QByteArray drone = " xmlns:drone='d' drone:GpsLatitude='1' ps:City='C'";
    EmbeddedMetadata blocks;
    blocks.xmp = packet(drone,
                        "<mm:At><r:Description exif:GPSLongitude='2' ps:City='D'><exif:GPSLatitude>"
                        "<r:li>3</r:li></exif:GPSLatitude></r:Description></mm:At>",
                        0);
    blocks.extendedXmp = blocks.xmp;
    const QByteArray head = QByteArray::fromHex("FFD8 FFE0 0006 4A464946"),
                     scan = QByteArray::fromHex("FFDA 0002 55"),
                     file = head + QByteArray::fromHex("FFE1 000A 455869660000 4750") + scan;
    blocks.resources = ResourceBlocks::block(0x0422, "GPS") + ResourceBlocks::block(0x040B, "url") +
                       ResourceBlocks::block(0x040C, QByteArray(28, ' ') + file);
    std::vector<RawEntry> entries(60'000); // of a crafted file
    const quint32 rest = tiffRest(entries.size());
    std::ranges::fill(entries, RawEntry{0xA431, 2, 6, rest});
    entries.front() = {0x8825, 4, 1, rest + 6};
    blocks.exif = tiffBlock(
        entries, rest + 24,
        "secret" + tiffDirectory({{2, 2, 6, rest}}) +
            tiffDirectory({{0x0201, 4, 1, rest + 54}, {0x0202, 4, 1, quint32(file.size())}}) + file);
    blocks.trailer = "position";
    blocks.cameraSegments = {{0xE6, "GoPro"}};
    removePrivateMetadata(blocks);
    EXPECT_EQ(blocks.xmp.simplified().replace("  ", " "),
              packet(" xmlns:drone='d' ps:City='C'",
                     "<mm:At><r:Description ps:City='D'></r:Description></mm:At>", 90)
                  .simplified());
    EXPECT_EQ(blocks.extendedXmp, QByteArray());
    EXPECT_EQ(blocks.resources, ResourceBlocks::block(0x040B, "url"));
    EXPECT_EQ(ExifBlock::read(blocks.exif)->thumbnail(), head + scan);
    EXPECT_EQ(ExifBlock::read(blocks.exif)->entries().size(), 2u);
    EXPECT_FALSE(blocks.exif.contains("secret") || blocks.exif.contains("GP"));
    EXPECT_TRUE(blocks.trailer.isEmpty() && blocks.cameraSegments.empty());
    blocks.xmp.truncate(blocks.xmp.indexOf("</mm:At>"));
    removePrivateMetadata(blocks);
    EXPECT_EQ(blocks.xmp, QByteArray()) << "what can't be read can't be cleaned";
}
