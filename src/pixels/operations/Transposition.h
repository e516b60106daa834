// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/operations/Vectorised.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tarsel::operations {

/// Square blocks of values that fill one vector of 128 bits a row, which every 64-bit processor has.
using Words = std::int16_t __attribute__((vector_size(16)));
using Bytes = std::uint8_t __attribute__((vector_size(16)));

template <class Vector>
TARSEL_INLINED Vector loadVector(const void* from) {
    Vector vector;
    std::memcpy(&vector, from, sizeof vector);
    return vector;
}

TARSEL_INLINED Words firstHalvesMixed(Words a, Words b) {
    return __builtin_shufflevector(a, b, 0, 8, 1, 9, 2, 10, 3, 11);
}

TARSEL_INLINED Words secondHalvesMixed(Words a, Words b) {
    return __builtin_shufflevector(a, b, 4, 12, 5, 13, 6, 14, 7, 15);
}

TARSEL_INLINED Bytes firstHalvesMixed(Bytes a, Bytes b) {
    return __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
}

TARSEL_INLINED Bytes secondHalvesMixed(Bytes a, Bytes b) {
    return __builtin_shufflevector(a, b, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
}

/// Each round deals the rows out like two halves of a deck of cards; log2(Count) rounds transpose the block.
template <int Count, class Vector>
TARSEL_INLINED void transposeRows(Vector (&rows)[Count]) {
    for (int round = 1; round < Count; round *= 2) {
        Vector mixed[Count];
        for (int i = 0; i < Count / 2; ++i) {
            mixed[2 * i] = firstHalvesMixed(rows[i], rows[i + Count / 2]);
            mixed[2 * i + 1] = secondHalvesMixed(rows[i], rows[i + Count / 2]);
        }
        for (int i = 0; i < Count; ++i)
            rows[i] = mixed[i];
    }
}

} // namespace tarsel::operations
