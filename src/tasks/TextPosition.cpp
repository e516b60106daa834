// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TextPosition.h"

#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "tasks/modProcessTasks.h"

#include <QCoreApplication>

namespace tarsel {

namespace {

constexpr int lastNamedPosition = 8;

/// Start of a text's extent along one axis: flush, in the middle, flush at the far end.
int placed(int third, int length, int extent) {
    switch (third) {
    case 0:
        return 0;
    case 1:
        return roundToInt((length - double(extent)) / 2);
    default:
        return length - extent;
    }
}

/// x of the anchor that `alignment` names (0 left, 1 centre, 2 right) on a horizontal text.
int horizontalX(int column, int alignment, int width, int textWidth) {
    if (alignment < 0 || alignment > 2)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("TextPosition", "there is no text alignment %1").arg(alignment));
    // Twice the anchor is an integer, so that halves are exact and tie to even.
    const double anchor = double(column) * (width - double(textWidth)) + double(alignment) * textWidth;
    return roundToInt(anchor / 2);
}

/// A vertical text runs downward from its anchor at the right edge of its line.
int verticalX(int column, int width, int textHeight) {
    switch (column) {
    case 0:
        return textHeight;
    case 1:
        return roundToInt((textHeight + double(width)) / 2);
    default:
        return width;
    }
}

} // namespace

QPoint textPosition(int orientation, int position, int alignment, Size picture, Size text) {
    if (position < 0 || position > lastNamedPosition)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("TextPosition", "there is no text position %1").arg(position));
    const int column = position % 3;
    const int row = position / 3;
    if (orientation != 0)
        return {verticalX(column, picture.width, text.height), placed(row, picture.height, text.width)};
    return {horizontalX(column, alignment, picture.width, text.width),
            placed(row, picture.height, text.height)};
}

QPoint modProcessTasks::subTextPosition(quint8 orientation, int position, const ImageBox& box,
                                        const QString& text) {
    return textPosition(orientation, position, box.TextAlignment, {box.Width(), box.Height()},
                        {box.TextWidth(text), box.TextHeight(text)});
}

} // namespace tarsel
