// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/XmpInStep.h"

#include "embedded/MetadataStore.h"
#include "embedded/XmpPacket.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <map>
#include <unordered_set>

namespace tarsel {

namespace {

using namespace xmpSpace;

enum class Kind { Text, List, Date };

/// A property, and where EXIF and IPTC state it.
struct Row {
    XmpName xmp;
    const char* exif; ///< null for none
    int dataset;      ///< 0 for none
    Kind kind = Kind::Text;
};

constexpr int dateCreated = 55, timeCreated = 60;

constexpr std::array rows{
    Row{{dublinCore, "description"}, "ImageDescription", 120},
    Row{{dublinCore, "creator"}, "Artist", 80, Kind::List},
    Row{{dublinCore, "rights"}, "Copyright", 116},
    Row{{dublinCore, "title"}, nullptr, 5},
    Row{{dublinCore, "subject"}, nullptr, 25, Kind::List},
    Row{{photoshop, "Headline"}, nullptr, 105},
    Row{{photoshop, "CaptionWriter"}, nullptr, 122},
    Row{{photoshop, "Instructions"}, nullptr, 40},
    Row{{photoshop, "Category"}, nullptr, 15},
    Row{{photoshop, "SupplementalCategories"}, nullptr, 20, Kind::List},
    Row{{photoshop, "Urgency"}, nullptr, 10},
    Row{{photoshop, "AuthorsPosition"}, nullptr, 85},
    Row{{photoshop, "Credit"}, nullptr, 110},
    Row{{photoshop, "Source"}, nullptr, 115},
    Row{{photoshop, "City"}, nullptr, 90},
    Row{{photoshop, "State"}, nullptr, 95},
    Row{{photoshop, "Country"}, nullptr, 101},
    Row{{photoshop, "TransmissionReference"}, nullptr, 103},
    Row{{photoshop, "DateCreated"}, "DateTimeOriginal", dateCreated, Kind::Date},
    Row{{iptcCore, "Location"}, nullptr, 92},
    Row{{iptcCore, "CountryCode"}, nullptr, 100},
    Row{{basic, "CreatorTool"}, "Software", 0},
    Row{{basic, "CreateDate"}, "DateTimeDigitized", 0, Kind::Date},
    Row{{basic, "ModifyDate"}, "DateTime", 0, Kind::Date},
    Row{{tiff, "DateTime"}, "DateTime", 0, Kind::Date},
    Row{{tiff, "ImageDescription"}, "ImageDescription", 0},
    Row{{tiff, "Artist"}, "Artist", 0},
    Row{{tiff, "Copyright"}, "Copyright", 0},
    Row{{tiff, "Software"}, "Software", 0},
    Row{{tiff, "Make"}, "Make", 0},
    Row{{tiff, "Model"}, "Model", 0},
    Row{{exif, "UserComment"}, "UserComment", 0},
    Row{{exif, "DateTimeOriginal"}, "DateTimeOriginal", 0, Kind::Date},
    Row{{exif, "DateTimeDigitized"}, "DateTimeDigitized", 0, Kind::Date},
};

bool hasRow(const QString& exifName) {
    return std::ranges::any_of(
        rows, [&](const Row& row) { return row.exif && exifName == QLatin1String(row.exif); });
}

/// "2004:01:31 15:05:09" as "2004-01-31T15:05:09"; "" for an unknown or unreadable date.
QString dateFromExif(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral("^\\s*(\\d{4}):(\\d\\d):(\\d\\d) (\\d\\d:\\d\\d:\\d\\d)(?!.*[a-y])"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch() || match.captured(1) == QLatin1String("0000"))
        return {};
    return QStringLiteral("%1-%2-%3T%4")
        .arg(match.captured(1), match.captured(2), match.captured(3), match.captured(4));
}

/// "20040131" and, where there is a time, "150509+0100" as "2004-01-31T15:05:09+01:00".
QString dateFromIptc(const QString& date, const QString& time) {
    static const QRegularExpression day(QStringLiteral("^(\\d{4})(\\d\\d)(\\d\\d)$"));
    static const QRegularExpression clock(
        QStringLiteral("^(\\d\\d)(\\d\\d)(\\d\\d)(?:([+-]\\d\\d)(\\d\\d))?$"));
    const QRegularExpressionMatch onDay = day.match(date), at = clock.match(time);
    if (!onDay.hasMatch())
        return {};
    QString text = onDay.captured(1) + u'-' + onDay.captured(2) + u'-' + onDay.captured(3);
    if (at.hasMatch())
        text += u'T' + at.captured(1) + u':' + at.captured(2) + u':' + at.captured(3);
    if (at.hasCaptured(4))
        text += at.captured(4) + u':' + at.captured(5);
    return text;
}

/// With the parts of the old date that the new one doesn't say: fractions of a second and the zone, which
/// EXIF keeps elsewhere, and the time of day of a plain date.
QString withRestOf(const QString& old, const QString& date) {
    static const QRegularExpression form(QStringLiteral(
        "^\\d{4}-\\d\\d-\\d\\d(T\\d\\d:\\d\\d(?::\\d\\d)?)?((?:\\.\\d+)?(?:Z|[+-]\\d\\d:\\d\\d)?)$"));
    const QRegularExpressionMatch match = form.match(old);
    constexpr qsizetype day = 10, toSeconds = 19;
    if (date.size() == day)
        return date + match.captured(1) + match.captured(2);
    return date.size() == toSeconds ? date + match.captured(2) : date;
}

QStringList textsFromExif(const MetadataStore& store, const Row& row) {
    const QString text = row.exif ? store.ExifValueByName(QLatin1String(row.exif)) : QString();
    if (row.kind == Kind::Date)
        return QStringList(dateFromExif(text));
    if (row.kind == Kind::List) {
        QStringList items = text.split(u';', Qt::SkipEmptyParts);
        std::ranges::transform(items, items.begin(), [](const QString& item) { return item.trimmed(); });
        return items;
    }
    return {text};
}

QStringList textsFromIptc(const MetadataStore& store, const Row& row) {
    if (row.dataset == 0)
        return {};
    if (row.kind == Kind::Date)
        return QStringList(dateFromIptc(store.iptcText(dateCreated), store.iptcText(timeCreated)));
    return store.iptcList(row.dataset);
}

QStringList filled(QStringList texts) {
    texts.removeAll(QString());
    return texts;
}

using Words = std::unordered_set<std::string_view>;

/// Views of what could be the local names of properties.
Words wordsIn(const QByteArray& text, bool withPrefixOnly = false) {
    const auto isOfName = [](char letter) {
        return quint8(letter) >= 0x80 || QChar::isLetterOrNumber(uchar(letter)) || letter == '_' ||
               letter == '-' || letter == '.';
    };
    Words words;
    for (auto at = text.begin(); at != text.end();) {
        const auto start = std::find_if(at, text.end(), isOfName);
        at = std::find_if_not(start, text.end(), isOfName);
        if (!withPrefixOnly || (start != text.begin() && start[-1] == ':'))
            words.emplace(start, at);
    }
    return words;
}

class Stepper {
public:
    Stepper(const MetadataStore& before, const MetadataStore& after) :
        m_before(before), m_after(after), m_blocks(after.blocks()) {
        m_result.xmp = m_blocks.xmp;
    }

    XmpInStep run() {
        for (const Row& row : rows)
            follow(row);
        followOthers();
        if (m_packet && m_isChanged)
            take(m_packet->bytes());
        return m_result;
    }

private:
    /// A packet that fitted into a JPEG segment still does.
    void take(const QByteArray& xmp) {
        constexpr qsizetype largest = 65504; // 65533 less the signature
        if (xmp.size() > largest && m_blocks.xmp.size() <= largest)
            m_result.contradicts = true;
        else
            m_result.xmp = xmp;
    }

    void follow(const Row& row) {
        const QStringList exif = filled(textsFromExif(m_after, row)),
                          iptc = filled(textsFromIptc(m_after, row));
        const bool byExif = exif != filled(textsFromExif(m_before, row)),
                   byIptc = iptc != filled(textsFromIptc(m_before, row));
        if (!byExif && !byIptc)
            return;
        const bool isSet = (byExif && !exif.isEmpty()) || (byIptc && !iptc.isEmpty());
        if (isSet || (exif.isEmpty() && iptc.isEmpty()))
            state(row.xmp, byExif && !exif.isEmpty() ? exif : iptc, row.kind);
        else // deleted where the other block still has a value, shorter perhaps
            m_result.lacks = m_result.lacks || byIptc;
    }

    /// Attributes of whatever name: numbers are written in XMP as they are shown here.
    void followOthers() {
        static const QRegularExpression number(QStringLiteral("^-?\\d+(/-?\\d+)?$"));
        const std::map<QString, QString> before = othersOf(m_before), after = othersOf(m_after);
        std::map<QString, QString> all = after;
        for (const auto& each : before)
            all.emplace(each.first, QString());
        for (const auto& [name, value] : all) {
            const auto old = before.find(name);
            if (old != before.end() && old->second == value)
                continue;
            const std::string plain = name.toStdString();
            for (const std::string_view space : {tiff, exif, exifEx})
                if (value.isEmpty() || number.match(value).hasMatch())
                    state({space, plain}, value.isEmpty() ? QStringList() : QStringList(value), Kind::Text);
                else if (mentions(plain))
                    m_result.contradicts =
                        m_result.contradicts || !packet() || packet()->states({space, plain});
        }
    }

    static std::map<QString, QString> othersOf(const MetadataStore& store) {
        std::map<QString, QString> values;
        for (int i = 0; i < store.ExifCount(); ++i)
            if (!hasRow(store.ExifName(i)))
                values.emplace(store.ExifName(i), store.ExifValue(i));
        return values;
    }

    /// A packet without the name doesn't have to be parsed.
    bool mentions(std::string_view name) {
        if (!m_words)
            m_words = wordsIn(m_blocks.xmp);
        constexpr qsizetype start = 64;
        const bool isWide = m_blocks.xmp.left(start).contains('\0');
        return isWide || m_words->contains(name);
    }

    /// The extension is never changed; whether its names are those of properties isn't looked at.
    bool isInExtension(std::string_view name) {
        if (!m_extensionWords)
            m_extensionWords = wordsIn(m_blocks.extendedXmp, true);
        return m_extensionWords->contains(name);
    }

    std::optional<XmpPacket>& packet() {
        if (!m_isRead)
            m_packet = XmpPacket::read(m_blocks.xmp);
        m_isRead = true;
        return m_packet;
    }

    void state(const XmpName& name, const QStringList& texts, Kind kind) {
        if (isInExtension(name.name))
            m_result.contradicts = true;
        if (!mentions(name.name)) {
            m_result.lacks = m_result.lacks || !texts.isEmpty();
            return;
        }
        if (!packet()) {
            m_result.contradicts = true;
            return;
        }
        if (!packet()->states(name)) {
            m_result.lacks = m_result.lacks || !texts.isEmpty();
            return;
        }
        m_isChanged = true;
        if (texts.isEmpty())
            return packet()->remove(name);
        const QStringList wanted =
            kind == Kind::Date ? QStringList(withRestOf(packet()->texts(name).value(0), texts.first()))
                               : texts;
        if (!packet()->set(name, wanted))
            m_result.contradicts = true;
    }

    const MetadataStore& m_before;
    const MetadataStore& m_after;
    const EmbeddedMetadata m_blocks;
    std::optional<Words> m_words;
    std::optional<Words> m_extensionWords;
    std::optional<XmpPacket> m_packet;
    bool m_isRead = false;
    bool m_isChanged = false;
    XmpInStep m_result;
};

} // namespace

XmpInStep xmpInStep(const MetadataStore& before, const MetadataStore& after) {
    return Stepper(before, after).run();
}

} // namespace tarsel
