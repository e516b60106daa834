// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/OptionDecoding.h"
#include "acquisition/scanner/PageAssembly.h"
#include "tests/fuzz/Fuzzers.h"

#include <cstring>

using namespace tarsel;
using fuzz::require;

namespace {

/// What could be unpacked can be shown and set.
void tryOptions(std::span<const std::byte> bytes) {
    const auto options = unpackOptions(bytes);
    if (!options)
        return;
    require(options->all().size() <= bytes.size(), "there are no more options than bytes");
    for (const ScanOption& option : options->all())
        for (const ScanValue& choice : option.choices)
            require(option.type != ScanOptionType::String || std::holds_alternative<QString>(choice) ||
                        choice == ScanValue(),
                    "choices have the type of their option");
    options->settingsForArea(options->wholeArea());
    options->settingsForResolution(options->dpiX());
    scanValueFromText(options->all().empty() ? ScanOption() : options->all().front(), QStringLiteral("1"));
}

/// The frame's record, then its lines in two pieces. Its size is kept small: memory is not what is tried
/// here.
void tryPage(std::span<const std::byte> bytes) {
    ScannerFrame frame;
    if (bytes.size() < sizeof frame)
        return;
    std::memcpy(&frame, bytes.data(), sizeof frame);
    constexpr int most = 3000;
    frame.pixelsPerLine %= most;
    frame.bytesPerLine %= 8 * most;
    frame.lines %= most;
    const auto lines = bytes.subspan(sizeof frame);
    PageAssembly page;
    if (!page.begin(frame))
        return;
    require(page.add(lines.first(lines.size() / 3)) && page.add(lines.subspan(lines.size() / 3)),
            "there is room for lines of this size");
    page.end();
    const auto complete = std::int64_t(lines.size()) / frame.bytesPerLine;
    require(page.lines() == complete, "every complete line counts");
    const Picture picture = page.take();
    require(picture.isNull() == (complete == 0), "a page without a line is none");
    require(picture.isNull() || picture.height() == complete, "a page is as high as its lines");
}

} // namespace

void fuzz::readScannerAnswer(const QByteArray& bytes) {
    const auto all = std::as_bytes(std::span(bytes.constData(), std::size_t(bytes.size())));
    if (all.empty())
        return;
    switch (int(all[0]) % 3) {
    case 0:
        return tryOptions(all.subspan(1));
    case 1:
        return tryPage(all.subspan(1));
    default:
        unpackDevices(all.subspan(1));
    }
}
