// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/JoinedFile.h"

#include "base/CodePage.h"
#include "base/IgnoringErrors.h"
#include "base/TemporaryFile.h"
#include "base/TrappedError.h"
#include "publishing/joined/JoinedTrailer.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cerrno>
#include <sys/stat.h>

namespace tarsel {

namespace {

constexpr qint64 pieceSize = 1 << 20;

void makeRunnable(int file, const QString& path) {
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return;
    const mode_t readers = status.st_mode & (S_IRUSR | S_IRGRP | S_IROTH);
    if (::fchmod(file, (status.st_mode & 07777) | (readers >> 2)) != 0)
        logIgnored(QStringLiteral("not made executable: ") + path);
}

/// A link of that name, by which another user could lead the bytes elsewhere, is replaced and not followed.
void writeTemporary(const QString& name, const std::string& list) {
    const QString folder = QDir::tempPath();
    const QString shown = folder + QLatin1Char('/') + name;
    TemporaryFile file(QFile::encodeName(folder), S_IRUSR | S_IWUSR, shown);
    QFile bytes;
    if (!bytes.open(file.descriptor(), QIODevice::WriteOnly) ||
        bytes.write(list.data(), qint64(list.size())) != qint64(list.size()) || !bytes.flush())
        fail(ErrorNumber::InvalidCall, shown + QStringLiteral(": ") + bytes.errorString());
    constexpr bool replaces = true;
    try {
        file.putInPlace(QFile::encodeName(name), replaces);
    } catch (int errnoValue) {
        failForErrno(errnoValue, shown);
    }
}

/// A player finds nothing after the last position.
[[noreturn]] void failForSize(const QString& path) {
    fail(ErrorNumber::InvalidCall,
         QCoreApplication::translate("JoinedFile", "%1: the pictures exceed the 10 GB of such a file")
             .arg(path));
}

void copyProgram(const QString& path, joined::JoinedWriter& writer) {
    const std::unique_ptr<QFile> program = openRegularFile(path);
    if (std::uint64_t(program->size()) > joined::lastPosition)
        failForSize(path);
    QByteArray piece;
    writer.player([&]() -> std::string_view {
        piece = program->read(pieceSize);
        if (program->error() != QFileDevice::NoError)
            fail(ErrorNumber::InvalidCall, path + QStringLiteral(": ") + program->errorString());
        return {piece.constData(), std::size_t(piece.size())};
    });
}

} // namespace

JoinedFile::JoinedFile(const QString& path, const QString& player) :
    m_path(path), m_file(path),
    m_writer([this](std::string_view bytes) { m_file.write(bytes.data(), qsizetype(bytes.size())); }) {
    copyProgram(player, m_writer);
}

void JoinedFile::add(const QString& name, const QByteArray& jpeg) {
    m_writer.picture(codePage::encode(name).toStdString(), {jpeg.constData(), std::size_t(jpeg.size())});
    if (m_writer.size() > joined::lastPosition)
        failForSize(m_path);
}

void JoinedFile::commit(const std::string& options) {
    if (!m_writer.finish(options))
        failForSize(m_path);
    m_file.commit([this] { makeRunnable(m_file.descriptor(), m_path); });
}

void JoinedFile::leaveList(const QString& name) const {
    ignoringErrors([&] { writeTemporary(name, m_writer.list()); });
}

} // namespace tarsel
