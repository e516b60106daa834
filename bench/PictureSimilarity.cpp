// SPDX-License-Identifier: GPL-3.0-or-later
// Prints PSNR in decibels and SSIM of two picture files of the same size.

#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "pixels/operations/Similarity.h"

#include <cstdio>

using namespace tarsel;

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: picture_similarity PICTURE PICTURE\n", stderr);
        return 2;
    }
    try {
        ImageBox a, b;
        a.LoadFromFile(QString::fromLocal8Bit(argv[1]));
        b.LoadFromFile(QString::fromLocal8Bit(argv[2]));
        const auto found = operations::similarity(a.picture().view(), b.picture().view());
        std::printf("%.2f %.4f\n", found.peakSignalToNoise, found.structural);
    } catch (const TrappedError& error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.description));
        return 1;
    }
    return 0;
}
