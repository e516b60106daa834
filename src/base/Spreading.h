// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace tarsel {

/// How work may be spread over several threads.
struct Spreading {
    int threads = 1;                     ///< with the calling one
    std::int64_t minPixels = 12'000'000; ///< smaller pictures are worked on by the calling thread alone

    /// One thread for each processor, up to 4: beyond that memory is the limit.
    static Spreading overProcessors();
};

/// Lets the work on this thread use others too, for as long as the scope lives. For a thread whose
/// result the user waits for; where several pictures are processed at once, each stays on one thread.
class SpreadingScope {
public:
    explicit SpreadingScope(const Spreading& spreading = Spreading::overProcessors());
    ~SpreadingScope();
    SpreadingScope(const SpreadingScope&) = delete;
    SpreadingScope& operator=(const SpreadingScope&) = delete;

private:
    Spreading m_previous;
};

/// That of this thread's innermost scope; one thread without a scope.
Spreading currentSpreading();

} // namespace tarsel
