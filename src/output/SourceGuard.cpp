// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/SourceGuard.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "imaging/ImageBox.h"
#include "output/RowSources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>

namespace tarsel {

namespace {

constexpr qint64 copiedAtOnce = 1 << 20;

QString translated(const char* text) {
    return QCoreApplication::translate("SourceGuard", text);
}

/// "photo (original).jpg" beside "photo.jpg", or the first numbered name that is free.
QString freeNameBeside(const QString& path) {
    const QFileInfo file(path);
    const QString suffix = file.suffix().isEmpty() ? QString() : QLatin1Char('.') + file.suffix();
    const auto name = [&](const QString& number) {
        return file.dir().filePath(
            QStringLiteral("%1 (original%2)%3").arg(file.completeBaseName(), number, suffix));
    };
    QString free = name({});
    for (int number = 2; isNameTaken(free); ++number)
        free = name(QStringLiteral(" %1").arg(number));
    return free;
}

} // namespace

QString readInPartText(const QString& path) {
    return translated(QT_TRANSLATE_NOOP("SourceGuard", "%1 was not replaced: it could be read only in part"))
        .arg(path);
}

bool replacesItsPages(const QString& source, const QString& target) {
    return FileIdentity::of(source) == FileIdentity::of(target) && ImageBox::PageCount(source) > 1;
}

/// An open file that can still be read by a path when another file has taken its place. The path ends in the
/// file's own name, since some formats are recognised by their extension.
class SourceGuard::KeptFile {
public:
    KeptFile(const ScratchFolder& scratch, const FileIdentity& identity, const QString& path,
             std::vector<int> readers) :
        m_identity(identity),
        m_place(QFileInfo(path).canonicalFilePath()), m_file(openRegularFile(path)),
        m_folder(scratch.path() + QStringLiteral("/XXXXXX")),
        m_path(m_folder.filePath(QFileInfo(path).fileName())), m_readers(std::move(readers)) {
        const QString descriptor = QStringLiteral("/proc/self/fd/%1").arg(m_file->handle());
        if (!m_folder.isValid() || !QFile::link(descriptor, m_path))
            fail(ErrorNumber::PermissionDenied, m_path);
    }
    const FileIdentity& identity() const { return m_identity; }
    const QString& path() const { return m_path; }
    const std::vector<int>& readers() const { return m_readers; }

    /// False when the file was not replaced after all.
    bool isReplaced() const { return FileIdentity::of(m_place) != m_identity; }
    /// Copies the file beside its old place, and returns the path of the copy.
    QString save() {
        for (;;) { // until a free name is still free at the end
            QString place = freeNameBeside(m_place);
            SafeFileWriter writer(place);
            copyTo(writer);
            if (writer.commitAsNew())
                return place;
        }
    }

private:
    void copyTo(SafeFileWriter& writer) {
        m_file->seek(0);
        while (!m_file->atEnd()) {
            const QByteArray piece = m_file->read(copiedAtOnce);
            if (piece.isEmpty())
                fail(ErrorNumber::InvalidCall, m_place + QStringLiteral(": ") + m_file->errorString());
            writer.write(piece);
        }
    }

    const FileIdentity m_identity;
    const QString m_place; ///< where the file was
    std::unique_ptr<QFile> m_file;
    QTemporaryDir m_folder;
    QString m_path;
    std::vector<int> m_readers;
};

SourceGuard::SourceGuard(const ListView& pages, SourceReplacing policy, const QStringList& unread) :
    m_policy(policy) {
    for (const QString& path : unread)
        if (QFileInfo::exists(path))
            m_unread.insert(FileIdentity::of(path));
    for (int i = 0; i < pages.count(); ++i)
        for (const QString& path : sourcesOfRow(pages.row(i))) {
            SourceFile& file = m_files[FileIdentity::of(path)];
            if (!file.paths.contains(path))
                file.paths << path;
            if (file.rows.empty() || file.rows.back() != i + 1)
                file.rows.push_back(i + 1);
        }
}

SourceGuard::~SourceGuard() {
    const auto kept = m_kept;
    for (auto each = kept.begin(); each != kept.end(); ++each)
        if (m_kept.contains(each.key()))
            ignoringErrors([&] {
                if (each.value()->isReplaced())
                    logIgnored(QStringLiteral("an original was kept as ") + each.value()->save());
                release(each.value());
            });
}

QString SourceGuard::readablePath(const QString& path) const {
    const auto kept = m_kept.find(path);
    return kept == m_kept.end() ? path : (*kept)->path();
}

SourceGuard::Verdict SourceGuard::verdictOn(int row, const QString& target) const {
    const FileIdentity file = FileIdentity::of(target);
    Verdict verdict;
    const std::vector<int> sources = m_files.value(file).rows;
    verdict.isFailure = m_readInPart.contains(row) && std::ranges::find(sources, row) != sources.end();
    verdict.refusal = verdict.isFailure ? readInPartText(target) : refusalFor(row, file);
    if (!verdict.refusal.isEmpty())
        return verdict;
    const auto other = std::ranges::find_if(sources, [&](int each) { return each != row; });
    if (const int earlier = m_targets.value(file); earlier != 0)
        verdict.remark =
            translated(QT_TRANSLATE_NOOP("SourceGuard", "replaces the file of row %1")).arg(earlier);
    else if (other != sources.end())
        verdict.remark =
            translated(QT_TRANSLATE_NOOP("SourceGuard", "replaces the source of row %1")).arg(*other);
    return verdict;
}

QString SourceGuard::refusalFor(int row, const FileIdentity& target) const {
    if (m_unread.contains(target))
        return translated(QT_TRANSLATE_NOOP("SourceGuard", "would replace a source that could not be read"));
    const std::vector<int> rows = m_files.value(target).rows;
    const bool isOwn = std::ranges::find(rows, row) != rows.end();
    for (const int each : rows) {
        if (m_policy == SourceReplacing::KeptReadable && !m_readInPart.contains(each))
            continue;
        const bool isForeign = m_policy == SourceReplacing::RefusedToOthers && !isOwn;
        const bool needed = each != row && (isForeign || !isSafe(each));
        if (each == row && m_policy == SourceReplacing::Refused)
            return translated(QT_TRANSLATE_NOOP("SourceGuard", "would replace its own source"));
        if (needed || m_policy == SourceReplacing::Refused)
            return translated(QT_TRANSLATE_NOOP("SourceGuard", "would replace the source of row %1"))
                .arg(each);
    }
    return {};
}

void SourceGuard::noteReadInPart(int row) {
    m_readInPart.insert(row);
}

/// Later rows read the open file from now on. A path that is kept already was replaced before: the file there
/// now is nobody's source.
void SourceGuard::keepReadable(int row, const QString& target) {
    if (m_policy != SourceReplacing::KeptReadable)
        return;
    const FileIdentity identity = FileIdentity::of(target);
    const SourceFile source = m_files.value(identity);
    std::vector<int> readers;
    std::ranges::copy_if(source.rows, std::back_inserter(readers), [&](int each) { return each > row; });
    if (readers.empty())
        return;
    std::shared_ptr<KeptFile> kept;
    for (const QString& path : source.paths) {
        if (m_kept.contains(path) || !QFileInfo::exists(path))
            continue;
        if (!m_folder)
            m_folder.emplace();
        if (!kept)
            kept = std::make_shared<KeptFile>(*m_folder, identity, path, readers);
        m_kept.insert(path, kept);
    }
}

void SourceGuard::noteWritten(int row, const QString& target) {
    m_written.insert(row);
    m_targets.insert(FileIdentity::of(target), row);
}

QString SourceGuard::noteDone(int row) {
    QStringList remarks;
    for (const std::shared_ptr<KeptFile>& kept : m_kept.values()) {
        if (kept->readers().back() != row || !m_kept.values().contains(kept))
            continue;
        const bool needed = !std::ranges::all_of(kept->readers(), [&](int each) { return isSafe(each); });
        try {
            if (needed && kept->isReplaced())
                remarks << translated(QT_TRANSLATE_NOOP("SourceGuard", "its original was kept as %1"))
                               .arg(kept->save());
        } catch (const TrappedError& error) {
            remarks << translated(QT_TRANSLATE_NOOP("SourceGuard", "its original could not be kept: %1"))
                           .arg(error.description);
        }
        release(kept);
    }
    return remarks.join(QStringLiteral("; "));
}

/// The closed file's identity can come back as that of a new file, which is nobody's source.
void SourceGuard::release(const std::shared_ptr<KeptFile>& kept) {
    m_files.remove(kept->identity());
    m_kept.removeIf([&](const auto& each) { return each.value() == kept; });
}

void requireNoSource(const ListView& pages, const QString& target, const QStringList& others) {
    constexpr int noRow = 0;
    const SourceGuard guard(pages, SourceReplacing::Refused, others);
    if (const QString refused = guard.verdictOn(noRow, target).refusal; !refused.isEmpty())
        fail(ErrorNumber::InvalidCall, target + QLatin1Char(' ') + refused);
}

} // namespace tarsel
