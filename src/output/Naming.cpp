// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/Naming.h"

#include "base/Clock.h"
#include "base/Conversions.h"
#include "base/ErrorTrap.h"
#include "codecs/Formats.h"
#include "collections/clsFileInfo.h"
#include "embedded/IptcFields.h"
#include "metadata/modMetadata.h"

#include <algorithm>

namespace tarsel {

namespace {

// A file name can't hold the usual separators of dates and times: points stand for them.
QString datePattern() {
    return QStringLiteral("m.d.yyyy");
}
QString dateTimePattern() {
    return QStringLiteral("m.d.yyyy h.mm.ss AM/PM");
}

QString resolution(int width, int height) {
    return QString::number(width) + QLatin1Char('x') + QString::number(height);
}

/// Two values of the picture's EXIF data with a sign between them; nothing when both are missing.
QString exifPair(const NamingFacts& facts, const char* first, QLatin1Char sign, const char* second) {
    const QString text = facts.metadata.ExifValueByName(QString::fromLatin1(first)) + sign +
                         facts.metadata.ExifValueByName(QString::fromLatin1(second));
    return text.trimmed() == sign ? QString() : text;
}

/// The first date attribute in the picture's own order. Attributes before it, and a picture without a
/// date attribute, yield the present moment; a picture without EXIF data yields nothing.
void exifDate(const NamingFacts& facts, const QString& pattern, QString& result) {
    for (int i = 0; i < facts.metadata.ExifCount(); ++i) {
        if (modMetadata::IsExifDate(facts.metadata.ExifName(i))) {
            result = formatDate(exifTextToDate(facts.metadata.ExifValue(i).trimmed()), pattern);
            return;
        }
        result = formatDate(service<Clock>().now(), pattern);
    }
}

/// Kilobytes that the picture takes in a format that is offered with this token; empty for other formats.
QString encodedSize(const NamingFacts& facts) {
    const bool offered = facts.extension == QLatin1String("tif") || facts.extension == QLatin1String("pdf");
    if (!offered || !isWritable(facts.extension) || !facts.box)
        return {};
    const QByteArray bytes = encodePicture(facts.extension, facts.box->picture(), facts.box->saveSettings(),
                                           facts.metadata.blocks());
    return numberText(roundHalfEven(double(bytes.size()) / 1024)) + QStringLiteral("Kb");
}

clsFileInfo& factsOfFile(const NamingFacts& facts) {
    FileInfo().setFilePath(facts.path);
    return FileInfo();
}

void iptc(const NamingFacts& facts, const char* member, QString& result) {
    result = facts.metadata.HasIptc() ? iptcText(facts.metadata, member) : QString();
}

/// A picture with IPTC data but without that date yields the empty date.
void iptcMoment(const NamingFacts& facts, const char* member, QString& result) {
    if (facts.metadata.HasIptc())
        result = formatDate(iptcDate(facts.metadata, member), dateTimePattern());
}

struct NamingToken {
    const char* text;
    TokenNeeds needs;
    void (*evaluate)(const NamingFacts&, QString& result); ///< null: stands for itself
};

/// The first 25 are offered, in this order. Two of these have no meaning of their own and stand for
/// themselves; the spellings that have it come last and can only be typed.
constexpr int offeredTokens = 25;
constexpr NamingToken tokens[] = {
    {"[No Prefix]", TokenNeeds::Nothing, [](const NamingFacts&, QString& r) { r.clear(); }},
    {"[Resulting resolution]", TokenNeeds::Result,
     [](const NamingFacts& f, QString& r) { r = resolution(f.width, f.height); }},
    {"[Resulting size]", TokenNeeds::Nothing, [](const NamingFacts& f, QString& r) { r = encodedSize(f); }},
    {"[Date Today-Time]", TokenNeeds::Moment,
     [](const NamingFacts&, QString& r) { r = formatDate(service<Clock>().now(), dateTimePattern()); }},
    {"[Date Today]", TokenNeeds::Nothing,
     [](const NamingFacts&, QString& r) { r = formatDate(service<Clock>().now(), datePattern()); }},
    {"[Source resolution]", TokenNeeds::Source,
     [](const NamingFacts& f, QString& r) { r = f.sourceResolution; }},
    {"[Source size]", TokenNeeds::File,
     [](const NamingFacts& f, QString& r) {
         clsFileInfo& file = factsOfFile(f);
         file.fSizeFormated(0);
         r = file.englishSize();
     }},
    {"[Source Date Created]", TokenNeeds::File,
     [](const NamingFacts& f, QString& r) {
         r = formatDate(factsOfFile(f).dateCreated(), dateTimePattern());
     }},
    {"[Source Date Modified]", TokenNeeds::File,
     [](const NamingFacts& f, QString& r) {
         r = formatDate(factsOfFile(f).dateModified(), dateTimePattern());
     }},
    {"[Source Date Accessed]", TokenNeeds::File,
     [](const NamingFacts& f, QString& r) {
         r = formatDate(factsOfFile(f).dateAccessed(), dateTimePattern());
     }},
    {"[EXIF Image Description]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) {
         r = f.metadata.ExifValueByName(QStringLiteral("ImageDescription"));
     }},
    {"[EXIF Artist]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { r = f.metadata.ExifValueByName(QStringLiteral("Artist")); }},
    {"[EXIF Date]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { exifDate(f, datePattern(), r); }},
    {"[EXIF Date-Time]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { exifDate(f, dateTimePattern(), r); }},
    {"[EXIF Make]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { r = f.metadata.ExifValueByName(QStringLiteral("Make")); }},
    {"[EXIF Model]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { r = f.metadata.ExifValueByName(QStringLiteral("Model")); }},
    {"[EXIF Make & Model]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { r = exifPair(f, "Make", QLatin1Char('-'), "Model"); }},
    {"[EXIF X-Y Dimension]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) {
         r = exifPair(f, "PixelXDimension", QLatin1Char('x'), "PixelYDimension");
     }},
    {"[IPTC Headline]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptc(f, "IptcHeadline", r); }},
    {"[IPTC Caption]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptc(f, "IptcCaption", r); }},
    {"[IPTC Author]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptc(f, "IptcAuthor", r); }},
    {"[IPTC Date Created]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptcMoment(f, "IptcDateCreated", r); }},
    {"[IPTC Date Released]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptcMoment(f, "IptcDateReleased", r); }},
    {"[IPTC Ref. Date]", TokenNeeds::Nothing, nullptr},
    {"[IPTC Ref. Number]", TokenNeeds::Nothing, nullptr},
    {"[IPTC Reference Date]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptcMoment(f, "IptcReferenceDate", r); }},
    {"[IPTC Reference Number]", TokenNeeds::Metadata,
     [](const NamingFacts& f, QString& r) { iptc(f, "IptcReferenceNumber", r); }},
};

/// Null for a text that is not a token.
const NamingToken* findToken(const QString& text) {
    const auto found = std::find_if(std::begin(tokens), std::end(tokens), [&](const NamingToken& token) {
        return text == QLatin1String(token.text);
    });
    return found == std::end(tokens) ? nullptr : found;
}

QStringList offered() {
    QStringList texts;
    for (int i = 0; i < offeredTokens; ++i)
        texts << QString::fromLatin1(tokens[i].text);
    return texts;
}

} // namespace

const QStringList& namingTokens() {
    static const QStringList texts = offered();
    return texts;
}

const QStringList& namingSeparators() {
    static const QStringList texts{
        QStringLiteral("_"),
        QStringLiteral("-"),
        QStringLiteral("="),
        QStringLiteral(","),
        QStringLiteral("."),
        QStringLiteral(";"),
        QStringLiteral("!"),
        QStringLiteral("AND"),
        QStringLiteral("[WhiteSpace]"),
        QStringLiteral("[No Separator]"),
    };
    return texts;
}

const QStringList& namingCounts() {
    static const QStringList texts{QStringLiteral("[Starting 1]"), QStringLiteral("[Starting 1001]")};
    return texts;
}

TokenNeeds tokenNeeds(const QString& token) {
    const NamingToken* known = findToken(token);
    return known ? known->needs : TokenNeeds::Nothing;
}

void evaluateToken(const QString& token, const NamingFacts& facts, QString& result) {
    const NamingToken* known = findToken(token);
    if (known && known->evaluate)
        known->evaluate(facts, result);
    else
        result = token;
}

QString fncRetrieveNamingString(const ImageBox& box, const QString& token, const QString& path,
                                const QString& extension, QString* fault) {
    QString result;
    if (!box.HasImage())
        return result;
    const NamingFacts facts{.width = box.Width(),
                            .height = box.Height(),
                            .sourceResolution = box.Tag,
                            .metadata = box.metadata(),
                            .path = path,
                            .extension = extension,
                            .box = &box};
    std::ignore = trap("fncRetrieveNamingString", [&] {
        try {
            evaluateToken(token, facts, result);
        } catch (const TrappedError& error) {
            if (fault)
                *fault = error.description;
            throw;
        }
    });
    return result;
}

QString fncRetrieveSeparator(const QString& text) {
    if (text == QLatin1String("[WhiteSpace]"))
        return QStringLiteral(" ");
    if (text == QLatin1String("[No Separator]"))
        return {};
    return text;
}

} // namespace tarsel
