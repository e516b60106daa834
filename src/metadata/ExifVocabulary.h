// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>
#include <span>

namespace tarsel {

/// A number that an EXIF attribute may hold, and its words: English, in the context "Exif".
struct ExifWord {
    qint32 value;
    const char* text;
};

/// An attribute whose values are read as numbers and looked up. `otherwise` stands for numbers that are not
/// in the table. Slips of the wording are kept: users' lists and scripts depend on them.
struct ExifVocabulary {
    const char* name;
    std::span<const ExifWord> words;
    const char* otherwise = "";
};

/// The vocabulary of an attribute, compared exactly, or null.
const ExifVocabulary* exifVocabulary(const QString& name);

} // namespace tarsel
