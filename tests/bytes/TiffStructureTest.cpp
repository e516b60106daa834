// SPDX-License-Identifier: GPL-3.0-or-later
#include "bytes/TiffStructure.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

using namespace tarsel;

namespace {

/// Writes a structure of any of the four kinds.
struct Maker {
    ByteOrder order;
    bool isBig;
    std::string bytes = {};

    template <class Number>
    void number(Number value) {
        appendNumber(bytes, value, order);
    }
    void wide(std::uint64_t value) { isBig ? number(value) : number(std::uint32_t(value)); }
    void count(std::uint64_t value) { isBig ? number(value) : number(std::uint16_t(value)); }

    std::uint64_t headerSize() const { return isBig ? 16 : 8; }
    /// Of one with this many entries.
    std::uint64_t directorySize(std::uint64_t entries) const {
        return isBig ? 8 + entries * 20 + 8 : 2 + entries * 12 + 4;
    }

    void header(std::uint64_t first) {
        bytes += order == ByteOrder::Big ? "MM" : "II";
        number(std::uint16_t(isBig ? 43 : 42));
        if (isBig)
            number(std::uint32_t(order == ByteOrder::Big ? 0x80000 : 8));
        wide(first);
    }
    void entry(std::uint16_t tag, std::uint16_t type, std::uint64_t elements, std::uint64_t value) {
        number(tag);
        number(type);
        wide(elements);
        wide(value);
    }
    void directory(std::uint64_t next, std::uint16_t tag) {
        count(1);
        entry(tag, 4, 1, 7);
        wide(next);
    }
};

ByteSource sourceOf(const std::string& bytes) {
    const auto read = [&bytes](std::int64_t at, void* target, std::int64_t count) {
        const std::string part =
            at < std::int64_t(bytes.size()) ? bytes.substr(std::size_t(at), std::size_t(count)) : "";
        std::memcpy(target, part.data(), part.size());
        return std::int64_t(part.size());
    };
    return {read, std::int64_t(bytes.size())};
}

bool always() {
    return true;
}

class EveryKind : public testing::TestWithParam<std::pair<ByteOrder, bool>> {
protected:
    Maker made{GetParam().first, GetParam().second};
};

} // namespace

TEST_P(EveryKind, TheChainIsWalkedUntilItEndsLeavesTheFileOrReturns) {
    const std::uint64_t first = made.headerSize(), second = first + made.directorySize(1);
    const struct {
        std::uint64_t afterSecond;
        std::size_t pages;
    } cases[] = {{0, 2}, {first, 2}, {second, 2}, {100'000, 2}, {~0ULL, 2}};
    for (const auto& c : cases) {
        Maker file = made;
        file.header(first);
        file.directory(second, 1);
        file.directory(c.afterSecond, 2);
        auto walker = TiffWalker::open(sourceOf(file.bytes));
        ASSERT_TRUE(walker);
        EXPECT_EQ(walker->order(), made.order);
        EXPECT_EQ(walker->chain(9, always).size(), c.pages) << c.afterSecond;
        const std::string cut = file.bytes.substr(0, file.bytes.size() - 1);
        EXPECT_EQ(TiffWalker::open(sourceOf(cut))->chain(9, always).size(), 1u)
            << "no offset after the second";
        EXPECT_EQ(TiffWalker::open(sourceOf(file.bytes))->chain(1, always).size(), 1u);
        EXPECT_EQ(TiffWalker::open(sourceOf(file.bytes))->chain(9, [] { return false; }).size(), 0u);
    }
}

TEST_P(EveryKind, ValuesAreFoundInsideTheFileOnly) {
    const std::uint64_t inlineSize = made.isBig ? 8 : 4;
    const std::uint64_t first = made.headerSize(), after = first + made.directorySize(7);
    made.header(first);
    made.count(7);
    made.entry(1, 1, inlineSize, 0);
    made.entry(2, 1, inlineSize + 1, after);
    made.entry(3, 1, inlineSize + 2, after);                                // one byte more than there is
    made.entry(4, 12, 0x20000001, after);                                   // size overflows 32 bits
    made.entry(5, 12, made.isBig ? 0x2000000000000001 : 0xFFFFFFFF, after); // and 64
    made.entry(6, 99, 1, 0);
    made.entry(7, 16, 1, 0);
    made.wide(0);
    made.bytes += std::string(inlineSize + 1, 'v');
    auto walker = TiffWalker::open(sourceOf(made.bytes));
    const auto place = walker->visit(first);
    ASSERT_TRUE(place);
    EXPECT_FALSE(walker->visit(first)) << "once is enough";
    const auto entries = walker->entries(*place, 99);
    ASSERT_EQ(entries.size(), 7u);
    EXPECT_EQ(walker->entries(*place, 2).size(), 2u);
    for (const TiffEntry& entry : entries)
        EXPECT_EQ(entry.hasValue, entry.tag <= 2 || (entry.tag == 7 && made.isBig)) << entry.tag;
    EXPECT_EQ(entries[0].valuePosition, entries[0].position + (made.isBig ? 12 : 8));
    EXPECT_EQ(entries[1].valuePosition, std::int64_t(after));
    EXPECT_EQ(entries[1].valueSize, std::int64_t(inlineSize + 1));
}

INSTANTIATE_TEST_SUITE_P(TiffStructures, EveryKind,
                         testing::Values(std::pair(ByteOrder::Little, false),
                                         std::pair(ByteOrder::Big, false), std::pair(ByteOrder::Little, true),
                                         std::pair(ByteOrder::Big, true)));

TEST(TiffStructure, OtherBytesAreRefused) {
    for (const std::string& bytes : {std::string(), std::string("II*"), std::string("II*\0\x08\0\0", 7),
                                     std::string("IM*\0\x08\0\0\0", 8), std::string("II,\0\x08\0\0\0", 8)})
        EXPECT_FALSE(TiffWalker::open(sourceOf(bytes))) << bytes.size();
}
