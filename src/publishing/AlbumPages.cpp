// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumPages.h"

#include "publishing/AlbumArtwork.h"
#include "publishing/MetadataLines.h"

namespace tarsel {

namespace {

using namespace albumText;

constexpr int gradient = 0, plainCells = 2; ///< styles of backgrounds

QByteArray colorText(qint32 color) {
    return fncColorToHtml(QString::number(color));
}

QByteArray background(const AlbumNames& names, const QString& image) {
    return "background='" + reference(names.directory()) + '\\' + image.toLower().toLatin1() + '\'';
}

QByteArray cellBackground(const settings::Album& settings, const AlbumNames& names) {
    if (settings.ContainerBackground == gradient)
        return background(names, albumArtwork::containerImage(settings.ContainerImage));
    return settings.ContainerBackground == plainCells ? " bgcolor=" + colorText(settings.ContainerColor)
                                                      : QByteArray();
}

Values commonValues(const AlbumOptions& options, const AlbumNames& names) {
    const settings::Album& settings = options.settings;
    return {
        {"title", text(settings.AlbumTitle)},
        {"folder", reference(names.directory())},
        {"font", quotedText(options.font)},
        {"fontSize", QByteArray::number(settings.FontSizeIndex + 1)},
        {"fontColor", colorText(settings.FontColor)},
        {"metadataColor", colorText(settings.MetadataFontColor)},
        {"linkColor", colorText(settings.BorderColor)},
        {"pageColor", colorText(settings.AlbumBackground)},
        {"cellBorderColor", colorText(settings.CellBorderColor)},
        {"border", QByteArray::number(settings.BorderSize)},
        {"tableBorder", QByteArray::number(settings.TableBorderSize)},
        {"cellBackground", cellBackground(settings, names)},
        {"bodyBackground", settings.PageStyle == gradient
                               ? background(names, albumArtwork::pageImage(settings.PageImage))
                               : QByteArray()},
    };
}

Values with(Values values, const Values& more) {
    values.insert(more);
    return values;
}

} // namespace

AlbumPages::AlbumPages(const AlbumOptions& options, const AlbumNames& names) :
    m_options(options), m_names(names), m_values(commonValues(options, names)),
    m_index(filled(Part::IndexHead, m_values)) {}

void AlbumPages::addCell(const AlbumRow& row) {
    m_index += filled(Part::Cell, with(valuesOf(row), {{"rowEnd", rowEnd()}}));
}

QByteArray AlbumPages::index() const {
    return m_index + filled(Part::IndexEnd, m_values) + "\r\n";
}

QByteArray AlbumPages::page(const AlbumRow& row) const {
    const Values values = valuesOf(row);
    QByteArray page = filled(Part::PageHead, values);
    if (!row.description.trimmed().isEmpty())
        page += filled(Part::Description, values);
    return page + metadataText(row) + filled(Part::PageEnd, values) + "\r\n";
}

Values AlbumPages::valuesOf(const AlbumRow& row) const {
    return with(m_values, {
                              {"page", reference(m_names.page(row.name))},
                              {"picture", reference(AlbumNames::picture(row.name))},
                              {"thumbnail", reference(row.thumbnail)},
                              {"description", text(row.description)},
                              {"caption", caption(row)},
                              {"first", link(row.first, "first.gif")},
                              {"previous", link(row.previous, "previous.gif")},
                              {"home", link(QByteArray("index.htm"), "home.gif")},
                              {"next", link(row.next, "next.gif")},
                              {"last", link(row.last, "last.gif")},
                          });
}

QByteArray AlbumPages::caption(const AlbumRow& row) const {
    const bool showsName = m_options.settings.ShowFileName == 1;
    const bool showsSize = m_options.settings.ShowImageResolution == 1;
    const QByteArray size =
        QByteArray::number(row.size.width()) + " x " + QByteArray::number(row.size.height());
    return filled(Part::Caption, with(m_values, {{"name", showsName ? text(row.name) : QByteArray()},
                                                 {"size", showsSize ? size : QByteArray()}}));
}

QByteArray AlbumPages::link(const std::optional<QString>& row, const char* image) const {
    return row ? link(reference(m_names.page(*row)), image) : QByteArray();
}

QByteArray AlbumPages::link(const QByteArray& page, const char* image) const {
    return filled(Part::Link, with(m_values, {{"page", page}, {"image", image}}));
}

/// After the last cell of a full row, whether more cells follow or not.
QByteArray AlbumPages::rowEnd() {
    if (m_column != m_options.settings.PicturesPerRow - 1) {
        ++m_column;
        return {};
    }
    m_column = 0;
    return filled(Part::RowEnd, m_values);
}

/// One heading of each kind, at the first line of the kind that has a value.
QByteArray AlbumPages::metadataText(const AlbumRow& row) const {
    QByteArray lines;
    bool hasExif = false, hasIptc = false;
    for (const auto& [line, value] : row.metadata) {
        if (line.startsWith(u"EXIF") && !hasExif) {
            hasExif = true;
            lines += filled(Part::ExifHeading, m_values);
        } else if (line.startsWith(u"IPTC") && !hasIptc) {
            hasIptc = true;
            lines += filled(Part::IptcHeading, m_values);
        }
        lines +=
            filled(Part::MetadataLine,
                   with(m_values, {{"label", text(line.mid(metadataPrefixLength))}, {"value", text(value)}}));
    }
    return lines;
}

} // namespace tarsel
