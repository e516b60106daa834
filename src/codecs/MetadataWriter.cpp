// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/MetadataWriter.h"

#include "base/FileStamp.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "codecs/Codec.h"
#include "embedded/CanonPreview.h"
#include "embedded/ExifTagTable.h"
#include "embedded/MetadataStore.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

constexpr std::int64_t copiedAtOnce = std::int64_t(4) << 20;

IptcChange iptcOf(const EmbeddedMetadata& metadata) {
    return IptcChange::in(ResourceBlocks(metadata.resources));
}

template <class Value>
std::optional<Value> changed(const Value& present, const Value& wanted) {
    return present == wanted ? std::nullopt : std::optional(wanted);
}

[[noreturn]] void failWriting(const QString& path, const char* fact) {
    fail(ErrorNumber::InvalidCall,
         path + QStringLiteral(": ") + QCoreApplication::translate("MetadataWriter", fact));
}

/// Names and values by name, without what leads from one directory to another, and to a preview image that
/// moves with the file.
std::vector<std::pair<QString, QString>> attributesOf(EmbeddedMetadata metadata) {
    if (const auto preview = canonPreview(metadata.exif))
        metadata.exif = withCanonPreviewAt(metadata.exif, *preview, 0);
    const MetadataStore store(std::move(metadata));
    std::vector<std::pair<QString, QString>> attributes;
    for (int i = 0; i < store.ExifCount(); ++i) {
        const ExifTag* tag = exifTagByName(store.ExifName(i));
        if (!tag || !tag->isStructural)
            attributes.emplace_back(store.ExifName(i), store.ExifValue(i));
    }
    std::ranges::sort(attributes);
    return attributes;
}

/// Whether two EXIF blocks say the same, wherever their bytes are and in whatever order.
bool listsTheSame(const EmbeddedMetadata& a, const EmbeddedMetadata& b) {
    return attributesOf(a) == attributesOf(b);
}

/// An existing file, open to be patched.
class PatchedFile {
public:
    explicit PatchedFile(const QString& path) :
        m_path(path), m_file(::open(QFile::encodeName(path).constData(), O_WRONLY | O_CLOEXEC)) {
        if (m_file < 0)
            failForErrno(errno, path);
    }
    ~PatchedFile() { ::close(m_file); }
    PatchedFile(const PatchedFile&) = delete;
    PatchedFile& operator=(const PatchedFile&) = delete;

    void write(const FilePatch& patch) const {
        const ssize_t written =
            ::pwrite(m_file, patch.bytes.constData(), std::size_t(patch.bytes.size()), patch.at);
        if (written != patch.bytes.size())
            failForErrno(written < 0 ? errno : ENOSPC, m_path);
    }
    void sync() const {
        if (::fdatasync(m_file) != 0)
            failForErrno(errno, m_path);
    }
    /// After a failure, of which the caller reports the reason.
    void cutBackTo(std::int64_t size) const { (void)!::ftruncate(m_file, size); }

private:
    QString m_path;
    int m_file;
};

void copyRange(SafeFileWriter& writer, const PictureSource& source, const FilePieces::Piece& range,
               const QString& path) {
    for (std::int64_t done = 0; done < range.size;) {
        const QByteArray bytes = source.bytes(range.from + done, std::min(range.size - done, copiedAtOnce));
        if (bytes.isEmpty())
            failWriting(path, QT_TRANSLATE_NOOP("MetadataWriter", "the file became shorter meanwhile"));
        writer.write(bytes);
        done += bytes.size();
    }
}

class MetadataWriter {
public:
    MetadataWriter(const QString& path, int page, const std::optional<FileStamp>& known = {}) :
        m_path(path), m_page(page), m_stamp(known ? *known : FileStamp::of(path)),
        m_source(PictureSource::ofFile(path)), m_codec(codecForContent(m_source, path)) {
        if (!m_codec || !m_codec->withMetadata)
            failWriting(path,
                        QT_TRANSLATE_NOOP("MetadataWriter", "metadata in this format can't be changed"));
    }

    void write(const EmbeddedMetadata& wanted) {
        const std::optional<FilePieces> content = contentWith(wanted);
        if (!content)
            return;
        const std::optional<FilePatch> patch = patchOfOnePage(m_source, *content);
        if (patch && patch->bytes.isEmpty())
            return;
        if (patch) {
            requireUnchanged();
            PatchedFile(m_path).write(*patch);
        } else if (const auto appended = appendedChange(m_source, *content)) {
            append(*appended, wanted);
        } else {
            writeAnew(*content, wanted);
        }
    }

    QByteArray bytes(const EmbeddedMetadata& wanted) {
        const std::optional<FilePieces> content = contentWith(wanted);
        if (!content)
            return m_source.all();
        QByteArray bytes;
        for (const FilePieces::Piece& piece : content->pieces())
            bytes += piece.bytes.isEmpty() ? m_source.bytes(piece.from, piece.size) : piece.bytes;
        requireReads(PictureSource(bytes), wanted);
        return bytes;
    }

private:
    /// Nothing when the file has these metadata already.
    std::optional<FilePieces> contentWith(const EmbeddedMetadata& wanted) const {
        const MetadataChange change = changeBetween(m_codec->metadata(m_source, m_path, m_page), wanted);
        if (change.isEmpty())
            return std::nullopt;
        return m_codec->withMetadata(m_source, m_path, m_page, change);
    }

    void requireUnchanged() const {
        if (FileStamp::of(m_path) != m_stamp)
            failChanged();
    }

    /// A failure takes back what was appended; a kill leaves bytes after the end of what is read. Nothing is
    /// taken back or cleared when another program has written to the file meanwhile.
    void append(const AppendedChange& change, const EmbeddedMetadata& wanted) const {
        const FilePatch oldLink{change.link.at, m_source.bytes(change.link.at, change.link.bytes.size())};
        const std::int64_t end = change.tail.at + change.tail.bytes.size();
        requireUnchanged();
        const PatchedFile file(m_path);
        bool isLinked = false;
        try {
            file.write(change.tail);
            file.sync();
            requireOwn(oldLink, end);
            isLinked = true;
            file.write(change.link);
            requireReads(PictureSource::ofFile(m_path), wanted);
            requireOwn(change.link, end);
        } catch (...) {
            const std::int64_t size = PictureSource::ofFile(m_path).size();
            if (isLinked && isOwn(change.link, end))
                file.write(oldLink);
            if (size <= end && isOwn(oldLink, size))
                file.cutBackTo(m_source.size());
            throw;
        }
        file.sync();
        if (isOwn(change.link, end))
            for (const FilePatch& zeros : change.cleared)
                file.write(zeros);
    }

    /// Whether the file has this end, and this link in it.
    bool isOwn(const FilePatch& link, std::int64_t end) const {
        const PictureSource file = PictureSource::ofFile(m_path);
        return file.size() == end && file.bytes(link.at, link.bytes.size()) == link.bytes;
    }
    void requireOwn(const FilePatch& link, std::int64_t end) const {
        if (!isOwn(link, end))
            failChanged();
    }
    [[noreturn]] void failChanged() const {
        failWriting(m_path,
                    QT_TRANSLATE_NOOP("MetadataWriter", "another program changed the file meanwhile"));
    }

    void writeAnew(const FilePieces& content, const EmbeddedMetadata& wanted) const {
        SafeFileWriter writer(m_path);
        for (const FilePieces::Piece& piece : content.pieces()) {
            if (piece.bytes.isEmpty())
                copyRange(writer, m_source, piece, m_path);
            else
                writer.write(piece.bytes);
        }
        requireReads(PictureSource::ofFile(writer.temporaryPath()), wanted);
        writer.commit([this] { requireUnchanged(); });
    }

    /// What was written must read as wanted before it replaces anything.
    void requireReads(const PictureSource& written, const EmbeddedMetadata& wanted) const {
        const EmbeddedMetadata read = m_codec->metadata(written, m_path, m_page);
        const MetadataChange difference = changeBetween(read, wanted);
        if (!difference.isEmpty())
            failWriting(m_path,
                        QT_TRANSLATE_NOOP("MetadataWriter",
                                          "the metadata can't be stored in this file without a loss"));
    }

    QString m_path;
    int m_page;
    FileStamp m_stamp;
    PictureSource m_source;
    const Codec* m_codec;
};

} // namespace

IptcChange IptcChange::in(const ResourceBlocks& resources) {
    return {resources.data(ResourceBlocks::iptcNumber), resources.data(ResourceBlocks::digestNumber)};
}

void IptcChange::putInto(ResourceBlocks& resources) const {
    resources.replace(ResourceBlocks::iptcNumber, data);
    if (resources.data(ResourceBlocks::digestNumber) != digest)
        resources.replace(ResourceBlocks::digestNumber, digest);
}

MetadataChange changeBetween(const EmbeddedMetadata& present, const EmbeddedMetadata& wanted) {
    MetadataChange change;
    if (present.exif != wanted.exif && !listsTheSame(present, wanted))
        change.exif = wanted.exif;
    change.iptc = changed(iptcOf(present), iptcOf(wanted));
    change.xmp = changed(present.xmp, wanted.xmp);
    change.dropsCameraSegments = !present.cameraSegments.empty() && wanted.cameraSegments.empty();
    return change;
}

void saveMetadata(const QString& path, int page, const EmbeddedMetadata& wanted,
                  const std::optional<FileStamp>& known) {
    MetadataWriter(path, page, known).write(wanted);
}

QByteArray bytesWithMetadata(const QString& path, int page, const EmbeddedMetadata& wanted) {
    return MetadataWriter(path, page).bytes(wanted);
}

} // namespace tarsel
