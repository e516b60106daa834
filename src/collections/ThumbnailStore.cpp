// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/ThumbnailStore.h"

#include "base/IgnoringErrors.h"
#include "base/ProgramIdentity.h"
#include "base/TemporaryFile.h"
#include "codecs/ColorProfile.h"
#include "codecs/PictureFile.h"
#include "codecs/PngTexts.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <ranges>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel {

namespace {

struct SizeFolder {
    const char* name;
    int side;
};
constexpr SizeFolder sizeFolders[] = {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}};

// Keys of the standard, and one of our own.
constexpr char uriKey[] = "Thumb::URI";
constexpr char modifiedKey[] = "Thumb::MTime";
constexpr char bytesKey[] = "Thumb::Size";
constexpr char widthKey[] = "Thumb::Image::Width";
constexpr char heightKey[] = "Thumb::Image::Height";
constexpr char softwareKey[] = "Software";
constexpr char orientationKey[] = "X-TarselJPEG::Orientation";

QString failures() {
    return QStringLiteral("fail/") + programIdentity::name;
}

PngTexts textsOf(const ThumbnailSource& source, const QByteArray& software) {
    return {{uriKey, source.uri},
            {modifiedKey, QByteArray::number(source.modified)},
            {bytesKey, QByteArray::number(source.bytes)},
            {softwareKey, software}};
}

bool belongsTo(const PngTexts& texts, const ThumbnailSource& source) {
    return texts.value(uriKey) == source.uri &&
           texts.value(modifiedKey) == QByteArray::number(source.modified) &&
           texts.value(bytesKey, QByteArray::number(source.bytes)) == QByteArray::number(source.bytes);
}

/// The picture of a file of the store in sRGB, unless it is larger than its folder allows or incomplete.
Picture pictureOf(const PictureFile& file, int side) {
    const PictureHeader header = file.header();
    if (header.width > side || header.height > side)
        return {};
    const DecodedPicture decoded = file.decode();
    return decoded.damage.isEmpty() ? converted(decoded.picture, decoded.metadata.iccProfile) : Picture();
}

/// Private folders, as the standard wants them. A link to nothing is there and takes no folder.
bool makeFolder(const QString& path) {
    const auto isMade = [name = QFile::encodeName(path)] {
        return ::mkdir(name.constData(), S_IRWXU) == 0 || errno == EEXIST;
    };
    if (isMade())
        return true;
    const QString parent = QFileInfo(path).path();
    return errno == ENOENT && parent != path && makeFolder(parent) && isMade();
}

void writeAll(int descriptor, const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written = ::write(descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (written < 0 && errno != EINTR)
            throw errno;
        done += std::max<ssize_t>(written, 0);
    }
}

/// Not forced to the disk: a thumbnail that a crash of the system damages is made again.
void writePrivately(const QString& path, const QByteArray& bytes) {
    const QFileInfo target(path);
    makeFolder(target.path());
    try {
        TemporaryFile file(QFile::encodeName(target.path()), S_IRUSR | S_IWUSR, path);
        writeAll(file.descriptor(), bytes);
        file.putInPlace(QFile::encodeName(target.fileName()), true);
    } catch (int reason) {
        failForErrno(reason, path);
    }
}

} // namespace

std::optional<ThumbnailSource> ThumbnailSource::of(const QString& path) {
    struct stat status = {};
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    const QByteArray name = QFile::encodeName(absolute);
    if (::stat(name.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return ThumbnailSource{absolute, "file://" + name.toPercentEncoding("!$&'()*+,:=@/"),
                           qint64(status.st_mtime), qint64(status.st_size)};
}

ThumbnailStore::ThumbnailStore(QString folder) :
    m_folder(QDir::cleanPath(folder)),
    m_software((programIdentity::title + QLatin1Char(' ') + QCoreApplication::applicationVersion())
                   .trimmed()
                   .toLatin1()) {}

int ThumbnailStore::sideFor(Size box) {
    for (const SizeFolder& each : sizeFolders)
        if (box.width <= each.side && box.height <= each.side)
            return each.side;
    return 0;
}

bool ThumbnailStore::contains(const QString& path) const {
    return path.startsWith(m_folder + QLatin1Char('/'));
}

QString ThumbnailStore::fileOf(const QString& kind, const ThumbnailSource& source) const {
    const QByteArray sum = QCryptographicHash::hash(source.uri, QCryptographicHash::Md5).toHex();
    return m_folder + QLatin1Char('/') + kind + QLatin1Char('/') + QString::fromLatin1(sum) +
           QStringLiteral(".png");
}

std::optional<StoredThumbnail> ThumbnailStore::find(const ThumbnailSource& source, int side) const {
    for (const SizeFolder& each : sizeFolders)
        if (each.side >= side)
            if (auto found = read(fileOf(QLatin1String(each.name), source), source, each.side))
                return found;
    return std::nullopt;
}

std::optional<StoredThumbnail> ThumbnailStore::findLargest(const ThumbnailSource& source) const {
    for (const SizeFolder& each : sizeFolders | std::views::reverse)
        if (auto found = read(fileOf(QLatin1String(each.name), source), source, each.side))
            return found;
    return std::nullopt;
}

std::optional<StoredThumbnail> ThumbnailStore::read(const QString& path, const ThumbnailSource& source,
                                                    int side) {
    if (!QFile::exists(path))
        return std::nullopt;
    StoredThumbnail found;
    ignoringErrors([&] {
        const PictureFile file(path);
        const PngTexts texts = pngTexts(file.source(), path);
        if (!belongsTo(texts, source))
            return;
        found.sourceSize = {texts.value(widthKey).toInt(), texts.value(heightKey).toInt()};
        found.orientation = texts.value(orientationKey).toInt();
        found.picture = pictureOf(file, side);
    });
    return found.picture.isNull() ? std::nullopt : std::optional(found);
}

void ThumbnailStore::keep(const ThumbnailSource& source, int side, const StoredThumbnail& made) {
    PngTexts texts = textsOf(source, m_software);
    texts[widthKey] = QByteArray::number(made.sourceSize.width);
    texts[heightKey] = QByteArray::number(made.sourceSize.height);
    texts[orientationKey] = QByteArray::number(made.orientation);
    for (const SizeFolder& each : sizeFolders)
        if (each.side == side && m_isWritable)
            write(QLatin1String(each.name), source, encodePngWithTexts(made.picture, texts));
}

void ThumbnailStore::keepFailure(const ThumbnailSource& source) {
    Picture nothing(1, 1, 3);
    std::fill_n(nothing.edit().row(0), 3, std::uint8_t(255));
    if (m_isWritable)
        write(failures(), source, encodePngWithTexts(nothing, textsOf(source, m_software)));
}

bool ThumbnailStore::hasFailed(const ThumbnailSource& source) const {
    const QString path = fileOf(failures(), source);
    if (!QFile::exists(path))
        return false;
    bool failed = false;
    ignoringErrors([&] {
        const PngTexts texts = pngTexts(PictureSource::ofFile(path), path);
        failed = belongsTo(texts, source) && texts.value(softwareKey) == m_software;
    });
    return failed;
}

void ThumbnailStore::write(const QString& kind, const ThumbnailSource& source, const QByteArray& png) {
    if (!ignoringErrors([&] { writePrivately(fileOf(kind, source), png); }))
        m_isWritable = false;
}

} // namespace tarsel
