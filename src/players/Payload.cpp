// SPDX-License-Identifier: MIT
#include "players/Payload.h"

#include "players/platform/PlayerError.h"

namespace tarsel::players {

Payload::Payload(OwnFile file) : m_file(std::move(file)) {
    auto contents = joined::readJoined(m_file.bytes);
    if (!contents)
        fail("no pictures are joined to this player");
    if (contents->pictures.empty())
        fail("there are no pictures in this file");
    m_contents = std::move(*contents);
}

void Payload::fail(const char* fact) const {
    throw PlayerError(m_file.path + ": " + fact);
}

std::optional<Picture> Payload::picture(std::size_t index, const Box& screen) const {
    const joined::JoinedPicture& listed = m_contents.pictures[index];
    const auto bytes = joined::blockOf(m_file.bytes, listed.offset, listed.size);
    return bytes ? decodeJpeg(*bytes, screen.width, screen.height) : std::nullopt;
}

std::string Payload::options() const {
    return joined::blockOf(m_file.bytes, m_contents.optionsOffset,
                           m_contents.listOffset - m_contents.optionsOffset)
        .value_or(std::string());
}

joined::SaverOptions Payload::saverOptions() const {
    const auto read = joined::saverOptions(options());
    return read ? *read : (fail("the options are cut"), joined::SaverOptions());
}

joined::EffectOptions Payload::effectOptions() const {
    const auto read = joined::effectOptions(options());
    return read ? *read : (fail("the options are cut"), joined::EffectOptions());
}

} // namespace tarsel::players
