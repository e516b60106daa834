// SPDX-License-Identifier: GPL-3.0-or-later
// tarsel-artwork FOLDER ALBUM: draws the pieces of frames and shadows and the masks into a folder, with the
// list of resources that names them, and the images of albums into another one. Every run draws the same
// ones.

#include "artwork/Album.h"
#include "artwork/Artworks.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"

#include <QDir>
#include <cstdio>

namespace tarsel::artwork {

namespace {

void drawAll(const QString& folder) {
    Painting (*const frames[])() = {walnut, goldLeaf, silver, passePartout, cherry, scroll, lacquer, film};
    for (int number = 0; number < 8; ++number) {
        writeFrame(folder, number, frames[number]());
        writeShadow(folder, 8 + number, shadow(8 + number));
    }
    MaskTone (*const masks[])() = {vignette, oval, roundedCorners, tornPaper, mosaic, deckle, brush, heart};
    for (int number = 0; number < 8; ++number)
        writeMask(folder, number, masks[number]());
}

void writeResourceList(const QString& folder) {
    QString list = QStringLiteral("<RCC>\n  <qresource prefix=\"/artwork\">\n");
    const QStringList kinds{QStringLiteral("*.gif"), QStringLiteral("*.jpg")};
    for (const QString& name : QDir(folder).entryList(kinds, QDir::Files, QDir::Name))
        list += QStringLiteral("    <file>%1</file>\n").arg(name);
    writeFileSafely(folder + QStringLiteral("/artwork.qrc"),
                    (list + QStringLiteral("  </qresource>\n</RCC>\n")).toUtf8());
}

} // namespace

} // namespace tarsel::artwork

int main(int argc, char** argv) {
    if (argc != 3 || !QDir().mkpath(QString::fromLocal8Bit(argv[1])) ||
        !QDir().mkpath(QString::fromLocal8Bit(argv[2]))) {
        std::fprintf(stderr, "usage: tarsel-artwork FOLDER ALBUM\n");
        return 2;
    }
    try {
        const QString folder = QString::fromLocal8Bit(argv[1]);
        tarsel::artwork::drawAll(folder);
        tarsel::artwork::writeResourceList(folder);
        tarsel::artwork::writeAlbum(QString::fromLocal8Bit(argv[2]));
    } catch (const tarsel::TrappedError& error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.description));
        return 1;
    }
    return 0;
}
