// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumArtwork.h"

#include "base/TrappedError.h"

#include <QFile>
#include <iterator>

static void initializeAlbumArtwork() {
    Q_INIT_RESOURCE(album); // must be called outside of a namespace
}

namespace tarsel::albumArtwork {

namespace {

template <std::size_t count>
QString imageOf(const char* const (&names)[count], int index) {
    if (index < 0 || index >= int(count))
        fail(ErrorNumber::SubscriptOutOfRange);
    return QLatin1String(names[index]);
}

} // namespace

QString pageImage(int index) {
    return imageOf(pageImages, index);
}

QString containerImage(int index) {
    return imageOf(containerImages, index);
}

QByteArray resource(const QString& type, const QString& name) {
    static const bool initialized = (initializeAlbumArtwork(), true);
    Q_UNUSED(initialized)
    const QString extension = name.contains(QLatin1Char('.')) ? QString() : QStringLiteral(".GIF");
    QFile file(QStringLiteral(":/publishing/%1/%2").arg(type, name + extension).toLower());
    if (!file.open(QIODevice::ReadOnly))
        fail(ErrorNumber::FileNotFound, type + QLatin1Char(' ') + name);
    return file.readAll();
}

} // namespace tarsel::albumArtwork
