// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/ExifBlock.h"

#include <QString>

namespace tarsel {

/// How the bytes of a text attribute are to be read.
enum class ExifWording {
    Plain,   ///< by the type alone
    Comment, ///< a character set's name of eight bytes, then the text
    Utf16    ///< UTF-16, little-endian in any block, in bytes
};

/// One attribute of the standard.
struct ExifTag {
    QString name;
    ExifGroup group = ExifGroup::Image;
    quint16 tag = 0;
    ExifType type = ExifType::Undefined;
    ExifWording wording = ExifWording::Plain;
    /// Describes where other data are stored: a value written by hand would be wrong.
    bool isStructural = false;
};

/// By name, case-sensitive; a name of two groups is sought in the Photo group first. Null when unknown.
const ExifTag* exifTagByName(const QString& name);

/// By place; null when the standard has no such attribute.
const ExifTag* exifTagAt(ExifGroup group, quint16 tag);

/// The attribute's name, or its number as "0x9286" when it has none.
QString exifTagName(ExifGroup group, quint16 tag);

} // namespace tarsel
