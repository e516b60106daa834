// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/LoopTimes.h"

#include <QCoreApplication>
#include <QImage>

#include <algorithm>

namespace tarsel {

double milliseconds(const QElapsedTimer& clock) {
    return double(clock.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void writePicture(const QString& path, QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    quint32 grain = 1;
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            grain = grain * 1664525 + 1013904223;
            const int noise = int(grain >> 28);
            const int edge = (x / 300 + y / 200) % 2 * 60;
            row[x] = qRgb(x * 180 / size.width() + noise + edge, y * 180 / size.height() + noise,
                          120 + noise - edge / 2);
        }
    }
    if (!picture.save(path, "JPEG", 92))
        qFatal("%s can't be written", qPrintable(path));
}

double runUntil(const std::function<bool()>& condition) {
    double longest = 0;
    while (!condition()) {
        QElapsedTimer turn;
        turn.start();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, milliseconds(turn));
    }
    return longest;
}

} // namespace tarsel
