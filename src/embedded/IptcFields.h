// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <span>
#include <string_view>

namespace tarsel {

class MetadataStore;
struct DateForms;

enum class IptcKind {
    Text,
    Date,   ///< "20040131" in the file
    Time,   ///< "150509+0100" in the file
    List,   ///< one dataset for each item
    Urgency ///< a digit, "1" to "8"
};

/// One IPTC member of an image box.
struct IptcField {
    QString member;  ///< "IptcHeadline"
    int dataset = 0; ///< number in record 2
    IptcKind kind = IptcKind::Text;
    QString label;         ///< by which users know it; empty for a member without one
    int mostBytes = 0;     ///< of a text by the standard, of an item of a list; 0 for no limit
    bool isListed = false; ///< has a row in the list of attributes, whose rows are in this table's order
};

/// All members.
std::span<const IptcField> iptcFields();

/// The member of that name, such as "IptcHeadline"; error 5 when there is none.
const IptcField& iptcField(std::string_view member);

/// The field of that label, compared exactly; null when there is none.
const IptcField* iptcFieldByLabel(const QString& label);

QString iptcText(const MetadataStore& store, std::string_view member); ///< "" when absent
/// The text as the store would hold it: of a field that is there more than once, such as the by-line, it is
/// the text of the row and split at ";".
QStringList iptcParts(const MetadataStore& store, std::string_view member, const QString& text);
void setIptcText(MetadataStore& store, std::string_view member, const QString& text);

QStringList iptcList(const MetadataStore& store, std::string_view member);
void setIptcList(MetadataStore& store, std::string_view member, const QStringList& texts);

/// Date members give midnight of their day, time members the time on the day of the empty date. What is
/// absent or no date reads as the empty date; setting the empty date removes the dataset. A time that
/// replaces another keeps its offset from universal time. A new one takes that of its day: the date's, else
/// that of the date field beside it, else today.
QDateTime iptcDate(const MetadataStore& store, std::string_view member);
void setIptcDate(MetadataStore& store, std::string_view member, const QDateTime& date);

int iptcUrgency(const MetadataStore& store); ///< 0 when absent
void setIptcUrgency(MetadataStore& store, int urgency);

/// Any member as the text of its row: lists joined by ",", a text that is there several times by "; ", dates
/// in the user's short form, "" for the empty date.
QString iptcRowText(const MetadataStore& store, const IptcField& field, const DateForms& forms);

} // namespace tarsel
