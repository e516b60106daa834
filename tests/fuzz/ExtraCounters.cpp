// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdint>

// GCC reports each branch by a call that libFuzzer's runtime refuses; the one here takes its place, and lets
// the address of the branch pick one of the counters that libFuzzer looks at besides its own.

namespace {
constexpr unsigned counterCount = 1U << 16;
__attribute__((section("__libfuzzer_extra_counters"), used)) std::uint8_t counters[counterCount];
} // namespace

extern "C" {

__attribute__((no_sanitize("address", "undefined"))) void __sanitizer_cov_trace_pc() {
    const auto address = reinterpret_cast<std::uintptr_t>(__builtin_return_address(0));
    ++counters[(address ^ address >> 16) % counterCount];
}

// Comparisons of floating-point numbers, for which libFuzzer has no use.
void __sanitizer_cov_trace_cmpf(float, float) {}
void __sanitizer_cov_trace_cmpd(double, double) {}

} // extern "C"
