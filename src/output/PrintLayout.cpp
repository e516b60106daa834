// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/PrintLayout.h"

#include <QPageSize>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr double gap = 4; // mm, between places
constexpr double lineHeight = 5;
constexpr double mmPerInch = 25.4;

template <class Value>
Value within(Value value, Value lowest, Value highest, Value fallback) {
    return value >= lowest && value <= highest ? value : fallback; // NaN falls back too
}

double captionHeight(const PrintLayout& layout) {
    constexpr int lines[] = {0, 1, 2};
    return lines[layout.caption] * lineHeight;
}

/// Margins count from the edge of the paper. Together they leave a fifth of it.
QRectF usableArea(const PrintLayout& layout, const Paper& paper) {
    const auto margin = [](double unprintable, double wanted, double side) {
        return std::min(std::max(unprintable, wanted), 0.4 * side);
    };
    const double width = paper.size.width(), height = paper.size.height();
    const QMarginsF& edge = paper.unprintable;
    return QRectF(QPointF(0, 0), paper.size)
        .marginsRemoved({margin(edge.left(), layout.marginAcross, width),
                         margin(edge.top(), layout.marginDown, height),
                         margin(edge.right(), layout.marginAcross, width),
                         margin(edge.bottom(), layout.marginDown, height)});
}

int rowsFor(int columns, int places) {
    return (places + columns - 1) / columns;
}

QSizeF placeSize(const QRectF& area, int columns, int rows) {
    return {(area.width() - gap * (columns - 1)) / columns, (area.height() - gap * (rows - 1)) / rows};
}

/// Of all grids the one with the largest squares and the fewest places unused.
int bestColumns(const QRectF& area, int places) {
    const auto worth = [&](int columns) {
        const int rows = rowsFor(columns, places);
        const QSizeF size = placeSize(area, columns, rows);
        return std::min(size.width(), size.height()) * places / (columns * rows);
    };
    int best = 1;
    for (int columns = 2; columns <= places; ++columns)
        if (worth(columns) > worth(best))
            best = columns;
    return best;
}

/// 0, 1 or 2: at the near edge, in the middle, at the far edge.
struct Alignment {
    int across;
    int down;
};

Alignment alignmentOf(int position) {
    constexpr Alignment alignments[] = {{1, 1}, {0, 0}, {1, 0}, {2, 0}, {0, 1},
                                        {2, 1}, {0, 2}, {1, 2}, {2, 2}};
    return alignments[position];
}

QRectF alignedIn(const QRectF& area, QSizeF size, Alignment alignment) {
    const QPointF corner(area.left() + (area.width() - size.width()) * alignment.across / 2,
                         area.top() + (area.height() - size.height()) * alignment.down / 2);
    return {corner, size};
}

QSizeF sizeAt100(const PrintLayout& layout, QSizeF area, QSize pixels, double dpi) {
    switch (layout.sizing) {
    case PrintLayout::TrueSize:
        return QSizeF(pixels) * (mmPerInch / (dpi > 0 ? dpi : usualDpi));
    case PrintLayout::Fill:
        return QSizeF(pixels).scaled(area, Qt::KeepAspectRatioByExpanding);
    default:
        return QSizeF(pixels).scaled(area, Qt::KeepAspectRatio);
    }
}

/// A picture that fills its place at 50 % fills half of it.
QSizeF frameSize(const PrintLayout& layout, QSizeF area) {
    return layout.sizing == PrintLayout::Fill ? area * std::min(1.0, layout.scale / 100) : area;
}

/// The pixels whose share of the picture the shown part is.
QRect cropOf(const QRectF& shown, const QRectF& full, QSize pixels) {
    const auto pixelAt = [](double part, double length, int count) {
        return std::clamp(int(std::lround(part / length * count)), 0, count);
    };
    const QPointF from = shown.topLeft() - full.topLeft(), to = shown.bottomRight() - full.topLeft();
    const int left = std::min(pixelAt(from.x(), full.width(), pixels.width()), pixels.width() - 1);
    const int top = std::min(pixelAt(from.y(), full.height(), pixels.height()), pixels.height() - 1);
    return {left, top, std::max(1, pixelAt(to.x(), full.width(), pixels.width()) - left),
            std::max(1, pixelAt(to.y(), full.height(), pixels.height()) - top)};
}

} // namespace

PrintLayout layoutOf(const settings::Print& settings) {
    PrintLayout layout;
    const int paper = settings.PrintSetting1;
    const bool isPaper = paper >= 0 && paper <= QPageSize::LastPageSize && paper != QPageSize::Custom;
    layout.repeats = settings.PrintSetting10 != 0;
    layout.landscape = settings.PrintSetting9 != 0;
    layout.perPage = within(settings.PrintSetting6, 1, PrintLayout::mostPerPage, 1);
    layout.paper = isPaper ? paper : PrintLayout::printersPaper;
    layout.marginAcross = within(settings.PrintSetting4, 0.0, PrintLayout::largestMargin, 0.0);
    layout.marginDown = within(settings.PrintSetting5, 0.0, PrintLayout::largestMargin, 0.0);
    layout.caption = within<int>(settings.PrintSetting8, 0, PrintLayout::Description, PrintLayout::None);
    layout.position = within<int>(settings.PrintSetting2, 0, PrintLayout::BottomRight, PrintLayout::Center);
    layout.scale =
        within(settings.PrintSetting7, PrintLayout::smallestScale, PrintLayout::largestScale, 100.0);
    layout.sizing = within<int>(settings.PrintSetting3, 0, PrintLayout::TrueSize, PrintLayout::Fit);
    return layout;
}

void takeLayout(const PrintLayout& layout, settings::Print& settings) {
    settings.PrintSetting10 = layout.repeats ? -1 : 0;
    settings.PrintSetting9 = layout.landscape ? -1 : 0;
    settings.PrintSetting6 = layout.perPage;
    settings.PrintSetting1 = layout.paper;
    settings.PrintSetting4 = layout.marginAcross;
    settings.PrintSetting5 = layout.marginDown;
    settings.PrintSetting8 = quint8(layout.caption);
    settings.PrintSetting2 = layout.position;
    settings.PrintSetting7 = layout.scale;
    settings.PrintSetting3 = quint8(layout.sizing);
}

std::vector<QRectF> pagePlaces(const PrintLayout& layout, const Paper& paper) {
    const QRectF area = usableArea(layout, paper);
    const int columns = bestColumns(area, layout.perPage);
    const QSizeF size = placeSize(area, columns, rowsFor(columns, layout.perPage));
    std::vector<QRectF> places;
    for (int i = 0; i < layout.perPage; ++i) {
        const QPointF corner((size.width() + gap) * (i % columns), (size.height() + gap) * (i / columns));
        places.emplace_back(area.topLeft() + corner, size);
    }
    return places;
}

PlacedPicture placedPicture(const PrintLayout& layout, const QRectF& place, QSize pixels, double dpi) {
    const double textHeight = std::min(captionHeight(layout), place.height() / 2);
    const QRectF area = place.adjusted(0, 0, 0, -textHeight);
    const Alignment alignment = alignmentOf(layout.position);
    const QRectF full =
        alignedIn(area, sizeAt100(layout, area.size(), pixels, dpi) * (layout.scale / 100), alignment);
    const QRectF shown = full.intersected(alignedIn(area, frameSize(layout, area.size()), alignment));
    if (shown.isEmpty() || pixels.isEmpty())
        return {};
    PlacedPicture placed{shown, cropOf(shown, full, pixels), {}};
    if (textHeight > 0)
        placed.caption = {place.left(), shown.bottom(), place.width(), textHeight};
    return placed;
}

} // namespace tarsel
