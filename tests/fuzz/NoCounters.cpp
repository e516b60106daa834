// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdint>

// For programs that the fuzzers start: the libraries that they share with the fuzzers report branches and
// comparisons, which nobody counts here.

extern "C" {

void __sanitizer_cov_trace_pc() {}
void __sanitizer_cov_trace_cmp1(std::uint8_t, std::uint8_t) {}
void __sanitizer_cov_trace_cmp2(std::uint16_t, std::uint16_t) {}
void __sanitizer_cov_trace_cmp4(std::uint32_t, std::uint32_t) {}
void __sanitizer_cov_trace_cmp8(std::uint64_t, std::uint64_t) {}
void __sanitizer_cov_trace_const_cmp1(std::uint8_t, std::uint8_t) {}
void __sanitizer_cov_trace_const_cmp2(std::uint16_t, std::uint16_t) {}
void __sanitizer_cov_trace_const_cmp4(std::uint32_t, std::uint32_t) {}
void __sanitizer_cov_trace_const_cmp8(std::uint64_t, std::uint64_t) {}
void __sanitizer_cov_trace_cmpf(float, float) {}
void __sanitizer_cov_trace_cmpd(double, double) {}
void __sanitizer_cov_trace_switch(std::uint64_t, std::uint64_t*) {}

} // extern "C"
