// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PictureFacts.h"

#include "base/ErrorTrap.h"
#include "cli/JsonLine.h"
#include "codecs/PictureFile.h"
#include "collections/LoadSource.h"
#include "collections/clsFileInfo.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

void readHeader(PictureFacts& facts) {
    const PictureFile file(facts.path);
    if (!file.isRecognised())
        fail(ErrorNumber::InvalidPicture,
             QCoreApplication::translate("CommandLine", "%1: unknown content").arg(facts.path));
    facts.format = file.formatName();
    facts.header = file.header();
}

/// As the window's two lists show them: which formats fill which list goes by the extension.
void listMetadata(PictureFacts& facts, const ImageBox& box) {
    static const QStringList both{QStringLiteral("tif"), QStringLiteral("tiff"), QStringLiteral("jpg"),
                                  QStringLiteral("jpeg"), QStringLiteral("jpe")};
    const QString extension = modFileSystem::GetFileExtension(facts.path).toLower();
    if (both.contains(extension))
        modMetadata::ListExifAttributes(box, facts.exif, facts.path);
    if (both.contains(extension) || extension == QLatin1String("psd"))
        modMetadata::ListIptcAttributes(box, facts.iptc, facts.path);
}

void decode(PictureFacts& facts) {
    ImageBox box;
    if (!loadSource(box, facts.path))
        fail(ErrorNumber::InvalidPicture, facts.path + QStringLiteral(": ") + noPictureReason(facts.path));
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

QList<JsonLine> jsonOfRows(const ListView& rows, bool named) {
    QList<JsonLine> lines;
    for (int i = 0; i < rows.count(); ++i)
        lines << jsonOfRow(rows.row(i), named);
    return lines;
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
QString section(const char* heading, const ListView& rows) {
    constexpr int labelWidth = 36;
    QString text;
    for (int i = 0; i < rows.count(); ++i)
        if (const QString value = rows.row(i).subItems.value(0); !value.isEmpty())
            text += QStringLiteral("\n    %1 %2").arg(rows.row(i).text, -labelWidth).arg(value);
    return text.isEmpty() ? text : QStringLiteral("\n  ") + QLatin1String(heading) + text;
}

} // namespace

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

QString textOf(const PictureFacts& facts) {
    QString text = facts.path;
    if (!facts.reason.isEmpty())
        text += QCoreApplication::translate("CommandLine", "\n  failed: %1").arg(facts.reason);
    if (facts.header)
        text += QCoreApplication::translate("CommandLine", "\n  header: %1, %2, %3 dpi")
                    .arg(facts.format,
                         sizeText(facts.header->width, facts.header->height, facts.header->bitsPerPixel))
                    .arg(facts.header->dpi);
    if (facts.reason.isEmpty())
        text += QCoreApplication::translate("CommandLine", "\n  decoded: %1, pages: %2")
                    .arg(sizeText(facts.width, facts.height, facts.bitsPerPixel))
                    .arg(facts.pages);
    if (!facts.damage.isEmpty())
        text += QCoreApplication::translate("CommandLine", "\n  damaged: %1").arg(facts.damage);
    return text + section("EXIF", facts.exif) + section("IPTC", facts.iptc);
}

} // namespace tarsel::cli
