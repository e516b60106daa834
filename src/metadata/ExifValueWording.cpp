// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/ErrorTrap.h"
#include "metadata/ExifVocabulary.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cmath>

namespace tarsel::modMetadata {

namespace {

/// A text of the tables in the user's language.
QString inWords(const char* text) {
    return *text ? QCoreApplication::translate("Exif", text) : QString();
}

/// A quotient of the two numbers of a rational; error 11 for a divisor of zero.
double quotient(qint32 dividend, qint32 divisor) {
    if (divisor == 0)
        fail(ErrorNumber::DivisionByZero);
    return double(dividend) / divisor;
}

double ratio(const QString& value) {
    return quotient(RationalNumerator(value), RationalDenominator(value));
}

/// `base` to the power of an APEX value, to one decimal place.
QString apexText(double base, const QString& value) {
    const double tenths = std::pow(base, ratio(value)) * 10;
    if (!std::isfinite(tenths))
        fail(ErrorNumber::Overflow);
    return numberText(roundHalfEven(tenths) / 10);
}

QString exposureTime(const QString& value) {
    const double perSecond = quotient(RationalDenominator(value), RationalNumerator(value));
    return QStringLiteral("1/") + numberText(perSecond) + QStringLiteral(" s");
}

QString focalRatio(const QString& value) {
    return QStringLiteral("f/") + numberText(ratio(value));
}

QString exposureBias(const QString& value) {
    return formatNumber(ratio(value), QStringLiteral("0.00")) + QStringLiteral(" EV");
}

QString aperture(const QString& value) {
    return QStringLiteral("f/") + apexText(std::sqrt(2.0), value);
}

QString shutterSpeed(const QString& value) {
    return QStringLiteral("1/") + apexText(2, value) + QStringLiteral(" s");
}

QString focalLength(const QString& value) {
    return numberText(ratio(value)) + QStringLiteral(" mm");
}

QString focalLengthOnFilm(const QString& value) {
    return value + QStringLiteral(" mm");
}

QString zoomRatio(const QString& value) {
    return QStringLiteral("%1:%2").arg(RationalNumerator(value)).arg(RationalDenominator(value));
}

QString numeratorOnly(const QString& value) {
    return QString::number(RationalNumerator(value));
}

/// The raw text is four digits as bytes in hexadecimal, "30,32,32,30": the low digits of the second and the
/// third byte are the version.
QString exifVersion(const QString& value) {
    return value.mid(4, 1) + u'.' + value.mid(7, 1);
}

QString flashPixVersion(const QString& value) {
    static constexpr std::array versions{"30,31,30,30", "30,30,31,30", "30,30,30,31", "31,30,30,30"};
    const auto isVersion = [trimmed = value.trimmed()](const char* other) {
        return trimmed == QLatin1String(other);
    };
    return std::ranges::any_of(versions, isVersion) ? QStringLiteral("1.0") : QString();
}

struct RawWord {
    const char* value;
    const char* text;
};
constexpr std::array componentWords{
    RawWord{"04,05,06,00", QT_TRANSLATE_NOOP("Exif", "RGB")},
    RawWord{"00,06,05,04", QT_TRANSLATE_NOOP("Exif", "RGB")},
    RawWord{"00,04,05,06", QT_TRANSLATE_NOOP("Exif", "RGB")},
    RawWord{"04,05,06", QT_TRANSLATE_NOOP("Exif", "RGB")},
    RawWord{"06,05,04", QT_TRANSLATE_NOOP("Exif", "RGB")},
    RawWord{"01,02,03,00", QT_TRANSLATE_NOOP("Exif", "YCrCb")},
    RawWord{"00,03,02,01", QT_TRANSLATE_NOOP("Exif", "YCrCb")},
    RawWord{"00,01,02,03", QT_TRANSLATE_NOOP("Exif", "YCrCb")},
    RawWord{"01,02,03", QT_TRANSLATE_NOOP("Exif", "YCrCb")},
    RawWord{"03,02,01", QT_TRANSLATE_NOOP("Exif", "YCrCb")},
    RawWord{"00", QT_TRANSLATE_NOOP("Exif", "Does not exist")},
    RawWord{"01", QT_TRANSLATE_NOOP("Exif", "Y")},
    RawWord{"02", QT_TRANSLATE_NOOP("Exif", "Cr")},
    RawWord{"03", QT_TRANSLATE_NOOP("Exif", "Cb")},
    RawWord{"04", QT_TRANSLATE_NOOP("Exif", "Red")},
    RawWord{"05", QT_TRANSLATE_NOOP("Exif", "Green")},
    RawWord{"06", QT_TRANSLATE_NOOP("Exif", "Blue")},
};

QString components(const QString& value) {
    const auto isValue = [trimmed = value.trimmed()](const char* other) {
        return trimmed == QLatin1String(other);
    };
    const auto found = std::ranges::find_if(componentWords, isValue, &RawWord::value);
    return found == componentWords.end() ? QString() : inWords(found->text);
}

/// Attributes whose words are computed from the raw text.
struct Computed {
    const char* name;
    QString (*words)(const QString& value);
};
constexpr std::array computedAttributes{
    Computed{"ExposureTime", exposureTime},
    Computed{"FNumber", focalRatio},
    Computed{"ExposureBiasValue", exposureBias},
    Computed{"MaxApertureValue", aperture},
    Computed{"ApertureValue", aperture},
    Computed{"ShutterSpeedValue", shutterSpeed},
    Computed{"FocalLength", focalLength},
    Computed{"FocalLengthIn35mmFilm", focalLengthOnFilm},
    Computed{"DigitalZoomRatio", zoomRatio},
    Computed{"ExposureIndex", numeratorOnly},
    Computed{"CompressedBitsPerPixel", numeratorOnly},
    Computed{"ExifVersion", exifVersion},
    Computed{"FlashPixVersion", flashPixVersion},
    Computed{"ComponentsConfiguration", components},
};

QString wordOf(const ExifVocabulary& vocabulary, qint32 number) {
    const auto found = std::ranges::find(vocabulary.words, number, &ExifWord::value);
    return inWords(found == vocabulary.words.end() ? vocabulary.otherwise : found->text);
}

qint32 numberOrZero(const QString& text) {
    qint32 number = 0;
    ignoringErrors([&] { number = toInt32(text); });
    return number;
}

} // namespace

QString ExifValueInWords(const QString& name, const QString& value) {
    const auto isName = [&](const char* other) { return name == QLatin1String(other); };
    const auto computed = std::ranges::find_if(computedAttributes, isName, &Computed::name);
    if (computed != computedAttributes.end())
        return computed->words(value);
    const ExifVocabulary* vocabulary = exifVocabulary(name);
    return vocabulary ? wordOf(*vocabulary, toInt32(value)) : QString();
}

QString FormatExifAttributeValue(const QString& name, const QString& value) {
    TrappingString =
        QCoreApplication::translate("modMetadata", "Read exif attribute and interpret it to readable format");
    QString result;
    std::ignore = trap("modMetadata.fncEXIFInterpret", [&] { result = ExifValueInWords(name, value); });
    return result;
}

qint32 RationalNumerator(const QString& text) {
    const qsizetype slash = text.lastIndexOf(u'/');
    return slash < 0 ? 0 : numberOrZero(text.left(slash));
}

qint32 RationalDenominator(const QString& text) {
    return numberOrZero(text.mid(text.lastIndexOf(u'/') + 1));
}

} // namespace tarsel::modMetadata
