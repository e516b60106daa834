// SPDX-License-Identifier: GPL-3.0-or-later
// The program's end of the protocol between it and its decoder: a child sends the bytes as its answer.

#include "base/TrappedError.h"
#include "codecs/DecoderProcess.h"
#include "tests/fuzz/Fuzzers.h"

#include <algorithm>
#include <unistd.h>

using namespace tarsel;
using fuzz::require;

namespace {

int lowestFreeDescriptor() {
    const Descriptor copy(::dup(STDERR_FILENO));
    return copy.number();
}

} // namespace

void fuzz::readDecoderReply(const QByteArray& bytes) {
    static const bool isReady = qputenv("TARSEL_DECODER", TARSEL_MISBEHAVING_DECODER);
    const QString name = QStringLiteral("fuzzed.wmf");
    const int before = lowestFreeDescriptor();
    try {
        DecoderProcess process;
        const Picture picture =
            process.decode({DecoderFormat::Metafile, "send: " + bytes, {2, 1}}, {"WMF", name, bytes.size()});
        require(isReady && picture.width() == 2 && picture.height() == 1,
                "a picture has the size that was asked for");
    } catch (const TrappedError& error) {
        require(error.number == ErrorNumber::UnreadableFile && error.description.contains(name),
                "anything else is a file that could not be read");
        require(std::ranges::all_of(error.description, [](QChar c) { return c.isPrint(); }),
                "a message can be shown");
    }
    require(before == lowestFreeDescriptor(), "descriptors that were sent are closed");
}
