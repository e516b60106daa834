// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "base/ListView.h"
#include "imaging/ImageBox.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace tarsel::cli {

/// One attribute and what it becomes.
struct AttributeChange {
    bool isIptc = false;
    QString name; ///< raw EXIF name, or IPTC label
    QString value;
};

/// "Artist=Ann Example". UsageError for a text without "=", for an EXIF name that users may not set, and for
/// an unknown label.
AttributeChange attributeChange(bool isIptc, const QString& text);
/// Like a name above, without a value.
AttributeChange attributeNamed(bool isIptc, const QString& name);

/// A table of changes: the first row names the fields ("file", then EXIF names and IPTC labels, with "exif:"
/// or "iptc:" before one that could be either), each further one has a picture and its values. An empty cell
/// changes nothing. Pictures are relative to the table's folder. UsageError for an unknown field.
QList<std::pair<QString, QList<AttributeChange>>> changesOfTable(const QString& path);

/// Sets it in the box. Error 5 with name and value when the attribute can't take it.
void apply(const AttributeChange& change, ImageBox& box, const DateForms& forms);
/// Nothing when the box hasn't the field.
void deleteIptcField(const AttributeChange& field, ImageBox& box);
/// Adds the row that the window's list of IPTC fields lacks, since a dialog shows the urgency.
void addUrgency(const ImageBox& box, ListView& iptc);

} // namespace tarsel::cli
