// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureFile.h"
#include "tests/support/CodecTestFiles.h"

#include <gtest/gtest.h>

namespace tarsel {
namespace {

constexpr int App1 = 0xE1;
constexpr int Comment = 0xFE;

QByteArray jpegWith(const std::vector<JpegSegment>& segments) {
    QByteArray file = test::encoded("jpg", test::photograph(9, 7));
    QByteArray inserted;
    for (const auto& [marker, payload] : segments) {
        const auto size = payload.size() + 2;
        inserted += QByteArray("\xFF") + char(marker) + char(size >> 8) + char(size) + payload;
    }
    return file.insert(2, inserted);
}

EmbeddedMetadata metadataOf(const std::vector<JpegSegment>& segments) {
    return PictureFile(jpegWith(segments), QStringLiteral("made.jpg")).decode(1).metadata;
}

JpegSegment exif(const QByteArray& part) {
    return {App1, QByteArray("Exif\0\0", 6) + part};
}

TEST(JpegSegments, anXmpPacketIsFoundUnderEveryHeaderThatWritersUse) {
    const QByteArray packet = "<?xpacket begin=''?><x:xmpmeta/>";
    for (const QByteArray& header :
         {QByteArray("http://ns.adobe.com/xap/1.0/\0", 29), QByteArray("http://ns.adobe.com/xap/1.0/"),
          QByteArray("http://ns.adobe.com/xap/1.0\0", 28), QByteArray("http://ns.adobe.com/xap/1.0/ "),
          QByteArray()})
        EXPECT_EQ(metadataOf({{App1, header + packet}}).xmp, packet) << header.constData();
    const QByteArray utf16("\0<\0?\0x", 6);
    EXPECT_EQ(metadataOf({{App1, QByteArray("http://ns.adobe.com/xap/1.0/\0", 29) + utf16}}).xmp, utf16);
    EXPECT_EQ(metadataOf({{App1, "FLIR thermal data"}}).xmp, "");
}

TEST(JpegSegments, anExifBlockContinuesInSegmentsWithoutATiffHeader) {
    const QByteArray first("MM\0*first", 9);
    EXPECT_EQ(metadataOf({exif(first), exif("second"), exif("third")}).exif, first + "secondthird");
    EXPECT_EQ(metadataOf({exif(first), exif("II*"), exif("of the other")}).exif, first);
}

TEST(JpegSegments, commentsAreCarriedUnlessTheyDescribeTheOldCoding) {
    EXPECT_EQ(metadataOf({{Comment, "one"},
                          {Comment, "CREATOR: gd-jpeg v1.0 (using IJG JPEG v62), quality = 90"},
                          {Comment, ""},
                          {Comment, "two"}})
                  .comments,
              QByteArrayList({"one", "two"}));
}

TEST(JpegSegments, makersSegmentsAreCarriedWhenTheyDescribeTheShotOnly) {
    const JpegSegment kept[] = {{0xE0, QByteArray("II\x1A\0\0\0HEAPJPGM", 14)},
                                {0xE3, QByteArray("Meta\0\0II*", 9)},
                                {0xE5, QByteArray("RMETA\0", 6)},
                                {0xEC, QByteArray("Agfa Gevaert   \0[picture info]", 30)}};
    const JpegSegment left[] = {
        {0xE0, QByteArray("JFXX\0\x10", 6)}, {0xE2, QByteArray("MPF\0II*", 7)}, {0xEF, "Q 70"}};
    const QByteArray web("Ducky\0\1\0\4\0\0\0\x3C\0\3\0\6\0\0\0\1\0A\0\0", 25);
    std::vector expected(std::begin(kept), std::end(kept));
    expected.push_back({0xEC, QByteArray(web).remove(5, 8)}); // the quality
    std::vector all(std::begin(left), std::end(left));
    all.insert(all.end(), std::begin(kept), std::end(kept));
    all.insert(all.end(), {{0xEC, web}, {0xEC, web.left(13)}});
    EXPECT_EQ(metadataOf(all).cameraSegments, expected);
}

} // namespace
} // namespace tarsel
