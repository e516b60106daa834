// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/PreviewStep.h"

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
    Mask = 14,
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

/// Without a picture to merge nothing happens, where the replay fails.
void previewWatermark(ImageBox& box, const TaskRow& row) {
    if (missingPictureText(row).isEmpty())
        taskKind(Watermark)->replay(box, row);
}

/// Works on what is selected. A replay never runs it.
void previewRedEye(ImageBox& box) {
    box.SelectionActive = true;
    box.RedEyeCorrection();
    box.ClearSelection();
    box.SelectionActive = false;
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
    case Watermark:
        write(column::Watermark::stretched, fromBool(box.StretchToFit));
        break;
    case Text: {
        write(column::Text::stretched, fromBool(box.StretchToFit));
        if (options[column::Text::position] == clickedPosition)
            break;
        ImageBox measuring = box;
        measuring.LoadFromMemory(start, snapshotFormat);
        const QPoint place = steps::prepareText(measuring, options);
        write(column::Text::x, QString::number(place.x()));
        write(column::Text::y, QString::number(place.y()));
        break;
    }
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
    case Mask:
        return steps::maskInPreview(box, row);
    case RedEye:
        return previewRedEye(box);
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
