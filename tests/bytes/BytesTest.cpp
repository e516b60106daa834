// SPDX-License-Identifier: GPL-3.0-or-later
#include "bytes/ByteReader.h"
#include "bytes/ByteWriter.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace tarsel;

namespace {

template <class Number>
std::string bytesOf(Number number, ByteOrder order) {
    std::string bytes;
    appendNumber(bytes, number, order);
    return bytes;
}

template <class Number>
void expectBytes(Number number, const std::string& bigEndian) {
    EXPECT_EQ(bytesOf(number, ByteOrder::Big), bigEndian);
    EXPECT_EQ(bytesOf(number, ByteOrder::Little), std::string(bigEndian.rbegin(), bigEndian.rend()));
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big})
        EXPECT_EQ(ByteReader(bytesOf(number, order), order).number<Number>(0), number);
}

} // namespace

TEST(Bytes, NumbersOfEveryTypeAreStoredInBothOrders) {
    expectBytes(std::uint8_t(0xFE), "\xFE");
    expectBytes(std::uint16_t(0xFEDC), "\xFE\xDC");
    expectBytes(std::int16_t(-2), "\xFF\xFE");
    expectBytes(std::uint32_t(0xFEDCBA98), "\xFE\xDC\xBA\x98");
    expectBytes(std::int32_t(-3), "\xFF\xFF\xFF\xFD");
    expectBytes(std::uint64_t(0xFEDCBA9876543210), "\xFE\xDC\xBA\x98\x76\x54\x32\x10");
    expectBytes(0.5F, std::string("\x3F\0\0\0", 4));
    expectBytes(-2.0, std::string("\xC0\0\0\0\0\0\0\0", 8));
}

TEST(Bytes, NothingIsReadOrWrittenAcrossAnEnd) {
    constexpr std::int64_t far = std::numeric_limits<std::int64_t>::max();
    std::string bytes(4, 'x');
    const ByteReader reader(bytes, ByteOrder::Big);
    const ByteWriter writer(std::as_writable_bytes(std::span(bytes)), ByteOrder::Big);
    for (const std::int64_t at : {std::int64_t(-1), std::int64_t(3), std::int64_t(5), far}) {
        EXPECT_FALSE(reader.word(at)) << at;
        EXPECT_FALSE(writer.put(at, std::uint16_t(0))) << at;
        EXPECT_FALSE(reader.slice(at, 2)) << at;
    }
    EXPECT_FALSE(reader.slice(1, far));
    EXPECT_FALSE(reader.slice(1, -1));
    EXPECT_EQ(reader.slice(4, 0)->size(), 0u);
    EXPECT_EQ(bytes, "xxxx");
    EXPECT_TRUE(writer.put(2, std::uint16_t(0x4142)));
    EXPECT_EQ(bytes, "xxAB");
}
