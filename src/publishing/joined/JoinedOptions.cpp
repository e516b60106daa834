// SPDX-License-Identifier: MIT
#include "publishing/joined/JoinedOptions.h"

#include "bytes/ByteReader.h"

#include <limits>

namespace tarsel::joined {

namespace {

constexpr ByteOrder order = ByteOrder::Little;

/// Every number of the record behind the text, in its order.
template <class Options, class Visit>
void visitNumbers(Options& options, const Visit& visit) {
    visit(options.rollingTextColor);
    visit(options.clockKind);
    visit(options.showDate);
    visit(options.dateColor);
    visit(options.digitalColor);
    visit(options.hourColor);
    visit(options.minuteColor);
    visit(options.secondColor);
}

} // namespace

std::string bytesOf(const SaverOptions& options) {
    auto bytes = numberBytes<std::string>(options.backColor, order);
    appendNumber(bytes, options.interval, order);
    return bytes;
}

std::optional<std::string> bytesOf(const EffectOptions& options) {
    const std::string& text = options.rollingText;
    if (text.size() > std::numeric_limits<std::uint16_t>::max())
        return std::nullopt;
    auto bytes = numberBytes<std::string>(std::uint16_t(text.size()), order) + text;
    visitNumbers(options, [&](auto number) { appendNumber(bytes, number, order); });
    return bytes;
}

std::optional<SaverOptions> saverOptions(std::string_view bytes) {
    const ByteReader reader(bytes, order);
    const auto color = reader.number<std::int32_t>(0);
    const auto interval = reader.number<std::int16_t>(4);
    if (!color || !interval)
        return std::nullopt;
    return SaverOptions{*color, *interval};
}

std::optional<EffectOptions> effectOptions(std::string_view bytes) {
    const ByteReader reader(bytes, order);
    const auto length = reader.word(0);
    if (!length || !reader.slice(2, *length))
        return std::nullopt;
    EffectOptions options;
    options.rollingText = bytes.substr(2, *length);
    std::int64_t at = 2 + *length;
    bool isComplete = true;
    visitNumbers(options, [&]<class Number>(Number& field) {
        const auto number = reader.number<Number>(at);
        field = number.value_or(Number());
        isComplete = isComplete && number;
        at += std::int64_t(sizeof(Number));
    });
    return isComplete ? std::optional(options) : std::nullopt;
}

} // namespace tarsel::joined
