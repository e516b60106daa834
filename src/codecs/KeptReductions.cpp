// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/KeptReductions.h"

#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

constexpr std::size_t mostKept = 3;

thread_local KeptReductions* inUse = nullptr;

} // namespace

KeptReductions* KeptReductions::current() {
    return inUse;
}

/// Pixels are compared, not pictures: a conversion of colours makes another picture of the same pixels.
const IndexedPicture& KeptReductions::reduced(const Picture& picture, ColorFormat format,
                                              const Transparency& transparency) {
    const auto found = std::ranges::find_if(m_kept, [&](const Kept& kept) {
        return kept.format == format && kept.transparency == transparency && kept.picture == picture;
    });
    if (found == m_kept.end()) {
        m_kept.push_front({picture, format, transparency, reduceToPalette(picture, format, transparency)});
        if (m_kept.size() > mostKept)
            m_kept.pop_back();
    } else {
        m_kept.splice(m_kept.begin(), m_kept, found);
    }
    return m_kept.front().indexed;
}

KeptReductionsScope::KeptReductionsScope(KeptReductions& kept) : m_previous(std::exchange(inUse, &kept)) {}

KeptReductionsScope::~KeptReductionsScope() {
    inUse = m_previous;
}

} // namespace tarsel
