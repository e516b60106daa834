// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcSideFile.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "bytes/ByteReader.h"
#include "embedded/IimData.h"
#include "embedded/ResourceBlocks.h"

#include <QCoreApplication>
#include <optional>

namespace tarsel {

namespace {

const QByteArray startMark("\xFF\x01"
                           "Exiv2");
const QByteArray endMark("\xFF\xD9");
const QByteArray segmentMark("\xFF\xED");
const QByteArray signature("Photoshop 3.0\0", 14);
constexpr qsizetype largestPayload = 65533;

/// The image resources; nothing for another form, and for one that is cut short.
std::optional<QByteArray> resourcesIn(const QByteArray& file) {
    if (!file.startsWith(startMark))
        return std::nullopt;
    const QByteArrayView bytes(file);
    const ByteReader reader(file, ByteOrder::Big);
    QByteArray resources;
    for (qsizetype at = startMark.size(); !bytes.sliced(at).startsWith(endMark);) {
        const qsizetype length = reader.word(at + 2).value_or(0);
        if (reader.byte(at) != 0xFF || length < 2 || at + 2 + length > bytes.size())
            return std::nullopt;
        const QByteArrayView payload = bytes.sliced(at + 4, length - 2);
        if (bytes.sliced(at).startsWith(segmentMark) && payload.startsWith(signature))
            resources += payload.sliced(signature.size());
        at += 2 + length;
    }
    return resources;
}

[[noreturn]] void failNoFfo(const QString& path, const QString& fact) {
    fail(ErrorNumber::UnreadableFile,
         QCoreApplication::translate("IptcSideFile", "%1: not an IPTC side file: %2").arg(path, fact));
}

IimData complete(IimData data, bool isComplete, const QString& path) {
    if (!isComplete || !data.isComplete())
        failNoFfo(path, QCoreApplication::translate("IptcSideFile", "its data are damaged or cut short"));
    return data;
}

} // namespace

void writeIptcSideFile(const QString& path, const IimData& data) {
    const QByteArray resources = ResourceBlocks::block(ResourceBlocks::iptcNumber, data.bytes());
    const qsizetype room = largestPayload - signature.size();
    QByteArray bytes = startMark;
    for (qsizetype at = 0; at < resources.size(); at += room) {
        const QByteArray payload = signature + resources.mid(at, room);
        bytes += segmentMark + numberBytes<QByteArray>(quint16(payload.size() + 2), ByteOrder::Big) + payload;
    }
    writeFileSafely(path, bytes + endMark);
}

IimData readIptcSideFile(const QString& path) {
    const QByteArray bytes = readWholeFile(path);
    if (bytes.startsWith('\x1C'))
        return complete(IimData(bytes), true, path);
    const ResourceBlocks blocks(resourcesIn(bytes).value_or(bytes));
    if (!blocks.contains(ResourceBlocks::iptcNumber))
        failNoFfo(path, QCoreApplication::translate("IptcSideFile", "it has no IPTC block"));
    return complete(IimData(blocks.data(ResourceBlocks::iptcNumber)), blocks.isComplete(), path);
}

} // namespace tarsel
