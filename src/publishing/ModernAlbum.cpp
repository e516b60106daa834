// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/ModernAlbum.h"

#include "base/SafeFileWriter.h"
#include "base/Translation.h"
#include "base/TrappedError.h"
#include "collections/modFileSystem.h"
#include "metadata/modMetadata.h"
#include "publishing/AlbumFields.h"
#include "publishing/AlbumNames.h"
#include "publishing/AlbumOptions.h"
#include "publishing/AlbumPictures.h"
#include "publishing/HtmlTemplate.h"
#include "publishing/MetadataLines.h"

#include <QCoreApplication>
#include <algorithm>
#include <ranges>

namespace tarsel {

namespace {

using htmlTemplate::filled;
using htmlTemplate::Html;
using htmlTemplate::Values;

struct Reduction {
    const char* folder;
    int longEdge;
};

/// Thumbnails of plain and of fine screens, and the large picture of most screens.
constexpr Reduction reductions[] = {{"small", 640}, {"medium", 1280}, {"large", 2048}};
constexpr char originals[] = "originals";
constexpr const char* scripts[] = {"album.css", "album.js"};
constexpr int thumbnailSources = 2;
constexpr int picturesAtOnce = 4; ///< the rest is loaded when it is about to be seen
constexpr int widthPerRatio =
    340; ///< pixels that a thumbnail takes in a row of the page, for each of its height

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ModernAlbum)
};

QSize reduced(QSize size, int longEdge) {
    return size.scaled(longEdge, longEdge, Qt::KeepAspectRatio).expandedTo({1, 1});
}

/// Whether a smaller file is worth its place.
bool isWorthReducing(QSize size, int longEdge) {
    return 4 * std::max(size.width(), size.height()) >= 5 * longEdge;
}

QByteArray span(const char* kind, const QString& text) {
    return text.isEmpty()
               ? QByteArray()
               : QByteArray("<span class=\"") + kind + "\">" + htmlTemplate::escaped(text) + "</span>";
}

void copyFile(const QString& source, const QString& target) {
    constexpr qint64 pieceSize = 1 << 20;
    const auto file = openRegularFile(source);
    SafeFileWriter writer(target);
    for (QByteArray piece = file->read(pieceSize); !piece.isEmpty(); piece = file->read(pieceSize))
        writer.write(piece);
    if (file->error() != QFileDevice::NoError)
        fail(ErrorNumber::InvalidCall, Texts::tr("%1: %2").arg(source, file->errorString()));
    writer.commit();
}

} // namespace

// --- files

QStringList ModernAlbum::folders() const {
    QStringList folders{m_names.directoryPath()};
    for (const Reduction& each : reductions)
        folders << m_names.inDirectory(QLatin1String(each.folder));
    if (offersOriginals(m_options.settings))
        folders << m_names.inDirectory(QLatin1String(originals));
    return folders;
}

std::vector<AlbumFile> ModernAlbum::resources() const {
    std::vector<AlbumFile> files;
    for (const char* each : scripts)
        files.push_back({m_names.inDirectory(QLatin1String(each)), htmlTemplate::file(each)});
    return files;
}

std::vector<ModernAlbum::Source> ModernAlbum::sourcesOf(const AlbumRow& row) {
    std::vector<Source> sources;
    const QString file = AlbumNames::picture(row.name);
    for (const Reduction& each : reductions)
        if (isWorthReducing(row.size, each.longEdge))
            sources.push_back(
                {QLatin1String(each.folder) + QLatin1Char('/') + file, reduced(row.size, each.longEdge)});
    sources.push_back({file, row.size});
    return sources;
}

QString ModernAlbum::original(const AlbumRow& row) const {
    if (!offersOriginals(m_options.settings))
        return {};
    const QString extension = modFileSystem::GetFileExtension(row.source);
    return QLatin1String(originals) + QLatin1Char('/') + row.name +
           (extension.isEmpty() ? QString() : QLatin1Char('.') + extension);
}

QStringList ModernAlbum::pictureFiles(const AlbumRow& row) const {
    QStringList paths;
    for (const Source& each : sourcesOf(row) | std::views::reverse)
        paths << m_names.inDirectory(each.path);
    if (const QString file = original(row); !file.isEmpty())
        paths << m_names.inDirectory(file);
    return paths;
}

/// All are encoded before any is written. Each size is made from the next larger one; the smaller files go
/// without metadata, which can take more bytes than a thumbnail.
void ModernAlbum::makePictures(ImageBox& box, AlbumRow& row) const {
    row.size = {box.Width(), box.Height()};
    const QString jpeg = QStringLiteral("jpg");
    setAlbumSettings(box, m_options.settings);
    box.ExifSet(QStringLiteral("Software"), modMetadata::ProductTitle);
    std::vector<AlbumFile> files;
    for (const Source& each : sourcesOf(row) | std::views::reverse) {
        if (each.size != row.size) {
            box.metadata() = MetadataStore();
            box.Resize(each.size.width(), each.size.height());
        }
        files.push_back({m_names.inDirectory(each.path), box.encoded(jpeg)});
    }
    if (const QString file = original(row); !file.isEmpty()) // before a picture can take its place
        copyFile(row.source, m_names.inDirectory(file));
    for (const AlbumFile& each : files)
        writeFileSafely(each.path, each.bytes);
    describePictures(row);
}

void ModernAlbum::describePictures(AlbumRow& row) const {
    row.thumbnail = sourcesOf(row).front().path;
}

// --- the page

QString ModernAlbum::reference(const QString& path) const {
    return htmlTemplate::reference(m_names.directory() + QLatin1Char('/') + path);
}

QString ModernAlbum::sourceSet(const std::vector<Source>& sources) const {
    QStringList set;
    for (const Source& each : sources)
        set << reference(each.path) + QStringLiteral(" %1w").arg(each.size.width());
    return set.join(QStringLiteral(", "));
}

QByteArray ModernAlbum::caption(const AlbumRow& row) const {
    QStringList facts;
    if (m_options.settings.ShowFileName == 1)
        facts << row.name;
    if (m_options.settings.ShowImageResolution == 1)
        facts << QStringLiteral(u"%1\u00A0×\u00A0%2").arg(row.size.width()).arg(row.size.height());
    return span("words", row.words()) + span("quiet", facts.join(QStringLiteral(u" · ")));
}

QByteArray ModernAlbum::facts(const AlbumRow& row) const {
    QByteArray lines;
    for (const auto& [line, value] : row.metadata)
        lines += filled("fact.html", {{"label", line.mid(metadataPrefixLength)}, {"value", value}});
    return lines.isEmpty() ? QByteArray() : filled("facts.html", {{"facts", Html{lines}}});
}

/// Its hundredfold, by which the style of the page knows it.
int ModernAlbum::ratioOf(QSize size) {
    const double ratio = double(size.width()) / size.height();
    const int key = std::clamp(qRound(100 * ratio), 1, 10'000);
    m_ratios.emplace(key, key / 100.0);
    return key;
}

void ModernAlbum::addRow(const AlbumRow& row) {
    if (row.thumbnail.isEmpty())
        return;
    const std::vector<Source> sources = sourcesOf(row);
    const std::vector<Source> thumbnails(
        sources.begin(), sources.begin() + std::min<std::ptrdiff_t>(thumbnailSources, std::ssize(sources)));
    const int ratio = ratioOf(row.size);
    const QString words = row.words();
    const QString file = original(row);
    m_pictures += filled(
        "picture.html",
        {{"number", QString::number(++m_count)},
         {"ratioClass", QStringLiteral("ratio-%1").arg(ratio)},
         {"picture", reference(sources.back().path)},
         {"sources", sourceSet(sources)},
         {"width", QString::number(row.size.width())},
         {"height", QString::number(row.size.height())},
         {"originalLink",
          Html{file.isEmpty() ? QByteArray() : " data-original=\"" + reference(file).toLatin1() + '"'}},
         {"small", reference(row.thumbnail)},
         {"thumbnails", sourceSet(thumbnails)},
         {"sizes",
          QStringLiteral("(max-width: 40rem) 100vw, %1px").arg(std::max(1, ratio * widthPerRatio / 100))},
         {"alternative", words.isEmpty() ? row.name : words},
         {"loading", m_count <= picturesAtOnce ? QStringLiteral("eager") : QStringLiteral("lazy")},
         {"caption", Html{caption(row)}},
         {"facts", Html{facts(row)}}});
}

QByteArray ModernAlbum::index() const {
    QByteArray ratios;
    for (const auto& [key, ratio] : m_ratios)
        ratios += ".ratio-" + QByteArray::number(key) + " { --ratio: " + QByteArray::number(ratio) + "; }\n";
    const QString title = m_options.settings.AlbumTitle.trimmed();
    return filled("index.html",
                  {{"language", Texts::tr("en", "the language of these texts, as HTML names it")},
                   {"title", title.isEmpty() ? Texts::tr("Web album") : title},
                   {"folder", htmlTemplate::reference(m_names.directory())},
                   {"ratios", Html{ratios}},
                   {"count", countedText("ModernAlbum", "1 picture",
                                         QT_TRANSLATE_N_NOOP("ModernAlbum", "%n pictures"), m_count)},
                   {"pictures", Html{m_pictures}},
                   {"positionFormat", Texts::tr("%1 of %2", "number of a picture, number of pictures")},
                   {"original", Texts::tr("Download")},
                   {"details", Texts::tr("Details")},
                   {"close", Texts::tr("Close")},
                   {"previous", Texts::tr("Previous picture")},
                   {"next", Texts::tr("Next picture")}});
}

} // namespace tarsel
