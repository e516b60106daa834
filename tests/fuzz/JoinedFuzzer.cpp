// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureSource.h"
#include "publishing/joined/JoinedOptions.h"
#include "publishing/joined/JoinedReader.h"
#include "tests/fuzz/Fuzzers.h"

using namespace tarsel;
using fuzz::require;

void fuzz::readJoinedFile(const QByteArray& bytes) {
    const ByteSource file = PictureSource(bytes).byteSource();
    const auto contents = joined::readJoined(file);
    if (!contents)
        return;
    for (const joined::JoinedPicture& picture : contents->pictures)
        require(joined::blockOf(file, picture.offset, picture.size + 1).has_value(),
                "a listed picture is in the file");
    require(contents->optionsOffset <= contents->listOffset, "the options are before the list");
    const auto options =
        joined::blockOf(file, contents->optionsOffset, contents->listOffset - contents->optionsOffset);
    require(options.has_value(), "the options are in the file");
    if (const auto effect = joined::effectOptions(*options))
        require(joined::effectOptions(*joined::bytesOf(*effect)) == effect, "options are read as written");
    joined::saverOptions(*options);
}
