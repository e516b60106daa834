// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PictureFacts.h"

#include "base/ErrorTrap.h"
#include "codecs/PictureFile.h"
#include "collections/LoadSource.h"
#include "collections/clsFileInfo.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

PictureFile recognised(const QString& path) {
    PictureFile file(path);
    if (!file.isRecognised())
        fail(ErrorNumber::InvalidPicture,
             QCoreApplication::translate("CommandLine", "%1: unknown content").arg(path));
    return file;
}

void readHeader(PictureFacts& facts) {
    const PictureFile file = recognised(facts.path);
    facts.format = file.formatName();
    facts.header = file.header();
}

/// As the window's two lists show them: which formats fill which list goes by the extension.
void listMetadata(PictureFacts& facts, const ImageBox& box) {
    const auto listed = modMetadata::listedMetadata(modFileSystem::GetFileExtension(facts.path));
    if (listed == modMetadata::ListedMetadata::ExifAndIptc)
        modMetadata::ListExifAttributes(box, facts.exif, facts.path);
    if (listed != modMetadata::ListedMetadata::None)
        modMetadata::ListIptcAttributes(box, facts.iptc, facts.path);
}

void decode(PictureFacts& facts) {
    ImageBox box;
    loadPicture(box, facts.path);
    facts.damage = box.LoadDamage();
    facts.width = box.Width();
    facts.height = box.Height();
    facts.bitsPerPixel = box.BitsPerPixel();
    facts.pages = ImageBox::PageCount(facts.path);
    listMetadata(facts, box);
}

/// The raw name where a row has one, as EXIF rows do, and what a person sees.
JsonLine jsonOfRow(const ListRow& row, bool named) {
    JsonLine line;
    if (named)
        line.add("name", row.tag);
    return line.add("label", row.text).add("value", row.subItems.value(0));
}

JsonLine jsonOfHeader(const PictureHeader& header) {
    return JsonLine()
        .add("width", header.width)
        .add("height", header.height)
        .add("bitsPerPixel", header.bitsPerPixel)
        .add("dpi", header.dpi);
}

QString sizeText(int width, int height, int bits) {
    return QStringLiteral("%1 x %2, %3 bit").arg(width).arg(height).arg(bits);
}

/// Rows with a value, under a heading; nothing when there are none.
QStringList section(const char* heading, const ListView& rows, QString (*inWords)(const QString& label)) {
    constexpr int labelWidth = 36;
    QStringList lines;
    for (int i = 0; i < rows.count(); ++i)
        if (const QString value = rows.row(i).subItems.value(0); !value.isEmpty())
            lines << QStringLiteral("    %1 ").arg(inWords(rows.row(i).text), -labelWidth) + value;
    if (!lines.isEmpty())
        lines.prepend(QStringLiteral("  ") + QLatin1String(heading));
    return lines;
}

/// The first page of a document that can't be read, and why; empty when all can.
QString badPageOf(const QString& path) {
    const int pages = ImageBox::PageCount(path);
    int page = 1;
    try {
        const PictureFile file(path);
        ImageBox box;
        for (; page <= pages; ++page)
            box.LoadPage(file, page);
    } catch (const TrappedError& error) {
        return QCoreApplication::translate("CommandLine", "page %1 of %2: %3")
            .arg(page)
            .arg(pages)
            .arg(error.description);
    }
    return {};
}

} // namespace

void loadPicture(ImageBox& box, const QString& path) {
    if (loadSource(box, path))
        return;
    (void)recognised(path);
    fail(ErrorNumber::InvalidPicture, path + QStringLiteral(": ") + noPictureReason(path));
}

void readPictureFacts(const QString& path, PictureFacts& facts) {
    facts.path = path;
    try {
        readHeader(facts);
        decode(facts);
    } catch (const TrappedError& error) {
        facts.reason = error.description;
    } catch (const std::bad_alloc&) {
        facts.reason = path + QStringLiteral(": ") + errorText(ErrorNumber::OutOfMemory);
    }
}

QList<JsonLine> jsonOfRows(const ListView& rows, bool named) {
    QList<JsonLine> lines;
    for (int i = 0; i < rows.count(); ++i)
        lines << jsonOfRow(rows.row(i), named);
    return lines;
}

QString jsonOf(const PictureFacts& facts) {
    JsonLine line;
    line.add("path", facts.path)
        .add("state", facts.reason.isEmpty() ? QStringLiteral("ok") : QStringLiteral("failed"))
        .add("reason", facts.reason)
        .add("damage", facts.damage)
        .add("format", facts.format)
        .add("width", facts.width)
        .add("height", facts.height)
        .add("bitsPerPixel", facts.bitsPerPixel)
        .add("pages", facts.pages);
    if (facts.header)
        line.add("header", jsonOfHeader(*facts.header));
    else
        line.addNull("header");
    return line.add("exif", jsonOfRows(facts.exif, true)).add("iptc", jsonOfRows(facts.iptc, false)).text();
}

QStringList linesOf(const PictureFacts& facts) {
    QStringList lines{facts.path};
    if (!facts.reason.isEmpty())
        lines << QCoreApplication::translate("CommandLine", "  failed: %1").arg(facts.reason);
    if (facts.header)
        lines << QCoreApplication::translate("CommandLine", "  header: %1, %2, %3 dpi")
                     .arg(facts.format,
                          sizeText(facts.header->width, facts.header->height, facts.header->bitsPerPixel))
                     .arg(facts.header->dpi);
    if (facts.reason.isEmpty())
        lines << QCoreApplication::translate("CommandLine", "  decoded: %1, pages: %2")
                     .arg(sizeText(facts.width, facts.height, facts.bitsPerPixel))
                     .arg(facts.pages);
    if (!facts.damage.isEmpty())
        lines << QCoreApplication::translate("CommandLine", "  damaged: %1").arg(facts.damage);
    const auto asListed = [](const QString& label) { return label; };
    return lines + section("EXIF", facts.exif, asListed) +
           section("IPTC", facts.iptc, modMetadata::IptcLabelInWords);
}

QString unreadableReason(const QString& path) {
    PictureFacts facts;
    readPictureFacts(path, facts);
    if (facts.pages > 1 || (facts.pages == 0 && ImageBox::PageCount(path) > 1))
        if (const QString fact = badPageOf(path); !fact.isEmpty())
            return fact;
    return facts.reason.isEmpty()
               ? QCoreApplication::translate("CommandLine", "%1: can't be read as a picture").arg(path)
               : facts.reason;
}

} // namespace tarsel::cli
