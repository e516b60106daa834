// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Put before a function with plain loops: it is built for the base line and for AVX2, and the machine
/// picks at run time. Means nothing on other processors, and nothing under a sanitizer, whose run-time is not
/// ready yet when the choice is made.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(TARSEL_NO_DISPATCH)
#define TARSEL_VECTORISED __attribute__((target_clones("avx2", "default")))
#else
#define TARSEL_VECTORISED
#endif

/// Put before a loop whose steps touch only bytes of their own, but may write where they read: without
/// the word the compiler would fall back to single steps there.
#if defined(__GNUC__) && !defined(__clang__)
#define TARSEL_INDEPENDENT_STEPS _Pragma("GCC ivdep")
#else
#define TARSEL_INDEPENDENT_STEPS
#endif

/// For the small functions inside such loops: inlined, they are built the same way.
#if defined(__GNUC__)
#define TARSEL_INLINED [[gnu::always_inline]] inline
#else
#define TARSEL_INLINED inline
#endif
