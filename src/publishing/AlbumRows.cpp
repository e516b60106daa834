// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumRows.h"

#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/Locale.h"
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "collections/modFileSystem.h"
#include "metadata/modMetadata.h"
#include "publishing/AlbumPictures.h"
#include "publishing/MetadataLines.h"

#include <QCoreApplication>
#include <utility>

namespace tarsel {

namespace {

/// Whether pages show metadata of files with this extension.
bool hasMetadataLines(const QString& path) {
    static const QStringList extensions{QStringLiteral("tiff"), QStringLiteral("tif"), QStringLiteral("jpeg"),
                                        QStringLiteral("jpg"), QStringLiteral("psd")};
    return extensions.contains(modFileSystem::GetFileExtension(path).toLower());
}

/// Reports a failure of the row in work, which goes on.
void report(std::optional<TrappedError>& failure) {
    if (failure)
        std::ignore = trap("Album.fncGenerateJPGsForAlbum", [&] { throw *failure; });
}

} // namespace

AlbumRows::AlbumRows(const ListView& lvPages, const AlbumOptions& options, const AlbumNames& names,
                     const AlbumRun& run) :
    m_list(lvPages),
    m_options(options), m_names(names), m_run(run), m_forms(service<Locale>().dateForms()),
    m_sources(lvPages, SourceReplacing::RefusedUntilDone, run.unreadSources), m_pages(options, names) {}

void AlbumRows::writeFile(const QString& path, const QByteArray& bytes) const {
    constexpr int noRow = 0;
    if (const QString refused = m_sources.verdictOn(noRow, path).refusal; !refused.isEmpty())
        fail(ErrorNumber::InvalidCall, path + QLatin1Char(' ') + refused);
    writeFileSafely(path, bytes);
}

/// What the pages need of the list is copied: the rest of the work runs beside the window.
void AlbumRows::begin(const ListRow& row, int position) {
    const auto nameOf = [&](int other) {
        const bool isOther = other >= 1 && other <= m_list.count() && other != position;
        return isOther ? std::optional(m_list.row(other - 1).text) : std::nullopt;
    };
    m_row = {.name = row.text,
             .description = row.subItems.value(BasketColumn::Description - 1),
             .thumbnail = {},
             .size = m_row.size,
             .first = nameOf(1),
             .previous = nameOf(position - 1),
             .next = nameOf(position + 1),
             .last = nameOf(m_list.count()),
             .metadata = {}};
    m_pictureFailure.reset();
    m_metadataFailure.reset();
    m_isWritten = false;
}

std::function<bool()> AlbumRows::consume(const ListRow& row, ImageBox& box, RowResult& result) {
    begin(row, result.row);
    result.target = m_names.inDirectory(AlbumNames::picture(row.text));
    setAlbumSettings(box, m_options.settings);
    if (!box.LoadDamage().isEmpty() || replacesItsPages(row.tag, result.target))
        m_sources.noteReadInPart(result.row);
    const QString refused = refusal(result);
    if (!refused.isEmpty())
        result.skip(SkipReason::Refused, refused);
    else if (const QString remark = m_sources.verdictOn(result.row, result.target).remark; !remark.isEmpty())
        result.remark(remark);
    return [this, &box, isRefused = !refused.isEmpty(), source = row.tag] {
        if (!isRefused)
            makePictures(box, m_names.directoryPath());
        finishRow(source);
        return !isRefused;
    };
}

/// Why one of the row's pictures can't be written.
QString AlbumRows::refusal(const RowResult& result) const {
    const QString thumbnail = m_names.inDirectory(AlbumNames::thumbnail(m_row.name));
    for (const QString& target : {result.target, thumbnail})
        if (const QString refused = m_sources.verdictOn(result.row, target).refusal; !refused.isEmpty())
            return refused;
    return {};
}

std::function<void()> AlbumRows::consumeWithoutPicture(const ListRow& row, RowResult& result,
                                                       const std::optional<TrappedError>& failure) {
    begin(row, result.row);
    m_pictureFailure = failure;
    return [this, source = row.tag] { finishRow(source); };
}

void AlbumRows::makePictures(ImageBox& box, const QString& folder) {
    QSize size;
    m_pictureFailure = failureOf([&] {
        if (m_run.stripPrivate)
            modMetadata::RemovePrivateMetadata(box);
        m_row.thumbnail = fncGenerateJPGsForAlbum(box, m_options.settings, folder, m_row.name, size);
    });
    if (!size.isNull())
        m_row.size = size;
    m_isWritten = !m_pictureFailure;
}

/// Of the source, whatever the tasks made of its picture.
void AlbumRows::readMetadata(const QString& source) {
    m_row.metadata.clear();
    ImageBox ib;
    modMetadata::ReadMetadata(source, ib);
    for (const QString& line : m_options.metadata)
        if (const QString value = fncRetrieveTagValue(line, ib, m_forms).trimmed(); !value.isEmpty())
            m_row.metadata.emplace_back(line, value);
}

/// Raises only what ends the run.
void AlbumRows::finishRow(const QString& source) {
    if (!m_options.metadata.isEmpty() && hasMetadataLines(source))
        m_metadataFailure = failureOf([&] { readMetadata(source); });
    writeFile(m_names.pagePath(m_row.name), m_pages.page(m_row));
    m_pages.addCell(m_row);
}

void AlbumRows::noteWritten(const RowResult& result) {
    if (!m_isWritten)
        return;
    m_sources.noteWritten(result.row, result.target);
    m_sources.noteWritten(result.row, m_names.inDirectory(AlbumNames::thumbnail(m_row.name)));
}

void AlbumRows::noteDone(RowResult& result) {
    auto pictureFailure = std::exchange(m_pictureFailure, std::nullopt);
    auto metadataFailure = std::exchange(m_metadataFailure, std::nullopt);
    if (pictureFailure && result.state == RowState::Written) {
        result.state = RowState::Failed;
        result.remark(pictureFailure->description);
    }
    report(pictureFailure);
    report(metadataFailure);
    if (metadataFailure)
        result.remark(QCoreApplication::translate("AlbumRows", "the page has no metadata: %1")
                          .arg(metadataFailure->description));
    if (const QString kept = m_sources.noteDone(result.row); !kept.isEmpty())
        result.remark(kept);
}

} // namespace tarsel
