// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/ColorReduction.h"

#include <list>

namespace tarsel {

/// The last reductions to palettes. Where one picture is encoded again and again, another compression or
/// format of the same colours needs no new palette.
class KeptReductions {
public:
    const IndexedPicture& reduced(const Picture& picture, ColorFormat format,
                                  const Transparency& transparency);

    /// That of this thread's innermost scope; null without one.
    static KeptReductions* current();

private:
    struct Kept {
        Picture picture;
        ColorFormat format;
        Transparency transparency;
        IndexedPicture indexed;
    };

    std::list<Kept> m_kept; ///< the one used last comes first
};

/// Lets the encoders on this thread use kept reductions, for as long as the scope lives.
class KeptReductionsScope {
public:
    explicit KeptReductionsScope(KeptReductions& kept);
    ~KeptReductionsScope();
    KeptReductionsScope(const KeptReductionsScope&) = delete;
    KeptReductionsScope& operator=(const KeptReductionsScope&) = delete;

private:
    KeptReductions* m_previous;
};

} // namespace tarsel
