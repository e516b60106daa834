// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>
#include <span>

namespace tarsel {

/// A number that an EXIF attribute may hold, and its words.
struct ExifWord {
    qint32 value;
    const char* text;
};

/// An attribute whose values are read as numbers and looked up. Numbers that the table doesn't have give
/// `otherwise`. Slips of the wording are kept: users' own lists and scripts go by them.
struct ExifVocabulary {
    const char* name;
    std::span<const ExifWord> words;
    const char* otherwise = "";
};

std::span<const ExifVocabulary> exifVocabularies();

/// The vocabulary of an attribute, compared exactly, or null.
const ExifVocabulary* exifVocabulary(const QString& name);

} // namespace tarsel
