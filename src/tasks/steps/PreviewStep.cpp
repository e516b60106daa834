// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/PreviewStep.h"

#include "tasks/DisplayScale.h"
#include "tasks/TaskColumns.h"
#include "tasks/TaskList.h"
#include "tasks/steps/Steps.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel {

namespace {

constexpr int snapshotFormat = 7;
constexpr int clickedPosition = 9;

enum Kind {
    Flip = 1,
    Rotate = 2,
    Resize = 3,
    Contrast = 5,
    Brightness = 6,
    Crop = 8,
    Watermark = 9,
    Text = 10,
    Invert = 11,
    Frame = 13,
    Mask = 14,
    Shadow = 15,
    RedEye = 16
};

int kindOf(const TaskRow& row) {
    return row.kind.toInt();
}

/// A size is always made smoothly, where the replay follows `Resample`; a percentage counts with its
/// fraction, which the replay rounds.
void previewResize(ImageBox& box, const TaskRow& row) {
    using column::Resize;
    if (row[Resize::toSize])
        box.Resize(row[Resize::width], row[Resize::height]);
    else
        box.Scale(float(toDouble(row.columns[Resize::percent.number - 1])));
}

/// Without a picture to merge nothing happens, where the replay fails. The recorded place is taken as it is,
/// which the replay converts a second time.
void previewWatermark(ImageBox& box, const TaskRow& row) {
    using column::Watermark;
    if (missingPictureText(row).isEmpty())
        steps::mergeAt(
            box, row,
            {toInt32(row.columns[Watermark::x.number - 1]), toInt32(row.columns[Watermark::y.number - 1])});
}

/// At a clicked position the recorded place is taken as it is, which the replay converts a second time.
void previewText(ImageBox& box, const TaskRow& row) {
    using column::Text;
    QPoint place = steps::prepareText(box, row);
    if (row[Text::position] == clickedPosition)
        place = {row[Text::x], row[Text::y]};
    box.DrawText(place.x(), place.y(), row[Text::text]);
}

/// Works on the ellipse in the first four columns. A replay never runs it.
void previewRedEye(ImageBox& box, const TaskRow& row) {
    box.SelectEllipse(toInt32(row.columns[0]), toInt32(row.columns[1]), toInt32(row.columns[2]),
                      toInt32(row.columns[3]));
    box.SelectionActive = true;
    box.RedEyeCorrection();
    box.ClearSelection();
    box.SelectionActive = false;
}

// --- what depends on the display

/// The box with the picture that the task starts from.
ImageBox boxWith(const ImageBox& box, const Picture& start) {
    ImageBox with = box;
    with.LoadFromMemory(start, snapshotFormat);
    return with;
}

QPoint toPicture(const ImageBox& box, double x, double y) {
    return {roundToInt(horizontalScale(box) * x), roundToInt(verticalScale(box) * y)};
}

/// Writes whole numbers to columns that follow each other.
void write(TaskRow& row, int firstColumn, std::initializer_list<int> numbers) {
    for (const int number : numbers)
        row.columns.at(std::size_t(firstColumn++ - 1)) = QString::number(number);
}

bool isScaled(const ImageBox& box) {
    return box.StretchToFit && (box.DisplayHeight() != box.Height() || box.DisplayWidth() != box.Width());
}

/// A region selected with the mouse is recorded in picture pixels, with its edges in order. On a scaled
/// display it stays in display pixels and in the order in which it was dragged, with the size of the display:
/// one that was dragged to the left or upward has its right edge left of the left one, which no crop takes.
void recordRegion(const ImageBox& box, TaskRow& row) {
    using column::Crop;
    if (isScaled(box)) {
        row.columns[Crop::displayWidth.number - 1] = QString::number(double(box.ControlWidth));
        row.columns[Crop::displayHeight.number - 1] = QString::number(double(box.ControlHeight));
        return;
    }
    const int left = row[Crop::mouseLeft], right = row[Crop::mouseRight];
    const int top = row[Crop::mouseTop], bottom = row[Crop::mouseBottom];
    write(row, Crop::mouseLeft.number,
          {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)});
}

/// Picture pixels.
void recordEye(const ImageBox& box, TaskRow& row) {
    const QPoint first = toPicture(box, toInt32(row.columns[0]), toInt32(row.columns[1]));
    const QPoint last = toPicture(box, toInt32(row.columns[2]), toInt32(row.columns[3]));
    write(row, 1, {first.x(), first.y(), last.x(), last.y()});
}

/// The middle of the line's height is where the user clicked. As the page keeps the converted point, a second
/// preview without a new click converts it once more.
void recordClickedText(const ImageBox& box, TaskRow& row) {
    using column::Text;
    const QPoint place = toPicture(box, row[Text::x], row[Text::y]);
    write(row, Text::x.number, {place.x(), roundToInt(place.y() - row[Text::fontSize] / 2.0)});
}

/// Converted only where the display is scaled in both directions. As the page keeps the converted point, a
/// second preview without a new click converts it once more.
void recordPlace(const ImageBox& box, TaskRow& row) {
    using column::Watermark;
    constexpr int atPlace = 1;
    if (row[Watermark::style] != atPlace || !box.StretchToFit || box.DisplayHeight() == box.Height() ||
        box.DisplayWidth() == box.Width())
        return;
    const QPoint place = toPicture(box, row[Watermark::x], row[Watermark::y]);
    write(row, Watermark::y.number, {place.y(), place.x()});
}

QString missingRegion() {
    return QCoreApplication::translate("PreviewStep", "Please select a region of the picture first.");
}

/// The columns that hold the corners of a region; 0 for tasks without one.
int regionColumn(const TaskRow& row) {
    if (kindOf(row) == RedEye)
        return 1;
    return kindOf(row) == Crop && !row[column::Crop::typed] ? column::Crop::mouseLeft.number : 0;
}

} // namespace

TaskRow recordedRow(ImageBox& box, const Picture& start, TaskRow options) {
    const auto write = [&options](auto column, const QString& text) {
        options.columns.at(std::size_t(column.number - 1)) = text;
    };
    switch (kindOf(options)) {
    case Rotate:
        // Turned on by one task, `Resample` stays on in the box for all that follow.
        box.Resample = box.Resample || options[column::Rotate::smooth];
        write(column::Rotate::smooth, fromBool(box.Resample));
        break;
    case Crop:
        if (regionColumn(options) != 0)
            recordRegion(boxWith(box, start), options);
        break;
    case Watermark:
        write(column::Watermark::stretched, fromBool(box.StretchToFit));
        recordPlace(boxWith(box, start), options);
        break;
    case Text: {
        write(column::Text::stretched, fromBool(box.StretchToFit));
        ImageBox measuring = boxWith(box, start);
        if (options[column::Text::position] == clickedPosition) {
            recordClickedText(measuring, options);
            break;
        }
        const QPoint place = steps::prepareText(measuring, options);
        write(column::Text::x, QString::number(place.x()));
        write(column::Text::y, QString::number(place.y()));
        break;
    }
    case RedEye:
        recordEye(boxWith(box, start), options);
        break;
    default:
        break;
    }
    return options;
}

void previewStep(ImageBox& box, const TaskRow& row) {
    switch (kindOf(row)) {
    case Resize:
        return previewResize(box, row);
    case Watermark:
        return previewWatermark(box, row);
    case Text:
        return previewText(box, row);
    case Mask:
        return steps::maskInPreview(box, row);
    case RedEye:
        return previewRedEye(box, row);
    default:
        taskKind(kindOf(row))->replay(box, row);
    }
}

bool previewsAtOnce(const TaskRow& options) {
    switch (kindOf(options)) {
    case Rotate:
        return options.columns[column::Rotate::degrees.number - 1] != QLatin1String("0");
    case Resize:
        return !options[column::Resize::toSize] &&
               options.columns[column::Resize::percent.number - 1] != QLatin1String("100");
    case Watermark:
        return missingPictureText(options).isEmpty();
    case Text:
        return !options[column::Text::text].isEmpty();
    default:
        return kindOf(options) != RedEye;
    }
}

bool showsAsItOpens(const TaskRow& options) {
    const int kind = kindOf(options);
    return kind == Frame || kind == Mask || kind == Shadow;
}

bool followsOptions(const TaskRow& options) {
    switch (kindOf(options)) {
    case Crop:
        return options[column::Crop::typed];
    case RedEye:
        return false;
    default:
        return missingPictureText(options).isEmpty();
    }
}

bool looksTheSameReduced(const TaskRow& row) {
    switch (kindOf(row)) {
    case Flip:
    case Rotate:
    case Contrast:
    case Brightness:
    case Invert:
        return true;
    case Mask: // a transparent one softens the picture
        return !row[column::Mask::transparent];
    default:
        return false;
    }
}

QString missingRegionText(const TaskRow& options) {
    const int first = regionColumn(options);
    if (first == 0)
        return {};
    const auto edge = [&](int number) { return options.columns.at(std::size_t(first - 1 + number)); };
    return edge(0) != edge(2) && edge(1) != edge(3) ? QString() : missingRegion();
}

QString missingRegionText(const TaskRow& options, const ImageBox& box, const Picture& start) {
    const int first = regionColumn(options);
    if (const QString text = missingRegionText(options); first == 0 || !text.isEmpty())
        return text;
    const ImageBox with = boxWith(box, start);
    const auto corner = [&](int column) {
        const auto place = options.columns.begin() + (column - 1);
        return toPicture(with, toInt32(place[0]), toInt32(place[1]));
    };
    const QPoint size = corner(first + 2) - corner(first);
    return size.x() != 0 && size.y() != 0 ? QString() : missingRegion();
}

QString reversedRegionText(const TaskRow& recorded) {
    using column::Crop;
    if (kindOf(recorded) != Kind::Crop || regionColumn(recorded) == 0 ||
        (recorded[Crop::mouseLeft] <= recorded[Crop::mouseRight] &&
         recorded[Crop::mouseTop] <= recorded[Crop::mouseBottom]))
        return {};
    return QCoreApplication::translate("PreviewStep",
                                       "Drag the region from its top left to its bottom right.");
}

QString missingPictureText(const TaskRow& row) {
    if (kindOf(row) != Watermark)
        return {};
    const QString path = row[column::Watermark::path];
    if (path.isEmpty())
        return QCoreApplication::translate("PreviewStep",
                                           "Please select an image/logo for watermarking the image.");
    if (!QFileInfo(path).isFile())
        return QCoreApplication::translate(
            "PreviewStep", "The last watermark image/logo file has either moved, renamed or deleted.\n"
                           "Please select an image/logo from disk.");
    return {};
}

} // namespace tarsel
