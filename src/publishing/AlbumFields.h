// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <QtGlobal>
#include <algorithm>
#include <string_view>
#include <variant>

namespace tarsel {

using AlbumFieldOf = std::variant<quint8 settings::Album::*, qint16 settings::Album::*,
                                  qint32 settings::Album::*, QString settings::Album::*>;

/// An option of the album: its control in frmAlbum, its field, its limits, and its option of the command
/// line. A switch there turns the field's default round, and a colour is "RRGGBB".
struct AlbumField {
    const char* control;
    AlbumFieldOf field;
    int lowest = 0; ///< the nearest limit replaces a number beyond it
    int highest = 0;
    const char* option = nullptr; ///< null for a field that the command line sets in another manner
    const char* value = nullptr;  ///< of the option; words with "|" between them stand for 0, 1, 2 ...
    const char* help = nullptr;
};

inline constexpr AlbumField albumFields[] = {
    {"TAlbumTitle", &settings::Album::AlbumTitle, 0, 0, "title", "TEXT",
     QT_TRANSLATE_NOOP("CommandLine", "of the album, and part of its file names (default: My Album)")},
    {"txtFolder", &settings::Album::AlbumFolder},
    {"TThumbnailWidth", &settings::Album::ThumbnailWidth, 30, 300},
    {"TthumbnailHeight", &settings::Album::ThumbnailHeight, 30, 300},
    {"TPicturesPerRow", &settings::Album::PicturesPerRow, 0, 8, "per-row", "0..8",
     QT_TRANSLATE_NOOP("CommandLine", "thumbnails in a row of the index (default: 5); 0 for all in one row")},
    {"chkResample", &settings::Album::Resample, 0, 1, "no-resample", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "reduce thumbnails without smoothing")},
    {"CShowFileName", &settings::Album::ShowFileName, 0, 1, "no-names", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "don't show file names")},
    {"CShowImageResolution", &settings::Album::ShowImageResolution, 0, 1, "no-sizes", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "don't show the sizes of pictures")},
    {"TBorderSize", &settings::Album::BorderSize, 0, 8, "border", "0..8",
     QT_TRANSLATE_NOOP("CommandLine", "width of the border of pictures (default: 1)")},
    {"BorderColor", &settings::Album::BorderColor, 0, 0, "link-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "of links, and so of the borders of linked pictures (default: black)")},
    {"TableBorderSize", &settings::Album::TableBorderSize, 0, 8, "table-border", "0..8",
     QT_TRANSLATE_NOOP("CommandLine", "width of the border of the index's table (default: 1)")},
    {"CellBorderColor", &settings::Album::CellBorderColor, 0, 0, "table-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "of the borders of tables (default: black)")},
    {"optContainerBackground", &settings::Album::ContainerBackground, 0, 2, "cell-style",
     "gradient|transparent|color",
     QT_TRANSLATE_NOOP("CommandLine", "background of thumbnails (default: gradient)")},
    {"optContainerImage", &settings::Album::ContainerImage, 0, 4, "cell-image", "blue|red|green|black|orange",
     QT_TRANSLATE_NOOP("CommandLine", "gradient of thumbnails (default: blue)")},
    {"cmdContainerBackground", &settings::Album::ContainerColor, 0, 0, "cell-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "with --cell-style color")},
    {"optPageStyle", &settings::Album::PageStyle, 0, 1, "page-style", "gradient|color",
     QT_TRANSLATE_NOOP("CommandLine", "background of pages (default: gradient)")},
    {"optPageImage", &settings::Album::PageImage, 0, 4, "page-image", "violet|red|green|grey|yellow",
     QT_TRANSLATE_NOOP("CommandLine", "gradient of pages (default: violet)")},
    {"AlbumBackground", &settings::Album::AlbumBackground, 0, 0, "page-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "background of pages, seen with --page-style color")},
    {"cboFonts", &settings::Album::FontIndex, 0, 32767},
    {"cboFontSize", &settings::Album::FontSizeIndex, 0, 4, "font-size", "1|2|3|4|5",
     QT_TRANSLATE_NOOP("CommandLine", "of captions, as HTML counts it (default: 3)")},
    {"cmdFontColor", &settings::Album::FontColor, 0, 0, "font-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "of titles and captions (default: black)")},
    {"cmdMetadataFontColor", &settings::Album::MetadataFontColor, 0, 0, "metadata-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "of metadata (default: black)")},
    {"sldQuality", &settings::Album::Quality, 1, 100, "quality", "1..100",
     QT_TRANSLATE_NOOP("CommandLine", "of the JPEG files (default: 75)")},
    {"chkJPGProgressive", &settings::Album::Progressive, 0, 1, "progressive", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "progressive JPEG")},
    {"chkProcessTaskBasket", &settings::Album::ProcessTaskBasket, 0, 1},
    {"chkOpenWhenOver", &settings::Album::OpenWhenOver, 0, 1},
    {"optTemplate", &settings::Album::ModernTemplate, 0, 1, "template", "exact|modern",
     QT_TRANSLATE_NOOP("CommandLine", "an index and pages, or one page for all screens (default: exact)")},
    {"chkOriginals", &settings::Album::Originals, 0, 1, "originals", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "with --template modern: offer the source files for download")},
    {"chkStripPrivate", &settings::Album::StripPrivate, 0, 1, "strip-private", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "leave out GPS positions, serial numbers and makers' own data")},
    {"chkOnlyChanged", &settings::Album::OnlyChanged, 0, 1, "only-changed", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "keep what is still right of the last run, remove what isn't needed")},
};

/// The field of a control; there must be one.
constexpr const AlbumField& albumField(std::string_view control) {
    for (const AlbumField& field : albumFields)
        if (control == field.control)
            return field;
    return albumFields[0];
}

/// Originals hold what is to be left out of the pictures.
inline bool offersOriginals(const settings::Album& settings) {
    return settings.ModernTemplate == 1 && settings.Originals == 1 && settings.StripPrivate == 0;
}

/// Brings every number into its limits.
inline void applyLimits(settings::Album& settings) {
    for (const AlbumField& field : albumFields)
        if (const auto* number = std::get_if<qint16 settings::Album::*>(&field.field))
            settings.** number = std::clamp(settings.**number, qint16(field.lowest), qint16(field.highest));
}

} // namespace tarsel
