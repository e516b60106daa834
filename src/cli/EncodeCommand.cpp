// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorSubject.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/JsonLine.h"
#include "cli/SinglePicture.h"
#include "cli/SizeOptions.h"
#include "cli/Terminal.h"
#include "imaging/ImageBox.h"
#include "imaging/SaveFormats.h"
#include "imaging/Upright.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"format", "FORMAT",
     QT_TRANSLATE_NOOP("CommandLine",
                       "bmp, gif, jpg, pcx, png, wbmp, psd, tif or pdf; default: OUT's extension")},
    {"colors", "ENTRY",
     QT_TRANSLATE_NOOP("CommandLine", "see below; default: the first that the format has")},
    {"quality", "1..100", QT_TRANSLATE_NOOP("CommandLine", "of JPEG data; default: 80")},
    {"progressive", nullptr, QT_TRANSLATE_NOOP("CommandLine", "write a progressive JPEG")},
    {"compression", "NAME",
     QT_TRANSLATE_NOOP("CommandLine", "gif: lzw (default) or none; tif: none (default), packbits or group4")},
    {"transparent", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "gif, png: make pixels of exactly this colour transparent")},
    maxSizeOption,
    minQualityOption,
    shrinkOption,
    {"upright", nullptr,
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "turn the picture by its EXIF orientation; always done where the format can't hold it")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine",
                       "one JSON object: source, target, state, reason, format, bytes, quality")},
};

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(EncodeCommand)
};

const SaveFormat& formatOf(const Arguments& arguments, const QString& target) {
    const QString name = arguments.value("format", QFileInfo(target).suffix());
    const SaveFormat* format = findSaveFormat(name);
    if (!format)
        throw UsageError{Texts::tr("\"%1\" is not a format that can be written").arg(name)};
    return *format;
}

bool isFormat(const SaveFormat& format, const char* extension) {
    return QLatin1String(format.extension) == QLatin1String(extension);
}

void requireFormat(const Arguments& arguments, const char* option, bool fits, const SaveFormat& format) {
    if (arguments.has(option) && !fits)
        throw UsageError{
            Texts::tr("--%1 does not apply to %2").arg(QLatin1String(option), QLatin1String(format.name))};
}

int colorFormatOf(const Arguments& arguments, const SaveFormat& format) {
    const QString name = arguments.value("colors", QLatin1String(format.colors.front().option));
    for (const ColorEntry& entry : format.colors)
        if (name == QLatin1String(entry.option))
            return entry.colorFormat;
    throw UsageError{Texts::tr("%1 has no colors \"%2\"").arg(QLatin1String(format.name), name)};
}

int indexIn(std::initializer_list<const char*> names, const QString& name) {
    const auto found =
        std::ranges::find_if(names, [&](const char* each) { return name == QLatin1String(each); });
    if (found == names.end())
        throw UsageError{Texts::tr("unknown compression \"%1\"").arg(name)};
    return int(found - names.begin());
}

void setCompression(ImageBox& box, const Arguments& arguments, const SaveFormat& format) {
    const bool isGif = isFormat(format, "gif"), isTiff = isFormat(format, "tif");
    requireFormat(arguments, "compression", isGif || isTiff, format);
    if (isGif)
        box.GifCompression =
            indexIn({"none", "lzw"}, arguments.value("compression", QStringLiteral("lzw"))) == 1;
    if (isTiff)
        box.TiffCompression =
            indexIn({"none", "packbits", "group4"}, arguments.value("compression", QStringLiteral("none")));
}

void setTransparency(ImageBox& box, const Arguments& arguments, const SaveFormat& format) {
    requireFormat(arguments, "transparent", isFormat(format, "gif") || isFormat(format, "png"), format);
    if (!arguments.has("transparent"))
        return;
    box.BackColorTransparent = true;
    box.BackColor = colorIn(arguments.value("transparent"), "transparent");
}

void setQuality(ImageBox& box, const Arguments& arguments, const SaveFormat& format) {
    const bool isJpeg = isFormat(format, "jpg");
    requireFormat(arguments, "quality", isJpeg || isFormat(format, "pdf"), format);
    requireFormat(arguments, "progressive", isJpeg || isFormat(format, "pdf"), format);
    requireFormat(arguments, "max-size", isJpeg, format);
    const char* best = arguments.has("max-size") ? "100" : "80";
    box.JpegQuality = numberIn(arguments.value("quality", QLatin1String(best)), 1, 100, "quality");
    box.JpegEncoding = arguments.has("progressive");
}

struct EncodeResult {
    QString source;
    QString target;
    QString format;
    SourceState state;
    QString error;
    qint64 bytes = 0;
    double quality = 0; ///< 0 for a format without
};

void encode(ImageBox& box, EncodeResult& result, const SaveFormat& format, const SizeBudget& budget,
            bool upright) {
    result.state = loadForTarget(box, result.source, result.target);
    const QString extension = QLatin1String(format.extension);
    if (upright || isOrientationLost(box, result.source, extension))
        turnUpright(box, result.source);
    const BudgetedJpeg file =
        budget.bytes > 0 ? jpegWithin(budget, box.picture(), box.saveSettings(), box.metadata().blocks())
                         : BudgetedJpeg{box.encoded(extension), box.saveSettings(), box.picture()};
    writeFileSafely(result.target, file.bytes);
    result.bytes = file.bytes.size();
    result.quality = isFormat(format, "jpg") ? std::round(file.quality() * 10) / 10 : 0;
}

QString reasonOf(const EncodeResult& result) {
    return result.error.isEmpty() ? damageText(result.state) : result.error;
}

QString textOf(const EncodeResult& result) {
    const QString bytes = QString::number(result.bytes), quality = QString::number(result.quality);
    const QString facts =
        result.quality > 0
            ? Texts::tr("%1: %2, %3 bytes, quality %4").arg(result.target, result.format, bytes, quality)
            : Texts::tr("%1: %2, %3 bytes").arg(result.target, result.format, bytes);
    return result.state.damage.isEmpty() ? facts : facts + QStringLiteral(" (%1)").arg(reasonOf(result));
}

void report(const EncodeResult& result, Terminal& terminal, bool json) {
    const bool failed = !result.error.isEmpty();
    if (!json && !failed)
        terminal.result(textOf(result));
    if (!json)
        return;
    JsonLine line;
    line.add("source", result.source).add("target", result.target);
    line.add("state", failed ? QStringLiteral("failed") : QStringLiteral("written"))
        .add("reason", reasonOf(result));
    line.add("format", result.format);
    failed ? line.addNull("bytes") : line.add("bytes", double(result.bytes));
    result.quality > 0 ? line.add("quality", result.quality) : line.addNull("quality");
    terminal.result(line.text());
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (arguments.operands().size() != 2)
        throw UsageError{Texts::tr("expected IN OUT")};
    EncodeResult result;
    result.source = filePath(arguments.operands().at(0));
    result.target = filePath(arguments.operands().at(1));
    const SaveFormat& format = formatOf(arguments, result.target);
    result.format = QLatin1String(format.name);
    ImageBox box;
    box.ColorFormat = colorFormatOf(arguments, format);
    setQuality(box, arguments, format);
    setCompression(box, arguments, format);
    setTransparency(box, arguments, format);
    const SizeBudget budget = sizeBudget(arguments);
    const ErrorSubject subject(result.source);
    try {
        encode(box, result, format, budget, arguments.has("upright"));
        for (const QString& remark : remarksOn(result.source, result.state))
            terminal.message(remark);
    } catch (const TrappedError& error) {
        result.error = namingSubject(error.description);
        terminal.message(QStringLiteral("tarsel: ") + result.error);
    }
    report(result, terminal, arguments.has("json"));
    return result.error.isEmpty() && result.state.damage.isEmpty() ? AllDone : SomeNotDone;
}

} // namespace

constexpr Command encodeCommand{
    .name = "encode",
    .operands = "IN OUT",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Save one picture in any format that can be written."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "ENTRY is true-color, 256-colors, 256-grayscale, 16-colors, 16-grayscale, monochrome or "
        "monochrome-bw.\n"
        "Metadata, profile and resolution are kept where the format can hold them. A transparent picture is\n"
        "laid on white where the format has no transparency."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
