// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifndef __has_attribute
#define __has_attribute(name) 0
#endif

/// Put before a function with plain loops: it is built for the base line and for AVX2, and the machine picks
/// at run time. Does nothing on other processors, where the base line has vectors that are good enough, and
/// nothing under a sanitizer, whose run-time is not ready yet when the choice is made.
#if defined(__x86_64__) && defined(__ELF__) && __has_attribute(target_clones) && !defined(TARSEL_NO_DISPATCH)
#define TARSEL_VECTORISED __attribute__((target_clones("avx2", "default")))
#else
#define TARSEL_VECTORISED
#endif

/// Put before a loop whose steps touch only bytes of their own, but may write where they read: without
/// the pragma the compiler would fall back to single steps there.
#if defined(__clang__)
#define TARSEL_INDEPENDENT_STEPS _Pragma("clang loop vectorize(assume_safety)")
#elif defined(__GNUC__)
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
