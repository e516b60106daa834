// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/OptionDecoding.h"

#include "acquisition/scanner/PackedRecords.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr double fixedScale = 65536;

// As SANE_CAP and SANE_Constraint_Type.
constexpr int canBeSelected = 1, canBeAutomatic = 16, isInactive = 32, isAdvanced = 64;
enum Constraint { NoConstraint, RangeConstraint, WordListConstraint, StringListConstraint };

/// Only printable characters are passed on.
QString textOf(PackedReader& reader) {
    const std::string_view bytes = reader.text();
    QString text = QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
    std::ranges::replace_if(
        text, [](QChar c) { return !c.isPrint(); }, QLatin1Char(' '));
    return text;
}

/// Names and values of text options go back as they came.
QString exactTextOf(PackedReader& reader) {
    const std::string_view bytes = reader.text();
    return QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
}

template <class Enum>
Enum enumOf(std::int32_t number, Enum last) {
    return Enum(std::clamp(number, 0, std::int32_t(last)));
}

double numberOfWord(ScanOptionType type, std::int32_t word) {
    return type == ScanOptionType::Fixed ? word / fixedScale : word;
}

/// A driver can send a constraint of another kind than its option's values; such a one is dropped.
bool fits(std::int32_t constraint, ScanOptionType type) {
    const bool isNumber = type == ScanOptionType::Int || type == ScanOptionType::Fixed;
    return constraint == StringListConstraint ? type == ScanOptionType::String : isNumber;
}

void unpackConstraint(PackedReader& reader, ScanOption& option) {
    const std::int32_t kind = reader.number();
    if (kind == RangeConstraint) {
        const auto number = [&] { return numberOfWord(option.type, reader.number()); };
        ScanRange range;
        range.minimum = number();
        range.maximum = number();
        range.step = number();
        if (fits(kind, option.type) && range.minimum <= range.maximum)
            option.range = range;
        return;
    }
    if (kind != WordListConstraint && kind != StringListConstraint)
        return;
    const std::int32_t count = reader.number();
    for (std::int32_t i = 0; i < count && !reader.hasFailed(); ++i) {
        if (kind == WordListConstraint) {
            option.choices.push_back(scanValueOfWord(option.type, reader.number()));
        } else {
            option.choices.emplace_back(exactTextOf(reader));
            option.choiceTexts << textOf(reader);
        }
    }
    if (!fits(kind, option.type)) {
        option.choices.clear();
        option.choiceTexts.clear();
    }
}

ScanOption unpackOption(PackedReader& reader) {
    ScanOption option;
    option.name = textOf(reader);
    option.title = textOf(reader);
    option.description = textOf(reader);
    option.type = enumOf(reader.number(), ScanOptionType::Group);
    option.unit = enumOf(reader.number(), ScanUnit::Microsecond);
    const std::int32_t capabilities = reader.number();
    const bool isOneValue = reader.number() == 1;
    option.isActive = !(capabilities & isInactive) && option.type != ScanOptionType::Group;
    option.isSettable = (capabilities & canBeSelected) && isOneValue;
    option.isAdvanced = capabilities & isAdvanced;
    option.isAutomatic = capabilities & canBeAutomatic;
    unpackConstraint(reader, option);
    if (reader.number() != 0)
        option.value = option.type == ScanOptionType::String ? ScanValue(exactTextOf(reader))
                                                             : scanValueOfWord(option.type, reader.number());
    return option;
}

} // namespace

std::optional<std::vector<ScanDevice>> unpackDevices(std::span<const std::byte> bytes) {
    PackedReader reader(bytes);
    std::vector<ScanDevice> devices;
    while (!reader.isAtEnd() && !reader.hasFailed()) {
        ScanDevice& device = devices.emplace_back();
        device.name = exactTextOf(reader);
        for (QString* text : {&device.vendor, &device.model, &device.type})
            *text = textOf(reader);
    }
    return reader.hasFailed() ? std::nullopt : std::optional(devices);
}

std::optional<ScanOptions> unpackOptions(std::span<const std::byte> bytes) {
    PackedReader reader(bytes);
    std::vector<ScanOption> options;
    while (!reader.isAtEnd() && !reader.hasFailed())
        options.push_back(unpackOption(reader));
    return reader.hasFailed() ? std::nullopt : std::optional(ScanOptions(std::move(options)));
}

std::optional<std::int32_t> scanWord(const ScanOption& option, const ScanValue& value) {
    if (const bool* isOn = std::get_if<bool>(&value))
        return *isOn;
    double number = 0;
    if (const int* whole = std::get_if<int>(&value))
        number = *whole;
    else if (const double* fixed = std::get_if<double>(&value))
        number = *fixed;
    else
        return {};
    number = std::round(option.type == ScanOptionType::Fixed ? number * fixedScale : number);
    const bool fits = std::abs(number) <= double(std::numeric_limits<std::int32_t>::max());
    return fits ? std::optional(std::int32_t(number)) : std::nullopt;
}

ScanValue scanValueOfWord(ScanOptionType type, std::int32_t word) {
    switch (type) {
    case ScanOptionType::Bool:
        return word != 0;
    case ScanOptionType::Int:
        return word;
    case ScanOptionType::Fixed:
        return numberOfWord(type, word);
    case ScanOptionType::String:
    case ScanOptionType::Button:
    case ScanOptionType::Group:
        break;
    }
    return {};
}

} // namespace tarsel
