// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/modProcessTasks.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

namespace {

constexpr int ClickedPosition = 9;

/// p6 to p10: name, size in whole points, bold, italic, underline.
TextFont fontOf(const TaskRow& row) {
    TextFont font;
    font.Name = row.column(6);
    font.Size = toInt16(row.column(7));
    font.Bold = toBool(row.column(8));
    font.Italic = toBool(row.column(9));
    font.Underline = toBool(row.column(10));
    return font;
}

/// p13: orientation. p14: position. p16, p17: the clicked point on the display; a named position is computed
/// for the current picture instead.
QPoint positionOf(const ImageBox& box, const TaskRow& row) {
    const quint8 orientation = toByte(row.column(13));
    const int position = toInt16(row.column(14));
    if (position != ClickedPosition)
        return modProcessTasks::subTextPosition(orientation, position, box, row.column(15));
    return {roundToInt(horizontalScale(box) * toInt32(row.column(16))),
            roundToInt(verticalScale(box) * toInt32(row.column(17)))};
}

} // namespace

/// p1: smooth edges. p3: no filled box under the text. p4: angle. p5: alignment. p6 to p10: font. p11, p12:
/// colour of text and box. p13, p14, p16, p17: place. p15: the text. p2 is not read.
void steps::text(ImageBox& box, const TaskRow& row) {
    box.TextAntiAlias = toBool(row.column(1));
    box.TextTransparent = toBool(row.column(3));
    box.TextAngle = float(toInt16(row.column(4)));
    box.TextAlignment = toInt16(row.column(5));
    box.Font = fontOf(row);
    box.TextColor = toInt32(row.column(11));
    box.TextBackColor = toInt32(row.column(12));
    const QPoint place = positionOf(box, row);
    box.DrawText(place.x(), place.y(), row.column(15));
}

} // namespace tarsel
