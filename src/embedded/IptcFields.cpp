// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"

#include "base/Conversions.h"
#include "base/TrappedError.h"
#include "embedded/MetadataStore.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <vector>

namespace tarsel {

namespace {

using enum IptcKind;

struct FieldRow {
    const char* member;
    int dataset;
    IptcKind kind;
    const char*
        label; ///< by which files and the command line name the field; the window shows its translation
    int mostBytes = 0; ///< by the standard
};

/// The rows before the custom fields. Image Notes and Local Caption are where other programs keep
/// document notes and local captions; the Image URL has no dataset of its own anywhere and takes the first
/// free one after the custom fields.
constexpr std::array listedFields{
    FieldRow{"IptcCaption", 120, Text, QT_TRANSLATE_NOOP("Iptc", "Caption"), 2000},
    FieldRow{"IptcCaptionWriter", 122, Text, QT_TRANSLATE_NOOP("Iptc", "Caption Writer"), 32},
    FieldRow{"IptcHeadline", 105, Text, QT_TRANSLATE_NOOP("Iptc", "Headline"), 256},
    FieldRow{"IptcSpecialInstructions", 40, Text, QT_TRANSLATE_NOOP("Iptc", "Special Instructions"), 256},
    FieldRow{"IptcKeyword", 25, List, QT_TRANSLATE_NOOP("Iptc", "Keywords"), 64},
    FieldRow{"IptcCategory", 15, Text, QT_TRANSLATE_NOOP("Iptc", "Category"), 3},
    FieldRow{"IptcSupplementalCategory", 20, List, QT_TRANSLATE_NOOP("Iptc", "Supplemental Categories"), 32},
    FieldRow{"IptcByline", 80, Text, QT_TRANSLATE_NOOP("Iptc", "By (Author)"), 32},
    FieldRow{"IptcBylineTitle", 85, Text, QT_TRANSLATE_NOOP("Iptc", "By Title (Author's Position)"), 32},
    FieldRow{"IptcCredit", 110, Text, QT_TRANSLATE_NOOP("Iptc", "Credit"), 32},
    FieldRow{"IptcSource", 115, Text, QT_TRANSLATE_NOOP("Iptc", "Source"), 32},
    FieldRow{"IptcObjectName", 5, Text, QT_TRANSLATE_NOOP("Iptc", "Object Name (Title)"), 64},
    FieldRow{"IptcCity", 90, Text, QT_TRANSLATE_NOOP("Iptc", "City"), 32},
    FieldRow{"IptcProvinceState", 95, Text, QT_TRANSLATE_NOOP("Iptc", "Province/State"), 32},
    FieldRow{"IptcCountryName", 101, Text, QT_TRANSLATE_NOOP("Iptc", "Country Name"), 64},
    FieldRow{"IptcOriginalTransmissionReference", 103, Text,
             QT_TRANSLATE_NOOP("Iptc", "Original Transmission Reference (OTR)"), 32},
    FieldRow{"IptcCopyrightNotice", 116, Text, QT_TRANSLATE_NOOP("Iptc", "Copyright Notice"), 128},
    FieldRow{"IptcImageUrl", 220, Text, QT_TRANSLATE_NOOP("Iptc", "Image URL")},
    FieldRow{"IptcDateCreated", 55, Date, QT_TRANSLATE_NOOP("Iptc", "Date Created")},
    FieldRow{"IptcEditStatus", 7, Text, QT_TRANSLATE_NOOP("Iptc", "Edit Status"), 64},
    FieldRow{"IptcFixtureIdentifier", 22, Text, QT_TRANSLATE_NOOP("Iptc", "Fixture Identifier"), 32},
    FieldRow{"IptcDateReleased", 30, Date, QT_TRANSLATE_NOOP("Iptc", "Date Released")},
    FieldRow{"IptcReferenceService", 45, Text, QT_TRANSLATE_NOOP("Iptc", "Reference Service"), 10},
    FieldRow{"IptcReferenceDate", 47, Date, QT_TRANSLATE_NOOP("Iptc", "Reference Date")},
    FieldRow{"IptcReferenceNumber", 50, Text, QT_TRANSLATE_NOOP("Iptc", "Reference Number"), 8},
    FieldRow{"IptcOriginatingProgram", 65, Text, QT_TRANSLATE_NOOP("Iptc", "Originating Program"), 32},
    FieldRow{"IptcProgramVersion", 70, Text, QT_TRANSLATE_NOOP("Iptc", "Program Version"), 10},
    FieldRow{"IptcObjectCycle", 75, Text, QT_TRANSLATE_NOOP("Iptc", "Object Cycle"), 1},
    FieldRow{"IptcSublocation", 92, Text, QT_TRANSLATE_NOOP("Iptc", "Sublocation"), 32},
    FieldRow{"IptcCountryCode", 100, Text, QT_TRANSLATE_NOOP("Iptc", "Country Code"), 3},
    FieldRow{"IptcLocalCaption", 121, Text, QT_TRANSLATE_NOOP("Iptc", "Local Caption"), 256},
};
/// Between the texts of a field that a file has more than once; names hold commas.
const QString severalTexts = QStringLiteral("; ");
constexpr int customFieldCount = 20;
constexpr int firstCustomDataset = 200;
constexpr FieldRow imageNotes{"IptcImageNotes", 230, Text, QT_TRANSLATE_NOOP("Iptc", "Image Notes")};

constexpr const char* customFieldLabel = QT_TRANSLATE_NOOP("Iptc", "Custom Field %1");

/// Members without a row. The author is the by-line under another name.
constexpr std::array unlistedFields{
    FieldRow{"IptcTimeReleased", 35, Time, QT_TRANSLATE_NOOP("Iptc", "Time Released")},
    FieldRow{"IptcTimeCreated", 60, Time, QT_TRANSLATE_NOOP("Iptc", "Time Created")},
    FieldRow{"IptcUrgency", 10, Urgency, ""},
    FieldRow{"IptcAuthor", 80, Text, "", 32},
};

IptcField fieldOf(const FieldRow& row, bool isListed) {
    return {QString::fromLatin1(row.member), row.dataset,   row.kind,
            QString::fromLatin1(row.label),  row.mostBytes, isListed};
}

std::vector<IptcField> makeFields() {
    std::vector<IptcField> fields;
    fields.reserve(listedFields.size() + customFieldCount + 1 + unlistedFields.size());
    for (const FieldRow& row : listedFields)
        fields.push_back(fieldOf(row, true));
    for (int i = 1; i <= customFieldCount; ++i)
        fields.push_back({QStringLiteral("IptcCustomField%1").arg(i), firstCustomDataset + i - 1, Text,
                          QString::fromLatin1(customFieldLabel).arg(i), 0, true});
    fields.push_back(fieldOf(imageNotes, true));
    for (const FieldRow& row : unlistedFields)
        fields.push_back(fieldOf(row, false));
    return fields;
}

/// "20040131"; separators, as some programs write them, are let pass.
QDate dateFrom(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^(\\d{4})[-:/.]?(\\d{2})[-:/.]?(\\d{2})"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    return {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()};
}

QTime timeFrom(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^(\\d{2}):?(\\d{2}):?(\\d{2})"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    return match.hasMatch()
               ? QTime(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt())
               : QTime();
}

QString offsetText(int seconds) {
    const int minutes = std::abs(seconds) / 60;
    return (seconds < 0 ? u'-' : u'+') + QStringLiteral("%1%2")
                                             .arg(minutes / 60, 2, 10, QLatin1Char('0'))
                                             .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

constexpr int dateReleased = 30, timeReleased = 35, dateCreated = 55;

/// The day of a time: a time alone comes with the empty date, whose offset is that of another century.
QDate dayOf(const QDateTime& time, const MetadataStore& store, const IptcField& field) {
    if (time.date() != emptyDate().date())
        return time.date();
    const QDate day = dateFrom(store.iptcText(field.dataset == timeReleased ? dateReleased : dateCreated));
    return day.isValid() ? day : QDate::currentDate();
}

QString timeText(const QDateTime& date, const MetadataStore& store, const IptcField& field) {
    static const QRegularExpression offset(QStringLiteral("[+-]\\d{4}$"));
    const QRegularExpressionMatch match = offset.match(store.iptcText(field.dataset));
    const QDateTime onItsDay(dayOf(date, store, field), date.time());
    return date.time().toString(QStringLiteral("hhmmss")) +
           (match.hasMatch() ? match.captured() : offsetText(onItsDay.offsetFromUtc()));
}

} // namespace

std::span<const IptcField> iptcFields() {
    static const std::vector<IptcField> fields = makeFields();
    return fields;
}

const IptcField& iptcField(std::string_view member) {
    const auto name = QLatin1String(member.data(), qsizetype(member.size()));
    const auto found =
        std::ranges::find_if(iptcFields(), [&](const IptcField& field) { return field.member == name; });
    if (found == iptcFields().end())
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("IptcFields", "there is no IPTC member %1").arg(name));
    return *found;
}

const IptcField* iptcFieldByLabel(const QString& label) {
    const auto found = std::ranges::find_if(
        iptcFields(), [&](const IptcField& field) { return !label.isEmpty() && field.label == label; });
    return found == iptcFields().end() ? nullptr : &*found;
}

QString iptcText(const MetadataStore& store, std::string_view member) {
    return store.iptcText(iptcField(member).dataset);
}

QStringList iptcParts(const MetadataStore& store, std::string_view member, const QString& text) {
    const QStringList present = store.iptcList(iptcField(member).dataset);
    if (present.size() < 2)
        return {text};
    if (present.join(severalTexts) == text)
        return present;
    QStringList parts = text.split(u';');
    std::ranges::transform(parts, parts.begin(), [](const QString& part) { return part.trimmed(); });
    parts.removeAll(QString());
    return parts;
}

void setIptcText(MetadataStore& store, std::string_view member, const QString& text) {
    const int dataset = iptcField(member).dataset;
    if (store.iptcList(dataset).size() > 1)
        store.setIptcList(dataset, iptcParts(store, member, text));
    else
        store.setIptcText(dataset, text);
}

QStringList iptcList(const MetadataStore& store, std::string_view member) {
    return store.iptcList(iptcField(member).dataset);
}

void setIptcList(MetadataStore& store, std::string_view member, const QStringList& texts) {
    store.setIptcList(iptcField(member).dataset, texts);
}

QDateTime iptcDate(const MetadataStore& store, std::string_view member) {
    const IptcField& field = iptcField(member);
    const QString text = store.iptcText(field.dataset);
    if (field.kind == Time) {
        const QTime time = timeFrom(text);
        return time.isValid() ? QDateTime(emptyDate().date(), time) : emptyDate();
    }
    const QDate date = dateFrom(text);
    return date.isValid() ? date.startOfDay() : emptyDate();
}

void setIptcDate(MetadataStore& store, std::string_view member, const QDateTime& date) {
    const IptcField& field = iptcField(member);
    QString text;
    if (date.isValid() && date != emptyDate())
        text = field.kind == Time ? timeText(date, store, field)
                                  : date.date().toString(QStringLiteral("yyyyMMdd"));
    store.setIptcText(field.dataset, text);
}

int iptcUrgency(const MetadataStore& store) {
    return iptcText(store, "IptcUrgency").trimmed().toInt();
}

void setIptcUrgency(MetadataStore& store, int urgency) {
    setIptcText(store, "IptcUrgency", urgency == 0 ? QString() : QString::number(urgency));
}

QString iptcRowText(const MetadataStore& store, const IptcField& field, const DateForms& forms) {
    const std::string member = field.member.toStdString();
    switch (field.kind) {
    case List:
        return iptcList(store, member).join(u',');
    case Date:
    case Time: {
        const QDateTime date = iptcDate(store, member);
        return date.date() == emptyDate().date() ? QString() : shortDateText(date, forms);
    }
    case Text:
    case Urgency:
        break;
    }
    return iptcList(store, member).join(severalTexts); // several by-lines, for one
}

} // namespace tarsel
