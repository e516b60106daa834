// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

using column::Crop;

namespace {

void cropPicturePixels(ImageBox& box, const TaskRow& row) {
    box.Crop(row[Crop::mouseLeft], row[Crop::mouseTop], row[Crop::mouseRight], row[Crop::mouseBottom]);
}

/// The box takes the size of the display and keeps it.
void cropDisplayPixels(ImageBox& box, const TaskRow& row) {
    box.ControlWidth = float(row[Crop::displayWidth]);
    box.ControlHeight = float(row[Crop::displayHeight]);
    box.StretchToFit = true;
    const int left = roundToInt(horizontalScale(box) * row[Crop::mouseLeft]);
    const int top = roundToInt(verticalScale(box) * row[Crop::mouseTop]);
    const int right = roundToInt(horizontalScale(box) * row[Crop::mouseRight]);
    const int bottom = roundToInt(verticalScale(box) * row[Crop::mouseBottom]);
    box.Crop(left, top, right, bottom);
}

void cropSelection(ImageBox& box, const TaskRow& row) {
    const bool ellipse = row[Crop::shape] != 0;
    if (ellipse)
        box.BackColor = row[Crop::backColor];
    const int left = row[Crop::left];
    const int top = row[Crop::top];
    const int right = row[Crop::right];
    const int bottom = row[Crop::bottom];
    if (ellipse)
        box.SelectEllipse(left, top, right, bottom);
    else
        box.SelectRectangle(left, top, right, bottom);
    box.SelectionActive = true;
    box.CropToSelection();
}

} // namespace

void steps::crop(ImageBox& box, const TaskRow& row) {
    if (row[Crop::typed])
        cropSelection(box, row);
    else if (isEmpty(row, Crop::displayWidth) || isEmpty(row, Crop::displayHeight))
        cropPicturePixels(box, row);
    else
        cropDisplayPixels(box, row);
}

} // namespace tarsel
