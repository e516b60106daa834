// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/TaskColumns.h"
#include "tasks/modProcessTasks.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

using column::Text;

namespace {

constexpr int clickedPosition = 9;

TextFont fontOf(const TaskRow& row) {
    TextFont font;
    font.Name = row[Text::fontName];
    font.Size = row[Text::fontSize];
    font.Bold = row[Text::bold];
    font.Italic = row[Text::italic];
    font.Underline = row[Text::underline];
    return font;
}

/// A clicked point is on the display; a named position is computed for the current picture.
QPoint positionOf(const ImageBox& box, const TaskRow& row) {
    const quint8 orientation = row[Text::orientation];
    const int position = row[Text::position];
    if (position != clickedPosition)
        return modProcessTasks::subTextPosition(orientation, position, box, row[Text::text]);
    return {roundToInt(horizontalScale(box) * row[Text::x]), roundToInt(verticalScale(box) * row[Text::y])};
}

} // namespace

QPoint steps::prepareText(ImageBox& box, const TaskRow& row) {
    box.TextAntiAlias = row[Text::antiAlias];
    box.TextTransparent = row[Text::transparent];
    box.TextAngle = row[Text::angle];
    box.TextAlignment = row[Text::alignment];
    box.Font = fontOf(row);
    box.TextColor = row[Text::color];
    box.TextBackColor = row[Text::backColor];
    return positionOf(box, row);
}

void steps::text(ImageBox& box, const TaskRow& row) {
    const QPoint place = prepareText(box, row);
    box.DrawText(place.x(), place.y(), row[Text::text]);
}

} // namespace tarsel
