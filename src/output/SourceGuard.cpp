// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/SourceGuard.h"

#include "base/TrappedError.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

/// An open file that can still be read by a path when another file has taken its place. The path ends in the
/// file's own name, since an extension counts in telling formats apart.
class SourceGuard::KeptFile {
public:
    explicit KeptFile(const QString& path) :
        m_file(path), m_path(m_folder.filePath(QFileInfo(path).fileName())) {
        if (!m_file.open(QIODevice::ReadOnly))
            fail(ErrorNumber::PermissionDenied, path + QStringLiteral(": ") + m_file.errorString());
        const QString descriptor = QStringLiteral("/proc/self/fd/%1").arg(m_file.handle());
        if (!m_folder.isValid() || !QFile::link(descriptor, m_path))
            fail(ErrorNumber::PermissionDenied, m_path);
    }
    const QString& path() const { return m_path; }

private:
    QFile m_file;
    QTemporaryDir m_folder;
    QString m_path;
};

SourceGuard::SourceGuard(const ListView& pages, SourceReplacing policy) : m_policy(policy) {
    for (int i = 0; i < pages.count(); ++i) {
        const QString& path = pages.row(i).tag;
        m_sources.push_back(
            {.row = i + 1, .path = path, .identity = FileIdentity::of(path), .written = false});
        m_rows[m_sources.back().identity].push_back(i + 1);
    }
}

SourceGuard::~SourceGuard() = default;

QString SourceGuard::readablePath(const QString& path) const {
    const auto kept = m_kept.find(path);
    return kept == m_kept.end() ? path : (*kept)->path();
}

SourceGuard::Verdict SourceGuard::beforeWriting(int row, const QString& target) {
    const FileIdentity file = FileIdentity::of(target);
    Verdict verdict;
    verdict.refusal = refusalFor(row, file);
    if (!verdict.refusal.isEmpty())
        return verdict;
    if (m_policy == SourceReplacing::KeptReadable)
        keepReadable(row, file);
    const std::vector<int> sources = m_rows.value(file);
    const auto other = std::ranges::find_if(sources, [&](int each) { return each != row; });
    if (const int earlier = m_targets.value(file); earlier != 0)
        verdict.remark = QStringLiteral("replaces the file of row %1").arg(earlier);
    else if (other != sources.end())
        verdict.remark = QStringLiteral("replaces the source of row %1").arg(*other);
    return verdict;
}

QString SourceGuard::refusalFor(int row, const FileIdentity& target) const {
    if (m_policy == SourceReplacing::KeptReadable)
        return {};
    for (const int each : m_rows.value(target)) {
        const bool needed = each != row && !m_sources[size_t(each - 1)].written;
        if (each == row && m_policy == SourceReplacing::Refused)
            return QStringLiteral("would replace its own source");
        if (needed || m_policy == SourceReplacing::Refused)
            return QStringLiteral("would replace the source of row %1").arg(each);
    }
    return {};
}

/// Later rows read the open file from now on. One that is kept already was replaced before: the file there
/// now is nobody's source.
void SourceGuard::keepReadable(int row, const FileIdentity& source) {
    std::shared_ptr<KeptFile> kept;
    for (const int each : m_rows.value(source)) {
        const QString& path = m_sources[size_t(each - 1)].path;
        if (each <= row || m_kept.contains(path) || !QFileInfo::exists(path))
            continue;
        if (!kept)
            kept = std::make_shared<KeptFile>(path);
        m_kept.insert(path, kept);
    }
}

void SourceGuard::noteWritten(int row, const QString& target) {
    if (row <= int(m_sources.size()))
        m_sources[size_t(row - 1)].written = true;
    m_targets.insert(FileIdentity::of(target), row);
}

} // namespace tarsel
