// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScanOption.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr double millimetresPerInch = 25.4;

std::optional<double> numberOf(const ScanValue& value) {
    if (const int* whole = std::get_if<int>(&value))
        return *whole;
    if (const double* fixed = std::get_if<double>(&value))
        return *fixed;
    return {};
}

/// The numbers that an option can have, from the lowest to the highest; without an end where nothing limits
/// it.
ScanRange limitsOf(const ScanOption& option) {
    if (option.range)
        return *option.range;
    constexpr double anything = 1e9;
    ScanRange limits{-anything, anything, 0};
    std::vector<double> numbers;
    for (const ScanValue& choice : option.choices)
        numbers.push_back(numberOf(choice).value_or(0));
    if (!numbers.empty())
        limits = {*std::ranges::min_element(numbers), *std::ranges::max_element(numbers), 0};
    return limits;
}

ScanValue valueOf(const ScanOption& option, double number) {
    const ScanRange limits = limitsOf(option);
    number = std::clamp(number, limits.minimum, limits.maximum);
    if (option.type == ScanOptionType::Int)
        return int(std::lround(number));
    return number;
}

/// The choice that is nearest to the number; the number itself where there are no choices.
ScanValue nearestValue(const ScanOption& option, double number) {
    const auto distance = [&](const ScanValue& choice) {
        return std::abs(numberOf(choice).value_or(0) - number);
    };
    if (option.choices.empty())
        return valueOf(option, number);
    return *std::ranges::min_element(option.choices, {}, distance);
}

bool hasDuplex(const QString& text) {
    return text.contains(QLatin1String("duplex"), Qt::CaseInsensitive);
}

std::optional<ScanValue> boolFromText(const QString& text) {
    const QString word = text.toLower();
    if ((QStringList{QStringLiteral("yes"), QStringLiteral("true"), QStringLiteral("on"),
                     QStringLiteral("1")})
            .contains(word))
        return ScanValue(true);
    if ((QStringList{QStringLiteral("no"), QStringLiteral("false"), QStringLiteral("off"),
                     QStringLiteral("0")})
            .contains(word))
        return ScanValue(false);
    return {};
}

std::optional<ScanValue> numberFromText(const ScanOption& option, const QString& text) {
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    const ScanRange limits = limitsOf(option);
    constexpr double rounding = 1e-4; // of fixed numbers
    const bool isWhole = number == std::floor(number);
    if (!isNumber || !std::isfinite(number) || number < limits.minimum - rounding ||
        number > limits.maximum + rounding || (option.type == ScanOptionType::Int && !isWhole))
        return {};
    const ScanValue nearest = nearestValue(option, number);
    if (!option.choices.empty() && std::abs(*numberOf(nearest) - number) > 0.01)
        return {};
    return nearest;
}

std::optional<ScanValue> choiceFromText(const ScanOption& option, const QString& text) {
    if (option.choices.empty())
        return ScanValue(text);
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (const ScanValue& choice : option.choices)
            if (std::get<QString>(choice).compare(text, sensitivity) == 0)
                return choice;
    return {};
}

} // namespace

std::optional<double> ScanOption::number() const {
    return numberOf(value);
}

QString ScanOption::text() const {
    return scanValueText(value);
}

QString scanValueText(const ScanValue& value) {
    if (const bool* isOn = std::get_if<bool>(&value))
        return *isOn ? QStringLiteral("yes") : QStringLiteral("no");
    if (const QString* text = std::get_if<QString>(&value))
        return *text;
    if (const std::optional<double> number = numberOf(value))
        return QString::number(std::round(*number * 1000) / 1000, 'g', 12);
    return {};
}

std::optional<ScanValue> scanValueFromText(const ScanOption& option, const QString& text) {
    switch (option.type) {
    case ScanOptionType::Bool:
        return boolFromText(text);
    case ScanOptionType::Int:
    case ScanOptionType::Fixed:
        return numberFromText(option, text);
    case ScanOptionType::String:
        return choiceFromText(option, text);
    case ScanOptionType::Button:
    case ScanOptionType::Group:
        break;
    }
    return {};
}

bool isFeederSource(const QString& source) {
    return source.contains(QLatin1String("adf"), Qt::CaseInsensitive) ||
           source.contains(QLatin1String("feeder"), Qt::CaseInsensitive) || hasDuplex(source);
}

const ScanOption* ScanOptions::find(const QString& name) const {
    const auto found = std::ranges::find(m_options, name, &ScanOption::name);
    return found == m_options.end() || name.isEmpty() ? nullptr : &*found;
}

const ScanOption* ScanOptions::findSettable(const QString& name) const {
    const ScanOption* option = find(name);
    return option && option->canBeSet() ? option : nullptr;
}

const ScanOption* ScanOptions::duplex() const {
    const auto isDuplex = [](const ScanOption& option) {
        const bool isSwitch = option.type == ScanOptionType::Bool && hasDuplex(option.name);
        const bool isMode = option.name.startsWith(QLatin1String("adf")) &&
                            std::ranges::any_of(option.choices, [](const ScanValue& choice) {
                                return hasDuplex(scanValueText(choice));
                            });
        return option.canBeSet() && (isSwitch || isMode);
    };
    const auto found = std::ranges::find_if(m_options, isDuplex);
    return found == m_options.end() ? nullptr : &*found;
}

ScanValue ScanOptions::duplexValue(bool bothSides) const {
    const ScanOption* option = duplex();
    if (!option || option->type == ScanOptionType::Bool)
        return bothSides;
    for (const ScanValue& choice : option->choices)
        if (hasDuplex(scanValueText(choice)) == bothSides)
            return choice;
    return {};
}

std::optional<bool> ScanOptions::isFeeder() const {
    const ScanOption* source = find(scanOption::source);
    if (!source || source->type != ScanOptionType::String || !source->isActive)
        return {};
    return isFeederSource(source->text());
}

double ScanOptions::dpiX() const {
    for (const QString& name : {scanOption::resolution, scanOption::xResolution})
        if (const ScanOption* option = find(name); option && option->isActive)
            return option->number().value_or(0);
    return 0;
}

double ScanOptions::dpiY() const {
    const ScanOption* option = find(scanOption::yResolution);
    return option && option->isActive ? option->number().value_or(dpiX()) : dpiX();
}

namespace {

/// Of an edge of the area, in millimetres.
double millimetresOf(const ScanOption& option, double number, double dpi) {
    return option.unit == ScanUnit::Pixel && dpi > 0 ? number / dpi * millimetresPerInch : number;
}

double inUnitOf(const ScanOption& option, double millimetres, double dpi) {
    return option.unit == ScanUnit::Pixel ? millimetres * dpi / millimetresPerInch : millimetres;
}

} // namespace

QRectF ScanOptions::area() const {
    const auto edge = [this](const QString& name, double dpi) {
        const ScanOption* option = find(name);
        return option ? millimetresOf(*option, option->number().value_or(0), dpi) : 0;
    };
    return {QPointF(edge(scanOption::left, dpiX()), edge(scanOption::top, dpiY())),
            QPointF(edge(scanOption::right, dpiX()), edge(scanOption::bottom, dpiY()))};
}

QRectF ScanOptions::wholeArea() const {
    const auto edge = [this](const QString& name, double ScanRange::*end, double dpi) {
        const ScanOption* option = find(name);
        return option ? millimetresOf(*option, limitsOf(*option).*end, dpi) : 0;
    };
    return {QPointF(edge(scanOption::left, &ScanRange::minimum, dpiX()),
                    edge(scanOption::top, &ScanRange::minimum, dpiY())),
            QPointF(edge(scanOption::right, &ScanRange::maximum, dpiX()),
                    edge(scanOption::bottom, &ScanRange::maximum, dpiY()))};
}

std::vector<ScanSetting> ScanOptions::settingsForArea(const QRectF& millimetres) const {
    std::vector<ScanSetting> settings;
    const auto set = [&](const QString& name, double edge, double dpi) {
        if (const ScanOption* option = findSettable(name))
            settings.push_back({name, nearestValue(*option, inUnitOf(*option, edge, dpi))});
    };
    // The far corner first where the area moves away, so that it is never inside out on its way.
    const bool movesAway = millimetres.left() > area().left() || millimetres.top() > area().top();
    const auto farCorner = [&] {
        set(scanOption::right, millimetres.right(), dpiX());
        set(scanOption::bottom, millimetres.bottom(), dpiY());
    };
    if (movesAway)
        farCorner();
    set(scanOption::left, millimetres.left(), dpiX());
    set(scanOption::top, millimetres.top(), dpiY());
    if (!movesAway)
        farCorner();
    return settings;
}

std::vector<ScanSetting> ScanOptions::settingsForResolution(double dpi) const {
    std::vector<ScanSetting> settings;
    for (const QString& name : {scanOption::resolution, scanOption::xResolution, scanOption::yResolution})
        if (const ScanOption* option = findSettable(name))
            settings.push_back({name, nearestValue(*option, dpi)});
    return settings;
}

} // namespace tarsel
