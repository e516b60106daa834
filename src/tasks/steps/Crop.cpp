// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

namespace {

/// p2 to p5: left, top, right, bottom in picture pixels.
void cropPicturePixels(ImageBox& box, const TaskRow& row) {
    box.Crop(toInt32(row.column(2)), toInt32(row.column(3)), toInt32(row.column(4)), toInt32(row.column(5)));
}

/// p2 to p5: the same in pixels of a display of p6 by p7. The box takes that display's size and keeps it.
void cropDisplayPixels(ImageBox& box, const TaskRow& row) {
    box.ControlWidth = float(toInt32(row.column(6)));
    box.ControlHeight = float(toInt32(row.column(7)));
    box.StretchToFit = true;
    const int left = roundToInt(horizontalScale(box) * toInt32(row.column(2)));
    const int top = roundToInt(verticalScale(box) * toInt32(row.column(3)));
    const int right = roundToInt(horizontalScale(box) * toInt32(row.column(4)));
    const int bottom = roundToInt(verticalScale(box) * toInt32(row.column(5)));
    box.Crop(left, top, right, bottom);
}

/// p2: 0 rectangle, else ellipse. p3 to p6: left, top, right, bottom. p7: colour outside an ellipse.
void cropSelection(ImageBox& box, const TaskRow& row) {
    const bool ellipse = toInt16(row.column(2)) != 0;
    if (ellipse)
        box.BackColor = toInt32(row.column(7));
    const int left = toInt32(row.column(3));
    const int top = toInt32(row.column(4));
    const int right = toInt32(row.column(5));
    const int bottom = toInt32(row.column(6));
    if (ellipse)
        box.SelectEllipse(left, top, right, bottom);
    else
        box.SelectRectangle(left, top, right, bottom);
    box.SelectionActive = true;
    box.CropToSelection();
}

} // namespace

/// p1: typed in; else taken with the mouse, on a scaled display when p6 and p7 tell its size.
void steps::crop(ImageBox& box, const TaskRow& row) {
    if (toBool(row.column(1)))
        cropSelection(box, row);
    else if (row.column(6).isEmpty() || row.column(7).isEmpty())
        cropPicturePixels(box, row);
    else
        cropDisplayPixels(box, row);
}

} // namespace tarsel
