// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumRows.h"

#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/FileIdentity.h"
#include "base/IgnoringErrors.h"
#include "base/Locale.h"
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "collections/modFileSystem.h"
#include "metadata/modMetadata.h"
#include "publishing/AlbumNames.h"
#include "publishing/AlbumPictures.h"
#include "publishing/MetadataLines.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <utility>

namespace tarsel {

namespace {

constexpr int noRow = 0;

/// Whether pages show metadata of files with this extension.
bool hasMetadataLines(const QString& path) {
    static const QStringList extensions{QStringLiteral("tiff"), QStringLiteral("tif"), QStringLiteral("jpeg"),
                                        QStringLiteral("jpg"), QStringLiteral("psd")};
    return extensions.contains(modFileSystem::GetFileExtension(path).toLower());
}

/// The first text that isn't empty.
QString firstOf(const QStringList& files, const std::function<QString(const QString& file)>& textOf) {
    for (const QString& file : files)
        if (QString text = textOf(file); !text.isEmpty())
            return text;
    return {};
}

} // namespace

AlbumRows::AlbumRows(const AlbumSources& sources, const AlbumOptions& options, const AlbumNames& names,
                     const AlbumRun& run) :
    m_sources(sources),
    m_options(options), m_names(names), m_run(run), m_forms(service<Locale>().dateForms()),
    m_guard(sources.lvPages, SourceReplacing::RefusedToOthers, run.unreadSources),
    m_template(albumTemplate(options, names)) {}

// --- files that belong to no row

void AlbumRows::writeFile(const AlbumFile& file) {
    if (const QString refused = refusal(noRow, file.path); !refused.isEmpty())
        fail(ErrorNumber::InvalidCall, file.path + QLatin1Char(' ') + refused);
    if (!keepsFiles() || !AlbumUpdate::stands(file))
        writeFileSafely(file.path, file.bytes);
    if (m_update)
        m_update->noteFile(file.path);
}

void AlbumRows::writeResources() {
    m_update.emplace(m_names);
    if (!keepsFiles() && !m_update->hasRecord())
        m_update.reset();
    else
        m_sourcesBefore = sourceFiles();
    for (const AlbumFile& file : m_template->resources())
        writeFile(file);
}

void AlbumRows::writeIndex() {
    writeFile({m_names.index(), m_template->index()});
}

std::vector<RowResult> AlbumRows::finish(bool isComplete) {
    if (!m_update)
        return {};
    if (keepsFiles() && isComplete &&
        m_run.unreadSources.isEmpty()) // one that is missing may be back in the next run
        return m_update->finish([sources = sourceFiles()](const QString& path) {
            return !sources.contains(FileIdentity::of(path));
        });
    ignoringErrors([this] { m_update->suspend(); });
    return {};
}

/// Also those that rows were made from already: a picture may be replaced then, but not removed.
QSet<FileIdentity> AlbumRows::sourceFiles() const {
    QSet<FileIdentity> files;
    for (int i = 0; i < m_sources.lvPages.count(); ++i) {
        const ListRow& row = m_sources.lvPages.row(i);
        files << FileIdentity::of(row.tag) << FileIdentity::of(shownSource(row));
    }
    for (const QString& path : m_run.unreadSources)
        files << FileIdentity::of(path);
    return files;
}

// --- rows that are as the last run left them

QByteArray AlbumRows::digestOf(const ListRow& row) const {
    const bool runsTasks = m_options.settings.ProcessTaskBasket == 1 && m_sources.tasks;
    return albumDigest(row.tag, m_options.settings, m_run.upright,
                       runsTasks ? m_sources.tasks() : std::vector<TaskRow>());
}

/// The files of a row's pictures, by the size of the picture.
std::function<QStringList(QSize)> AlbumRows::filesOf(const AlbumRow& row) const {
    return [this, row](QSize size) {
        AlbumRow sized = row;
        sized.size = size;
        return m_template->pictureFiles(sized);
    };
}

std::optional<QSize> AlbumRows::currentSize(const ListRow& row) const {
    AlbumRow known;
    known.name = row.text;
    known.source = row.tag;
    return m_update->currentSize(row.text, digestOf(row), filesOf(known));
}

bool AlbumRows::needsPicture(const ListRow& row) {
    return !keepsFiles() || !currentSize(row);
}

std::function<void()> AlbumRows::consumeUnread(const ListRow& row, RowResult& result) {
    begin(row, result.row);
    m_row.size = currentSize(row).value_or(m_row.size);
    m_files = m_template->pictureFiles(m_row);
    m_template->describePictures(m_row);
    m_isWritten = true;
    result.target = m_files.constFirst();
    return [this] { finishRow(); };
}

// --- the others

/// What the pages need of the list is copied: the rest of the work runs beside the window.
void AlbumRows::begin(const ListRow& row, int position) {
    const ListView& list = m_sources.lvPages;
    const auto nameOf = [&](int other) {
        const bool isOther = other >= 1 && other <= list.count() && other != position;
        return isOther ? std::optional(list.row(other - 1).text) : std::nullopt;
    };
    m_row = {.name = row.text,
             .source = row.tag,
             .description = row.subItems.value(BasketColumn::Description - 1),
             .caption = {},
             .thumbnail = {},
             .size = m_row.size,
             .first = nameOf(1),
             .previous = nameOf(position - 1),
             .next = nameOf(position + 1),
             .last = nameOf(list.count()),
             .metadata = {}};
    m_digest = m_update ? digestOf(row) : QByteArray();
    m_files.clear();
    m_pictureFailure.reset();
    m_metadataFailure.reset();
    m_isWritten = false;
}

std::function<bool()> AlbumRows::consume(const ListRow& row, ImageBox& box, RowResult& result) {
    begin(row, result.row);
    AlbumRow made = m_row; // a row that fails keeps the size of the row before
    made.size = {box.Width(), box.Height()};
    m_files = m_template->pictureFiles(made);
    m_replacedSources.clear();
    for (const QString& file : m_files)
        if (m_sourcesBefore.contains(FileIdentity::of(file)))
            m_replacedSources << file;
    result.target = m_files.constFirst();
    setAlbumSettings(box, m_options.settings);
    if (!box.LoadDamage().isEmpty() || replacesItsPages(row.tag, result.target))
        m_guard.noteReadInPart(result.row);
    const QString refused = firstOf(m_files, [&](const QString& file) { return refusal(result.row, file); });
    if (!refused.isEmpty())
        result.skip(SkipReason::Refused, refused);
    else if (const QString remark = firstOf(
                 m_files, [&](const QString& file) { return m_guard.verdictOn(result.row, file).remark; });
             !remark.isEmpty())
        result.remark(remark);
    return [this, &box, isRefused = !refused.isEmpty()] {
        if (!isRefused)
            makePictures(box);
        finishRow();
        return !isRefused;
    };
}

/// Why the file can't be written; empty where it can.
QString AlbumRows::refusal(int row, const QString& path) const {
    if (QFileInfo(path).isSymLink())
        return QCoreApplication::translate("AlbumRows", "is a link to a file that may be outside the album");
    return m_guard.verdictOn(row, path).refusal;
}

std::function<void()> AlbumRows::consumeWithoutPicture(const ListRow& row, RowResult& result,
                                                       const std::optional<TrappedError>& failure) {
    begin(row, result.row);
    m_pictureFailure = failure;
    return [this] { finishRow(); };
}

void AlbumRows::makePictures(ImageBox& box) {
    m_pictureFailure = failureOf([&] {
        if (m_options.settings.StripPrivate == 1)
            modMetadata::RemovePrivateMetadata(box);
        m_template->makePictures(box, m_row);
    });
    m_isWritten = !m_pictureFailure;
}

/// Of the source, whatever the tasks made of its picture.
void AlbumRows::readMetadata() {
    ImageBox ib;
    modMetadata::ReadMetadata(m_row.source, ib);
    const auto valueOf = [&](const QString& line) {
        return fncRetrieveTagValue(line, ib, m_forms).trimmed();
    };
    for (const QString& line : m_options.metadata)
        if (const QString value = valueOf(line); !value.isEmpty())
            m_row.metadata.emplace_back(line, value);
    m_row.caption = valueOf(QStringLiteral("IPTC - Caption"));
    if (m_row.caption.isEmpty())
        m_row.caption = valueOf(QStringLiteral("EXIF - Image Description"));
}

/// Raises only what ends the run.
void AlbumRows::finishRow() {
    const bool showsMetadata = !m_options.metadata.isEmpty() || m_options.settings.ModernTemplate == 1;
    if (showsMetadata && hasMetadataLines(m_row.source))
        m_metadataFailure = failureOf([&] { readMetadata(); });
    if (const auto page = m_template->page(m_row))
        writeFile(*page);
    m_template->addRow(m_row);
}

void AlbumRows::noteWritten(const RowResult& result) {
    if (!m_isWritten)
        return;
    for (const QString& file : m_files) {
        m_guard.noteWritten(result.row, file);
        if (m_update && !m_replacedSources.contains(file))
            m_update->noteFile(file);
    }
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
    if (const QString kept = m_guard.noteDone(result.row); !kept.isEmpty())
        result.remark(kept);
    noteMade(result);
}

/// A row with a remark, such as a damaged source, is made again by the next run, which says so again.
void AlbumRows::noteMade(const RowResult& result) {
    const QByteArray digest = std::exchange(m_digest, {}); // none for a row that was not begun
    if (digest.isEmpty())
        return;
    if (m_isWritten)
        m_update->noteRow(m_row.name, result.remarks.isEmpty() ? digest : QByteArray(), m_row.size);
    else
        m_update->keepRow(m_row.name, filesOf(m_row));
}

/// Reports the first failure of a row; a box for each of fifty would hide what they have in common.
void AlbumRows::report(const std::optional<TrappedError>& failure) {
    if (failure && !std::exchange(m_hasReported, true))
        std::ignore = trap("Album.fncGenerateJPGsForAlbum", [&] { throw *failure; });
}

} // namespace tarsel
