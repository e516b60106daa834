// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QString>
#include <QStringList>
#include <optional>
#include <variant>
#include <vector>

namespace tarsel {

/// A scanner, as the scanner service lists it.
struct ScanDevice {
    QString name; ///< by which it is opened, such as "test:0"
    QString vendor;
    QString model;
    QString type; ///< in the service's words: "flatbed scanner"

    bool operator==(const ScanDevice&) const = default;
};

enum class ScanOptionType { Bool, Int, Fixed, String, Button, Group };
enum class ScanUnit { None, Pixel, Bit, Millimetre, Dpi, Percent, Microsecond };

/// Nothing (of buttons, groups, inactive options, lists of numbers), or a value of the option's type. Fixed
/// numbers are double.
using ScanValue = std::variant<std::monostate, bool, int, double, QString>;

/// What a number may be. A step of 0 allows every value.
struct ScanRange {
    double minimum = 0;
    double maximum = 0;
    double step = 0;
};

struct ScanOption {
    QString name;        ///< "resolution"; empty for groups
    QString title;       ///< for the label of a control; translated where the scanner service can
    QString description; ///< for a tool tip
    ScanOptionType type = ScanOptionType::Group;
    ScanUnit unit = ScanUnit::None;
    std::optional<ScanRange> range = {};
    std::vector<ScanValue> choices = {}; ///< of the option's type; empty where there is no list
    QStringList choiceTexts = {};        ///< of texts in the user's language, beside the choices
    ScanValue value = {};
    bool isActive = false;    ///< has a meaning with the options as they are; false for hidden ones
    bool isSettable = false;  ///< by software, and one value; false for keys and sensors of the device
    bool isAdvanced = false;  ///< belongs in a page for experts
    bool isAutomatic = false; ///< the device can choose the value itself

    bool canBeSet() const { return isActive && isSettable; }
    /// As number; nothing for texts and buttons.
    std::optional<double> number() const;
    QString text() const; ///< of the value, without the unit: "yes", "300", "Color"
};

/// A value that an option is to get. Without a value a button is pressed, and another option is left to the
/// device where it can choose.
struct ScanSetting {
    QString name;
    ScanValue value = {};
};

/// A number that the device took only in a rounded form.
struct RoundedSetting {
    QString name;
    ScanValue wanted;
    ScanValue taken;
};

namespace scanOption {
inline const QString resolution = QStringLiteral("resolution");
inline const QString xResolution = QStringLiteral("x-resolution");
inline const QString yResolution = QStringLiteral("y-resolution");
inline const QString mode = QStringLiteral("mode");
inline const QString depth = QStringLiteral("depth");
inline const QString source = QStringLiteral("source");
inline const QString left = QStringLiteral("tl-x");
inline const QString top = QStringLiteral("tl-y");
inline const QString right = QStringLiteral("br-x");
inline const QString bottom = QStringLiteral("br-y");
inline const QString brightness = QStringLiteral("brightness");
inline const QString contrast = QStringLiteral("contrast");
inline const QString threshold = QStringLiteral("threshold");
inline const QString preview = QStringLiteral("preview");
} // namespace scanOption

/// All options of an open device in its order, groups in front of their members.
class ScanOptions {
public:
    ScanOptions() = default;
    explicit ScanOptions(std::vector<ScanOption> options) : m_options(std::move(options)) {}

    const std::vector<ScanOption>& all() const { return m_options; }
    bool isEmpty() const { return m_options.empty(); }
    /// Null where the device has no such option.
    const ScanOption* find(const QString& name) const;
    /// The same, but null also where it can't be set at present.
    const ScanOption* findSettable(const QString& name) const;
    /// The option that turns both sides on: a switch, or a list with "Duplex". Null where the device has none
    /// or lists it among its sources.
    const ScanOption* duplex() const;
    /// The value that duplex() has with both sides, or with one.
    ScanValue duplexValue(bool bothSides) const;
    /// The chosen source takes page after page. Nothing where the device has no list of sources.
    std::optional<bool> isFeeder() const;
    /// Pixels an inch at present, horizontally and vertically; 0 where the device doesn't say.
    double dpiX() const;
    double dpiY() const;
    /// The area that is scanned, and the largest one, in millimetres from the top left. Empty where the
    /// device has no choice of area.
    QRectF area() const;
    QRectF wholeArea() const;
    /// What sets the area, in millimetres, within the device's limits and in its unit.
    std::vector<ScanSetting> settingsForArea(const QRectF& millimetres) const;
    /// What sets the resolution: one option or two.
    std::vector<ScanSetting> settingsForResolution(double dpi) const;

private:
    std::vector<ScanOption> m_options;
};

/// A source of this name takes page after page.
bool isFeederSource(const QString& source);

/// Nothing where the text is not a value that the option can have; "yes", "no" and the like for switches.
/// A number within the range but off its steps is one.
std::optional<ScanValue> scanValueFromText(const ScanOption& option, const QString& text);

QString scanValueText(const ScanValue& value);

} // namespace tarsel
