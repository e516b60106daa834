// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "imaging/clsImageHeaderInfo.h"
#include "tests/fuzz/Fuzzers.h"

#include <tuple>

using namespace tarsel;
using fuzz::require;

namespace {

using Facts = std::tuple<bool, int, int, int, int, bool>;

Facts factsOf(clsImageHeaderInfo& info, bool isWalked) {
    return {isWalked, info.Width(), info.Height(), info.BitsPerPixel(), info.dpi(), info.IsGray()};
}

} // namespace

void fuzz::readHeader(const QByteArray& bytes) {
    const QString path = inputFile("header", bytes);
    clsImageHeaderInfo first, second;
    const Facts facts = factsOf(first, first.ReadJPEG_TIFF_PNG_Header(path));
    require(first.Width() >= 0 && first.Height() >= 0, "a size is not negative");
    try {
        second.ReadGIF_BMP_Header(path);
        require(second.Width() >= 0 && second.Height() >= 0, "a size is not negative");
    } catch (const TrappedError& error) {
        require(error.number == ErrorNumber::Overflow, "only a side that is too long is an error");
    }
    require(factsOf(second, second.ReadJPEG_TIFF_PNG_Header(path)) == facts,
            "what was read before does not show in the result");
}
