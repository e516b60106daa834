// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/PrintedPages.h"

#include "tests/support/Text.h"

#include <QProcess>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace tarsel::test {

QByteArray outputOf(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(text(program), arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << program;
    return process.readAllStandardOutput();
}

QImage pageOf(const QString& document, int number) {
    const QString page = QString::number(number);
    return QImage::fromData(outputOf("pdftoppm", {text("-r"), QString::number(25.4 * dotsPerMm), text("-f"),
                                                  page, text("-l"), page, document}));
}

int pageCountOf(const QString& document) {
    for (const QByteArray& line : outputOf("pdfinfo", {document}).split('\n'))
        if (line.startsWith("Pages:"))
            return line.mid(6).trimmed().toInt();
    return 0;
}

QRectF inkedArea(const QImage& page) {
    QRect inked;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (qGray(page.pixel(x, y)) < 128)
                inked = inked.united({x, y, 1, 1});
    return {inked.x() / dotsPerMm, inked.y() / dotsPerMm, inked.width() / dotsPerMm,
            inked.height() / dotsPerMm};
}

std::string shown(const QRectF& area) {
    return text("%1 %2 %3 %4").arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height()).toStdString();
}

bool isNear(const QRectF& area, const QRectF& wanted) {
    constexpr double tolerance = 2 / dotsPerMm; // a dot on each side, and the points of a PDF page
    const QPointF corner = area.topLeft() - wanted.topLeft(), far = area.bottomRight() - wanted.bottomRight();
    return std::max({std::abs(corner.x()), std::abs(corner.y()), std::abs(far.x()), std::abs(far.y())}) <=
           tolerance;
}

} // namespace tarsel::test
