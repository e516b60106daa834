// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <string>

// What poppler says of the pages of a PDF document.
namespace tarsel::test {

inline constexpr double dotsPerMm = 5;

/// The standard output of a program; the test fails when it fails.
QByteArray outputOf(const char* program, const QStringList& arguments);

int pageCountOf(const QString& document);
QImage pageOf(const QString& document, int number);
/// What is not white on a page, in mm.
QRectF inkedArea(const QImage& page);
/// The same area, but for a dot on each side and the rounding of pages to points.
bool isNear(const QRectF& area, const QRectF& wanted);
std::string shown(const QRectF& area);

} // namespace tarsel::test
