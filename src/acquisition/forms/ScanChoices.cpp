// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScanChoices.h"

#include "acquisition/forms/ScanOptionEditor.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int usualResolutions[] = {75, 100, 150, 200, 300, 400, 600, 1200, 2400, 4800, 9600};

struct KnownWord {
    const char* value;
    const char* text;
};

/// Those that most drivers have.
constexpr KnownWord knownWords[] = {
    {"Lineart", QT_TRANSLATE_NOOP("ScanChoices", "Black and white")},
    {"Halftone", QT_TRANSLATE_NOOP("ScanChoices", "Black and white, halftone")},
    {"Gray", QT_TRANSLATE_NOOP("ScanChoices", "Gray")},
    {"Color", QT_TRANSLATE_NOOP("ScanChoices", "Color")},
    {"Flatbed", QT_TRANSLATE_NOOP("ScanChoices", "Flatbed")},
    {"ADF", QT_TRANSLATE_NOOP("ScanChoices", "Feeder")},
    {"ADF Front", QT_TRANSLATE_NOOP("ScanChoices", "Feeder, front side")},
    {"ADF Back", QT_TRANSLATE_NOOP("ScanChoices", "Feeder, back side")},
    {"ADF Duplex", QT_TRANSLATE_NOOP("ScanChoices", "Feeder, both sides")},
    {"Automatic Document Feeder", QT_TRANSLATE_NOOP("ScanChoices", "Automatic document feeder")},
};

bool isResolution(const ScanOption& option) {
    return option.name == scanOption::resolution || option.name == scanOption::xResolution ||
           option.name == scanOption::yResolution;
}

std::vector<ScanValue> resolutionsWithin(const ScanOption& option) {
    std::vector<ScanValue> offered;
    for (const int dpi : usualResolutions)
        if (dpi >= option.range->minimum && dpi <= option.range->maximum)
            offered.push_back(numberFor(option, dpi));
    return offered;
}

} // namespace

double numberOf(const ScanValue& value) {
    const int* const whole = std::get_if<int>(&value);
    const double* const fixed = std::get_if<double>(&value);
    return whole ? *whole : fixed ? *fixed : 0;
}

ScanValue numberFor(const ScanOption& option, double number) {
    if (option.type == ScanOptionType::Int)
        return int(std::lround(number));
    return number;
}

std::vector<ScanValue> offeredChoices(const ScanOption& option) {
    std::vector<ScanValue> offered = option.choices;
    if (offered.empty() && option.range && isResolution(option))
        offered = resolutionsWithin(option);
    const bool hasValue = option.value.index() > 0;
    if (hasValue && std::ranges::find(offered, option.value) == offered.end()) {
        offered.push_back(option.value);
        if (isResolution(option))
            std::ranges::stable_sort(offered, {}, numberOf);
    }
    return offered;
}

QString choiceText(const ScanOption& option, const ScanValue& choice) {
    const QString text = scanValueText(choice);
    if (option.type != ScanOptionType::String)
        return text + unitSuffix(option.unit);
    for (const KnownWord& known : knownWords)
        if (text == QLatin1String(known.value))
            return QCoreApplication::translate("ScanChoices", known.text);
    const auto place = std::ranges::find(option.choices, choice) - option.choices.begin();
    return option.choiceTexts.value(place, text);
}

void fillChoices(QComboBox& list, const ScanOption& option) {
    const QSignalBlocker quiet(list);
    const std::vector<ScanValue> offered = offeredChoices(option);
    bool isSame = list.count() == int(offered.size());
    for (int i = 0; isSame && i < list.count(); ++i)
        isSame = list.itemData(i).value<ScanValue>() == offered[std::size_t(i)];
    if (!isSame) {
        list.clear();
        for (const ScanValue& each : offered)
            list.addItem(choiceText(option, each), QVariant::fromValue(each));
    }
    list.setCurrentIndex(int(std::ranges::find(offered, option.value) - offered.begin()));
}

} // namespace tarsel
