// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ExifBlock.h"
#include "tests/support/TiffStructure.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr quint16 make = 0x010F;
constexpr quint16 software = 0x0131;
constexpr quint16 artist = 0x013B;
constexpr quint16 photoPointer = 0x8769;
constexpr quint16 asciiType = 2;
constexpr quint16 longType = 4;

void setText(ExifBlock& block, quint16 tag, const QByteArray& text) {
    block.set(ExifGroup::Image, tag, ExifType::Ascii, quint32(text.size() + 1), text + '\0');
}

QByteArray textOf(const ExifBlock& block, quint16 tag) {
    const ExifEntry* entry = block.find(ExifGroup::Image, tag);
    return entry ? block.value(*entry).chopped(1).toByteArray() : QByteArray("absent");
}

} // namespace

TEST(ExifBlock, ANewAttributeLeavesTheMakerNoteWhereItIs) {
    ExifBlock block = *ExifBlock::read(cameraBlock());
    const qsizetype before = block.find(ExifGroup::Photo, 0x927C)->valuePosition;
    setText(block, software, "Editor 1.0");
    const ExifEntry* note = block.find(ExifGroup::Photo, 0x927C);
    ASSERT_TRUE(note);
    EXPECT_EQ(note->valuePosition, before);
    EXPECT_EQ(block.value(*note), QByteArray(20, 'N'));
    EXPECT_EQ(textOf(block, software), "Editor 1.0");
}

TEST(ExifBlock, DirectoriesStayInTheOrderOfTheirTags) {
    ExifBlock block = ExifBlock::fresh();
    for (const quint16 tag : {quint16(0x8298), make, artist, quint16(0x010E), software})
        setText(block, tag, "text");
    quint16 last = 0;
    for (const ExifEntry& entry : block.entries()) {
        EXPECT_GT(entry.tag, last);
        last = entry.tag;
    }
    EXPECT_EQ(block.entries().size(), 5u);
}

TEST(ExifBlock, AShorterALongerAndARemovedValueLeaveNothingOfTheOldText) {
    ExifBlock block = *ExifBlock::read(cameraBlock());
    setText(block, artist, "A secret name that is long");
    const qsizetype size = block.bytes().size();
    setText(block, artist, "Nobody");
    EXPECT_EQ(block.bytes().size(), size) << "it takes the old place";
    EXPECT_FALSE(block.bytes().contains("secret"));
    setText(block, artist, "Somebody whose name is a good deal longer");
    EXPECT_FALSE(block.bytes().contains("Nobody"));
    block.remove(ExifGroup::Image, artist);
    EXPECT_FALSE(block.bytes().contains("Somebody"));
    EXPECT_EQ(textOf(block, artist), "absent");
    EXPECT_EQ(textOf(block, make), "Acme!");
}

TEST(ExifBlock, BrandingAgainAndAgainDoesNotGrowTheBlock) {
    ExifBlock block = *ExifBlock::read(cameraBlock());
    setText(block, software, "Editor 1.0");
    const QByteArray once = block.bytes();
    for (int i = 0; i < 50; ++i)
        setText(block, software, "Editor 1.0");
    EXPECT_EQ(block.bytes(), once);
    for (int i = 0; i < 50; ++i) {
        block.remove(ExifGroup::Image, software);
        setText(block, software, "Editor 1.0");
    }
    EXPECT_LE(block.bytes().size(), once.size() + 100);
}

TEST(ExifBlock, AValueThatTwoEntriesShareIsNotOverwritten) {
    const quint32 rest = tiffRest(2);
    ExifBlock block = *ExifBlock::read(
        tiffBlock({{make, asciiType, 6, rest}, {artist, asciiType, 6, rest}}, 0, QByteArray("Acme!\0", 6)));
    setText(block, artist, "Bcde!");
    EXPECT_EQ(textOf(block, make), "Acme!");
    EXPECT_EQ(textOf(block, artist), "Bcde!");
}

TEST(ExifBlock, AMissingDirectoryIsMadeWithItsParent) {
    ExifBlock block = ExifBlock::fresh();
    block.set(ExifGroup::Interoperability, 1, ExifType::Ascii, 4, QByteArray("R98\0", 4));
    const ExifBlock again = *ExifBlock::read(block.bytes());
    ASSERT_TRUE(again.find(ExifGroup::Interoperability, 1));
    EXPECT_TRUE(again.find(ExifGroup::Image, photoPointer));
    block.remove(ExifGroup::Interoperability, 1);
    EXPECT_TRUE(block.entries().empty()) << "directories that became empty hang on";
}

TEST(ExifBlock, TheThumbnailGoesWhole) {
    ExifBlock block = *ExifBlock::read(cameraBlock());
    block.dropThumbnail();
    EXPECT_FALSE(block.bytes().contains('T'));
    EXPECT_EQ(block.find(ExifGroup::Thumbnail, 0x0201), nullptr);
    EXPECT_EQ(block.bytes().size(), cameraBlock().size() - 130);
    EXPECT_EQ(textOf(block, make), "Acme!");
    const ExifBlock before = *ExifBlock::read(cameraBlock());
    const auto note = quint32(before.find(ExifGroup::Photo, 0x927C)->valuePosition);
    ExifBlock inNote = before; // of which the thumbnail is a part
    inNote.set(ExifGroup::Thumbnail, 0x0201, ExifType::Long, 1,
               numberBytes<QByteArray>(note, ByteOrder::Little));
    inNote.set(ExifGroup::Thumbnail, 0x0202, ExifType::Long, 1, QByteArray("\x0A\0\0\0", 4));
    inNote.dropThumbnail();
    EXPECT_TRUE(inNote.bytes().contains(QByteArray(20, 'N')));
}

TEST(ExifBlock, RoomOfAThumbnailInTheMiddleIsUsedAgain) {
    ExifBlock block = *ExifBlock::read(cameraBlock());
    setText(block, software, "Editor 1.0"); // what grew is after the thumbnail now
    const qsizetype size = block.bytes().size();
    block.dropThumbnail();
    setText(block, artist, "Somebody with a name");
    EXPECT_LE(block.bytes().size(), size + 50);
    EXPECT_EQ(textOf(block, artist), "Somebody with a name");
    EXPECT_EQ(textOf(block, software), "Editor 1.0");
}

/// tests/bytes has the other faults of a structure.
TEST(ExifBlock, DamagedStructuresAreReadAsFarAsTheyMakeSense) {
    for (const QByteArray& refused :
         {QByteArray("II"), QByteArray("II\x2B\0\x08\0\0\0\0\0\0\0\0\0\0\0\0\0", 18),
          QByteArray("II*\0\xFF\0\0\0\0\0\0\0\0\0", 14)})
        EXPECT_FALSE(ExifBlock::read(refused)) << refused.toHex().constData();
    const ExifBlock block = *ExifBlock::read(
        tiffBlock({{make, asciiType, 0xFFFFFFFF, 8}, {photoPointer, longType, 1, 8}}, 8)); // leads to itself
    ASSERT_EQ(block.entries().size(), 2u);
    EXPECT_FALSE(block.entries()[0].hasValue);
}
