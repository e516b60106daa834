// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ScanOptionList.h"

#include "cli/Arguments.h"
#include "cli/Command.h"
#include "cli/Terminal.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ScanOptionList)
};

const char* unitText(ScanUnit unit) {
    constexpr const char* texts[] = {"", "pixels", "bits", "mm", "dpi", "%", "us"};
    return texts[int(unit)];
}

const char* typeText(ScanOptionType type) {
    constexpr const char* texts[] = {"bool", "int", "fixed", "string", "button", "group"};
    return texts[int(type)];
}

QString withUnit(const QString& text, const ScanOption& option) {
    return option.unit == ScanUnit::None ? text : text + u' ' + QLatin1String(unitText(option.unit));
}

/// "Gray | Color", "1 to 1200 dpi".
QString possibleValues(const ScanOption& option) {
    if (option.type == ScanOptionType::Bool)
        return QStringLiteral("yes | no");
    if (option.range)
        return withUnit(Texts::tr("%1 to %2")
                            .arg(scanValueText(option.range->minimum), scanValueText(option.range->maximum)),
                        option);
    QStringList texts;
    for (const ScanValue& choice : option.choices)
        texts << scanValueText(choice);
    return withUnit(texts.join(QStringLiteral(" | ")), option);
}

const ScanOption& settable(const ScanOptions& options, const QString& name) {
    if (const ScanOption* option = options.findSettable(name))
        return *option;
    throw UsageError{
        Texts::tr("the scanner has no option \"%1\" that can be set at present; --options lists them")
            .arg(name)};
}

ScanValue valueFor(const ScanOption& option, const QString& text) {
    if (option.type == ScanOptionType::Button)
        return {};
    if (const std::optional<ScanValue> value = scanValueFromText(option, text))
        return *value;
    throw UsageError{
        Texts::tr("%1 can't be \"%2\"; possible: %3").arg(option.name, text, possibleValues(option))};
}

void setAndReport(ScannerProcess& scanner, const std::vector<ScanSetting>& settings, Terminal& terminal) {
    for (const RoundedSetting& rounded : scanner.set(settings))
        terminal.message(Texts::tr("tarsel: %1 is %2 instead of %3")
                             .arg(rounded.name, scanValueText(rounded.taken), scanValueText(rounded.wanted)));
}

/// One at a time: what an option can be depends on those before it.
void setFromText(ScannerProcess& scanner, const QString& name, const QString& text, Terminal& terminal) {
    setAndReport(scanner, {{name, valueFor(settable(scanner.options(), name), text)}}, terminal);
}

/// Scanners have one option for both directions, or two.
void setResolution(ScannerProcess& scanner, const QString& text, Terminal& terminal) {
    if (scanner.options().findSettable(scanOption::resolution))
        return setFromText(scanner, scanOption::resolution, text, terminal);
    setFromText(scanner, scanOption::xResolution, text, terminal);
    setFromText(scanner, scanOption::yResolution, text, terminal);
}

QRectF areaIn(const QString& text) {
    QList<double> numbers;
    for (const QString& part : text.split(u',')) {
        bool isNumber = false;
        numbers << part.toDouble(&isNumber);
        if (!isNumber)
            numbers.clear();
    }
    const bool isArea =
        numbers.size() == 4 && numbers[0] >= 0 && numbers[1] >= 0 && numbers[2] > 0 && numbers[3] > 0;
    if (!isArea)
        throw UsageError{Texts::tr("--area takes X,Y,W,H in millimetres, not \"%1\"").arg(text)};
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

void setArea(ScannerProcess& scanner, const QString& text, Terminal& terminal) {
    constexpr double rounding = 0.1;
    const QRectF area = areaIn(text);
    const QRectF whole = scanner.options().wholeArea();
    if (!whole.adjusted(-rounding, -rounding, rounding, rounding).contains(area))
        throw UsageError{Texts::tr("--area %1 is not within %2 x %3 mm")
                             .arg(text, scanValueText(whole.right()), scanValueText(whole.bottom()))};
    setAndReport(scanner, scanner.options().settingsForArea(area), terminal);
}

} // namespace

void applyScanOptions(ScannerProcess& scanner, const Arguments& arguments, Terminal& terminal) {
    for (const auto& [word, name] :
         {std::pair("source", scanOption::source), std::pair("mode", scanOption::mode),
          std::pair("depth", scanOption::depth)})
        if (arguments.has(word))
            setFromText(scanner, name, arguments.value(word), terminal);
    if (arguments.has("resolution"))
        setResolution(scanner, arguments.value("resolution"), terminal);
    if (arguments.has("area"))
        setArea(scanner, arguments.value("area"), terminal);
    for (const QString& setting : arguments.values("set"))
        setFromText(scanner, setting.section(u'=', 0, 0), setting.section(u'=', 1), terminal);
}

int listScanOptions(const ScanOptions& options, Terminal& terminal, bool json) {
    for (const ScanOption& option : options.all()) {
        if (!option.canBeSet())
            continue;
        QList<JsonLine> choices;
        for (const ScanValue& choice : option.choices)
            choices << JsonLine().add("value", scanValueText(choice));
        terminal.result(json ? JsonLine()
                                   .add("option", option.name)
                                   .add("title", option.title)
                                   .add("type", QLatin1String(typeText(option.type)))
                                   .add("unit", QLatin1String(unitText(option.unit)))
                                   .add("value", option.text())
                                   .add("possible", possibleValues(option))
                                   .add("choices", choices)
                                   .text()
                             : Texts::tr("%1=%2  (%3) %4")
                                   .arg(option.name, option.text(), possibleValues(option), option.title));
    }
    return AllDone;
}

} // namespace tarsel::cli
