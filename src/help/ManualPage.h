// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

namespace tarsel {

/// A heading of a page with the text up to the next heading.
struct ManualSection {
    int level = 0;  ///< of the heading, from 1
    QString title;  ///< without marks
    QString anchor; ///< what a link to it has after '#'
    QString text;   ///< in words: without marks of Markdown, white space as single blanks
};

/// One page of the manual, a Markdown file.
struct ManualPage {
    QString name;     ///< file name without ".md"
    QString path;     ///< of the file, to which links and pictures are relative
    QString markdown; ///< as it is in the file
    std::vector<ManualSection> sections;

    const QString& title() const; ///< of its first heading
    bool hasAnchor(const QString& anchor) const;
};

/// Takes a page apart. A text before the first heading belongs to a section without a title.
ManualPage parseManualPage(const QString& path, const QString& markdown);

/// What links call a heading, in the manner of most Markdown readers: lower case, words joined by hyphens,
/// no other signs: "EXIF, IPTC & XMP" is "exif-iptc--xmp".
QString headingAnchor(const QString& heading);

} // namespace tarsel
