// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "bench/BareJpeg.h"

#include <QFileInfo>
#include <cstdio>

// The least that any batch over JPEG files costs: each is decoded and encoded again, on one thread.

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: jpeg_recode FOLDER PICTURE...\n");
        return 2;
    }
    using namespace tarsel;
    constexpr int quality = 80;
    for (int i = 2; i < argc; ++i) {
        const QString source = QString::fromLocal8Bit(argv[i]);
        const QByteArray file = bench::saveBareJpeg(bench::loadBareJpeg(readWholeFile(source)), quality);
        writeFileSafely(QString::fromLocal8Bit(argv[1]) + QLatin1Char('/') + QFileInfo(source).fileName(),
                        file);
    }
}
