// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/Fuzzers.h"

#include <cstdint>

/// What libFuzzer calls; the build says which fuzzer it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarsel::fuzz::TARSEL_FUZZER(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    return 0;
}
