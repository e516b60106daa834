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
    const char* label;
};

/// The rows before the custom fields. Image Notes and Local Caption are where other programs keep
/// document notes and local captions; the Image URL has no dataset of its own anywhere and takes the first
/// free one after the custom fields.
constexpr std::array listedFields{
    FieldRow{"IptcCaption", 120, Text, "Caption"},
    FieldRow{"IptcCaptionWriter", 122, Text, "Caption Writer"},
    FieldRow{"IptcHeadline", 105, Text, "Headline"},
    FieldRow{"IptcSpecialInstructions", 40, Text, "Special Instructions"},
    FieldRow{"IptcKeyword", 25, List, "Keywords"},
    FieldRow{"IptcCategory", 15, Text, "Category"},
    FieldRow{"IptcSupplementalCategory", 20, List, "Supplemental Categories"},
    FieldRow{"IptcByline", 80, Text, "By (Author)"},
    FieldRow{"IptcBylineTitle", 85, Text, "By Title (Author's Position)"},
    FieldRow{"IptcCredit", 110, Text, "Credit"},
    FieldRow{"IptcSource", 115, Text, "Source"},
    FieldRow{"IptcObjectName", 5, Text, "Object Name (Title)"},
    FieldRow{"IptcCity", 90, Text, "City"},
    FieldRow{"IptcProvinceState", 95, Text, "Province/State"},
    FieldRow{"IptcCountryName", 101, Text, "Country Name"},
    FieldRow{"IptcOriginalTransmissionReference", 103, Text, "Original Transmission Reference (OTR)"},
    FieldRow{"IptcCopyrightNotice", 116, Text, "Copyright Notice"},
    FieldRow{"IptcImageUrl", 220, Text, "Image URL"},
    FieldRow{"IptcDateCreated", 55, Date, "Date Created"},
    FieldRow{"IptcEditStatus", 7, Text, "Edit Status"},
    FieldRow{"IptcFixtureIdentifier", 22, Text, "Fixture Identifier"},
    FieldRow{"IptcDateReleased", 30, Date, "Date Released"},
    FieldRow{"IptcReferenceService", 45, Text, "Reference Service"},
    FieldRow{"IptcReferenceDate", 47, Date, "Reference Date"},
    FieldRow{"IptcReferenceNumber", 50, Text, "Reference Number"},
    FieldRow{"IptcOriginatingProgram", 65, Text, "Originating Program"},
    FieldRow{"IptcProgramVersion", 70, Text, "Program Version"},
    FieldRow{"IptcObjectCycle", 75, Text, "Object Cycle"},
    FieldRow{"IptcSublocation", 92, Text, "Sublocation"},
    FieldRow{"IptcCountryCode", 100, Text, "Country Code"},
    FieldRow{"IptcLocalCaption", 121, Text, "Local Caption"},
};
constexpr int customFieldCount = 20;
constexpr int firstCustomDataset = 200;
constexpr FieldRow imageNotes{"IptcImageNotes", 230, Text, "Image Notes"};

/// Members without a row. The author is the by-line under another name.
constexpr std::array unlistedFields{
    FieldRow{"IptcTimeReleased", 35, Time, "Time Released"},
    FieldRow{"IptcTimeCreated", 60, Time, "Time Created"},
    FieldRow{"IptcUrgency", 10, Urgency, ""},
    FieldRow{"IptcAuthor", 80, Text, ""},
};

IptcField fieldOf(const FieldRow& row, bool isListed) {
    return {QString::fromLatin1(row.member), row.dataset, row.kind, QString::fromLatin1(row.label), isListed};
}

std::vector<IptcField> makeFields() {
    std::vector<IptcField> fields;
    fields.reserve(listedFields.size() + customFieldCount + 1 + unlistedFields.size());
    for (const FieldRow& row : listedFields)
        fields.push_back(fieldOf(row, true));
    for (int i = 1; i <= customFieldCount; ++i)
        fields.push_back({QStringLiteral("IptcCustomField%1").arg(i), firstCustomDataset + i - 1, Text,
                          QStringLiteral("Custom Field %1").arg(i), true});
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

QString timeText(const QDateTime& date, const QString& replaced) {
    static const QRegularExpression offset(QStringLiteral("[+-]\\d{4}$"));
    const QRegularExpressionMatch match = offset.match(replaced);
    return date.time().toString(QStringLiteral("hhmmss")) +
           (match.hasMatch() ? match.captured() : offsetText(date.offsetFromUtc()));
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

void setIptcText(MetadataStore& store, std::string_view member, const QString& text) {
    store.setIptcText(iptcField(member).dataset, text);
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
        text = field.kind == Time ? timeText(date, store.iptcText(field.dataset))
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
        const QString shown = shortDateText(iptcDate(store, member), forms);
        return shown == QLatin1String("12/30/1899") ? QString() : shown;
    }
    case Text:
    case Urgency:
        break;
    }
    return iptcText(store, member);
}

} // namespace tarsel
