// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "base/ListView.h"
#include "imaging/ImageBox.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>
#include <variant>

/// The vocabulary of the metadata pane: which attributes users may touch, how they are worded, how a
/// picture's metadata become the rows of lists, and the side files that carry them from picture to picture.
namespace tarsel::modMetadata {

/// The application's title as it goes into the EXIF attribute "Software".
inline const QString ProductTitle = QStringLiteral("Tarsel JPEG");

/// The only EXIF attributes that users create, change and delete, and that go to a side file.
const QStringList& ExifEditableAttributes();
const QStringList& ExifDateAttributes();
/// Labels of IPTC members that are edited as dates.
const QStringList& IptcDateAttributes();

/// Builds the tables of this module and of the metadata store now instead of at the first picture.
void InitMetadataTables();

/// Case and blanks around the argument don't matter.
bool IsExifEditable(const QString& name);
bool IsExifDate(const QString& name);
bool IsIptcDate(const QString& label);

/// Which lists are filled from a file with that extension, in any case, without its point.
enum class ListedMetadata { None, Iptc, ExifAndIptc };
ListedMetadata listedMetadata(const QString& extension);

/// Whether no row of the list has that key, compared exactly.
bool ListKeyIsFree(const ListView& list, const QString& key);

/// Icon of rows that may be edited: the first of the attached pictures.
constexpr int editableIcon = 0;

/// Append the rows of the picture in `box` to a list of the columns "Attribute" and "Value", and set the
/// list's tag to `path`; the caller clears the list. An IPTC row's text is the label of its field, by which
/// edits find it; views show its translation. A failure is trapped; rows added before it stay.
void ListExifAttributes(const ImageBox& box, ListView& list, const QString& path);
void ListIptcAttributes(const ImageBox& box, ListView& list, const QString& path);

/// The same rows of metadata alone. Errors are raised.
void AddExifRows(const MetadataStore& metadata, ListView& list);
void AddIptcRows(const MetadataStore& metadata, ListView& list, const DateForms& forms);
/// The pattern in which rows, and side files made of them, show EXIF dates on every system.
inline const QString ExifRowDate = QStringLiteral("m/d/yyyy h:mm:ss AM/PM");
/// The date that a row shows: an EXIF one in the pattern above before the user's own form. Error 13 for none.
QDateTime DateOfRow(const QString& name, const QString& shown, const DateForms& forms);
/// The row of one EXIF attribute, and its raw value as the row shows it.
void AddExifRow(ListView& list, const QString& name, const QString& value);
QString ShownExifValue(const QString& name, const QString& value);

/// A raw EXIF value in words, or "" when there is nothing to say and the raw value is to be shown. A value
/// that doesn't convert to the number its attribute needs, and a division by zero, are trapped and return "".
QString FormatExifAttributeValue(const QString& name, const QString& value);

/// The label of an attribute, or "" when its raw name is to be shown.
QString FormatExifAttributeName(const QString& name);

/// The label of an IPTC field, as files and the command line have it, in the user's language; any other text
/// as it is.
QString IptcLabelInWords(const QString& label);

/// The same two EXIF routines for any thread: they set no TrappingString, and errors 13, 6 and 11 are raised.
QString ExifValueInWords(const QString& name, const QString& value);
QString ExifNameInWords(const QString& name);

/// The integer before and after the last "/". Without one, 0 and all of the text; 0 for what can't be read.
qint32 RationalNumerator(const QString& text);
qint32 RationalDenominator(const QString& text);

// --- editing: each change goes into the file at once, whose pixels, pages and layers keep their bytes. A
// failure to write it is raised; box and file are then as they were. For any thread. A text beyond the length
// that the IPTC standard gives its field is refused with error 6.

/// A text as typed, or a date.
using AttributeValue = std::variant<QString, QDateTime>;

/// The metadata of the page that the box's PageNumber says, by the file's content, without its pixels. Error
/// 481 for unknown content.
void ReadMetadata(const QString& path, ImageBox& box);

/// Sets an EXIF attribute by its name, or an IPTC field by its label, in the box alone. A list takes its
/// items with commas between them. False for an EXIF value that the attribute can't take, and for an unknown
/// label. Error 13 for a text that isn't a date where one is expected.
bool SetMetadataAttribute(ImageBox& box, bool isIptc, const QString& name, const AttributeValue& value,
                          const DateForms& forms = {});

/// Removes an IPTC field of any kind, by its label, from the box alone; an unknown label changes nothing.
void ClearIptcField(ImageBox& box, const QString& label);

/// Sets an EXIF attribute by its name, or an IPTC field by its label, and writes the file of the path when it
/// is a JPEG, TIFF or PSD by its extension. An EXIF change brands the file by its attribute "Software".
/// False, and nothing written, for an EXIF value that the attribute can't take. Lists and unknown labels
/// change nothing. Error 13 for a text that isn't a date where one is expected.
bool UpdateMetadataAttribute(const QString& path, bool isIptc, const QString& name,
                             const AttributeValue& value, ImageBox& box, const DateForms& forms = {});

/// Deletes any EXIF attribute, editable or not; false for one that the box doesn't have or can't lose. Only
/// files with the extensions jpeg, jpg, tiff and tif are written.
bool DeleteExifAttribute(const QString& path, const QString& name, ImageBox& box);

/// Replaces keywords or supplemental categories, by their label, whatever the extension. Error 5 for another
/// label.
void SetIptcList(const QString& path, const QString& label, const QStringList& texts, ImageBox& box);
void ClearIptcList(const QString& path, const QString& label, ImageBox& box);

/// What to say of changes: that the file's XMP packet could not follow, that the thumbnail was dropped.
QStringList remarksOn(const MetadataStore& metadata);

/// Removes coordinates and serial numbers from the box alone.
void RemovePrivateMetadata(ImageBox& box);

/// Writes the rows of a list that have a key, as they are shown, to a .xiff file. Returns how many; without
/// any, none is made.
int WriteXiffFile(const QString& path, const ListView& rows);
/// Names the values that such a file can't hold, as a quotation mark in them ends them on reading. Empty for
/// none.
QString remarkOnXiffFile(const ListView& rows);
/// Whether a .ffo file has fields; one without is not applied, since it would delete those of every picture.
bool HasIptcFields(const QString& sideFile);
QString remarkOnEmptyFfo(const QString& sideFile);

/// Sets the attributes of a .xiff file in the box, and the Software attribute with them. A file that can't be
/// opened changes nothing. Dates are read as rows show them, and one that stands as it is in a picture is set
/// so. Returns the names and values that were set; one that its attribute can't take is passed over. Error 13
/// for an invalid date, 62 for a file that ends within a record.
QList<std::pair<QString, QString>> ApplyXiffFile(const QString& path, ImageBox& box,
                                                 const DateForms& forms = {});

} // namespace tarsel::modMetadata
