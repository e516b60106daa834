// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"
#include "embedded/MetadataStore.h"
#include "embedded/PrivateMetadata.h"
#include "embedded/XmpPacket.h"
#include "tests/fuzz/Fuzzers.h"

using namespace tarsel;
using fuzz::require;

namespace {

void tryExif(const QByteArray& bytes) {
    EmbeddedMetadata blocks;
    blocks.exif = bytes;
    MetadataStore store(blocks);
    const int before = store.ExifCount();
    const QString make = store.ExifValueByName(QStringLiteral("Make"));
    const QString software = QStringLiteral("Software");
    if (store.ExifSet(software, QStringLiteral("Editor 1.0"))) {
        const MetadataStore again(store.blocks());
        require(again.ExifValueByName(software) == QStringLiteral("Editor 1.0"),
                "a value that was set reads back");
        require(make.isEmpty() || again.ExifValueByName(QStringLiteral("Make")) == make,
                "another value stays");
        require(again.ExifCount() >= before, "the other values are still there");
    } else {
        require(store.blocks().exif == bytes, "a refused change changes nothing");
    }
    store.ExifSet(QStringLiteral("UserComment"), QStringLiteral("a comment that needs room of its own"));
    store.ExifDelete(software);
    store.ExifDelete(QStringLiteral("Make"));
}

void tryResources(const QByteArray& bytes) {
    EmbeddedMetadata blocks;
    blocks.resources = bytes;
    MetadataStore store(blocks);
    const QString headline = iptcText(store, "IptcHeadline");
    for (const IptcField& field : iptcFields()) {
        store.iptcList(field.dataset);
        iptcDate(store, field.member.toStdString());
    }
    require(store.blocks().resources == bytes, "reading changes nothing");
    setIptcText(store, "IptcCaption", QStringLiteral("a caption, \u05D0"));
    const MetadataStore again(store.blocks());
    require(iptcText(again, "IptcCaption") == QStringLiteral("a caption, \u05D0"),
            "a text that was set reads back");
    require(iptcText(again, "IptcHeadline") == headline, "the other texts are still there");
}

void tryXmp(const QByteArray& bytes) {
    constexpr XmpName description{xmpSpace::dublinCore, "description"};
    EmbeddedMetadata blocks;
    blocks.xmp = bytes;
    MetadataStore store(blocks);
    setIptcText(store, "IptcCaption", QStringLiteral("<caption>"));
    blocks = store.blocks();
    if (const auto packet = XmpPacket::read(blocks.xmp); packet && packet->states(description))
        require(store.ContradictsXmp() || packet->texts(description).value(0) == QStringLiteral("<caption>"),
                "the packet follows, or is reported");
    store.IptcClear();
    removePrivateMetadata(blocks);
    require(blocks.xmp.isEmpty() || XmpPacket::read(blocks.xmp), "a cleaned packet is well-formed");
}

} // namespace

void fuzz::readMetadata(const QByteArray& bytes) {
    if (bytes.startsWith('<'))
        tryXmp(bytes);
    else if (!bytes.isEmpty())
        bytes[0] % 2 ? tryExif(bytes.mid(1)) : tryResources(bytes.mid(1));
}
