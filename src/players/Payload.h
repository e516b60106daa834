// SPDX-License-Identifier: MIT
#pragma once

#include "players/platform/Jpeg.h"
#include "players/platform/System.h"
#include "publishing/joined/JoinedOptions.h"
#include "publishing/joined/JoinedReader.h"

namespace tarsel::players {

/// What a player finds after itself in its own file. The functions that have to find something throw
/// PlayerError.
class Payload {
public:
    /// At least one picture, or it throws.
    explicit Payload(OwnFile file);

    std::size_t count() const { return m_contents.pictures.size(); }
    /// Nothing for one that can't be decoded.
    std::optional<Picture> picture(std::size_t index, const Box& screen) const;

    joined::SaverOptions saverOptions() const;
    joined::EffectOptions effectOptions() const;

    [[noreturn]] void fail(const char* fact) const;

private:
    std::string options() const;

    OwnFile m_file;
    joined::JoinedContents m_contents;
};

} // namespace tarsel::players
