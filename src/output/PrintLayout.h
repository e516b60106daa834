// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QMarginsF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <vector>

namespace tarsel {

/// How pictures are put on paper. The record keeps it in ten settings; the number of each is at its field. A
/// setting that has no meaning counts as its default.
struct PrintLayout {
    enum Sizing { Fit, Fill, TrueSize };
    enum Caption { None, Name, Description };
    /// Where a picture is in its place on the page; the numbers are those of the setting.
    enum Position { Center, TopLeft, Top, TopRight, Left, Right, BottomLeft, Bottom, BottomRight };

    static constexpr int printersPaper = -1;
    static constexpr int mostPerPage = 64;
    static constexpr double largestMargin = 100; ///< mm
    static constexpr double smallestScale = 1, largestScale = 1000;

    int paper = printersPaper; ///< 1: a QPageSize::PageSizeId, or what the printer is set to
    int position = Center;     ///< 2
    int sizing = Fit;          ///< 3: in its place; Fill crops, TrueSize goes by the picture's resolution
    double marginAcross = 0;   ///< 4: mm of paper left and right that stay empty
    double marginDown = 0;     ///< 5: the same at the top and at the bottom
    int perPage = 1;           ///< 6: places on a page
    double scale = 100;        ///< 7: percent of the size by `sizing`; what leaves the place is cropped
    int caption = None;        ///< 8: the text below a picture
    bool landscape = false;    ///< 9
    bool repeats = false;      ///< 10: all places of a page show the same picture

    bool operator==(const PrintLayout&) const = default;

    int picturesOnPage() const { return repeats ? 1 : perPage; }
    int pageCount(int pictures) const { return (pictures + picturesOnPage() - 1) / picturesOnPage(); }
};

PrintLayout layoutOf(const settings::Print& settings);
void takeLayout(const PrintLayout& layout, settings::Print& settings);

/// A sheet in the orientation in which it is printed; all lengths in mm.
struct Paper {
    QSizeF size;
    QMarginsF unprintable = {};
};

/// Resolution that counts for a picture whose file has none.
inline constexpr double usualDpi = 96;

/// Where a picture is on its page, in mm from the upper left corner of the paper.
struct PlacedPicture {
    QRectF place;
    QRect crop;     ///< pixels of the picture that fill the place
    QRectF caption; ///< empty where there is none
};

/// The places on a page, row by row.
std::vector<QRectF> pagePlaces(const PrintLayout& layout, const Paper& paper);

/// A picture of so many pixels in one of these places. `dpi` is 0 where nothing says it. The place is empty
/// where the picture would be smaller than can be seen.
PlacedPicture placedPicture(const PrintLayout& layout, const QRectF& place, QSize pixels, double dpi);

} // namespace tarsel
