// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/ResourceBlocks.h"
#include "tests/support/TiffStructure.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <random>

using namespace tarsel;
using namespace tarsel::test;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// The fuzzer's function stops the program when a block does harm or loses a value that read before.
void tryBytes(const QByteArray& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()), size_t(bytes.size()));
}

} // namespace

TEST(HostileBlocks, CutOrWithFlippedBitsTheyAreReadAndChangedWithoutHarm) {
    const QByteArray utf8Headline("\x1C\x01\x5A\0\3\x1B%G\x1C\x02\x69\0\5flood", 18);
    const QByteArray resources = ResourceBlocks::block(0x03ED, "resolution") +
                                 ResourceBlocks::block(ResourceBlocks::iptcNumber, utf8Headline) +
                                 ResourceBlocks::block(0x0425, "digest");
    std::mt19937 random(20040307);
    for (const QByteArray& block : {'\1' + cameraBlock(), '\0' + resources}) {
        for (qsizetype size = 1; size <= block.size(); ++size)
            tryBytes(block.left(size));
        for (int round = 0; round < 10000; ++round) {
            QByteArray bytes = block;
            for (int flips = 0; flips < 1 + round % 6; ++flips) {
                const auto at = 1 + qsizetype(random() % size_t(bytes.size() - 1));
                bytes[at] = char(bytes[at] ^ (1 << random() % 8));
            }
            tryBytes(bytes);
        }
    }
}
