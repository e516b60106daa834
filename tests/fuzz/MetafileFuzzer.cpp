// SPDX-License-Identifier: GPL-3.0-or-later
// The players of metafiles, in this process: the decoder's own has no coverage that a fuzzer could follow.

#include "codecs/MetafileHeader.h"
#include "decoder/MetafileDecoding.h"
#include "tests/fuzz/Fuzzers.h"

#include <algorithm>
#include <vector>

using namespace tarsel;
using fuzz::require;

void fuzz::drawMetafile(const QByteArray& bytes) {
    static const bool isPrepared = [] {
        decoder::prepareLibraries();
        return true;
    }();
    constexpr int width = 40, height = 20;
    std::vector<std::uint8_t> pixels(std::size_t(width) * height * 4);
    const std::span file(reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
    const DecoderRequest request{DecoderFormat::Metafile, 1, file.size(), width, height};
    const DecoderReply reply = decoder::decode(request, file, pixels.data());
    require(isPrepared && (reply.channels == 0 || reply.channels == 3 || reply.channels == 4),
            "a drawing has colours, or colours and transparency");
    require(reply.channels != 0 || reply.message[0] != '\0', "without a picture there is a message");
    require(reply.channels == 0 || readMetafileHeader(file), "what has no header is not drawn");
}
