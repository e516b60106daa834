// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/IptcFields.h"
#include "embedded/MetadataStore.h"

#include <cstdint>
#include <cstdlib>

using namespace tarsel;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// A value that was set must read back from the bytes, and the rest of what read before must still be there.
void tryExif(const QByteArray& bytes) {
    EmbeddedMetadata blocks;
    blocks.exif = bytes;
    MetadataStore store(blocks);
    const int before = store.ExifCount();
    const QString maker = store.ExifValueByName(QStringLiteral("Make"));
    const QString software = QStringLiteral("Software");
    if (store.ExifSet(software, QStringLiteral("Editor 1.0"))) {
        const MetadataStore again(store.blocks());
        require(again.ExifValueByName(software) == QStringLiteral("Editor 1.0"));
        require(again.ExifCount() >= before);
        require(maker.isEmpty() || again.ExifValueByName(QStringLiteral("Make")) == maker);
    } else {
        require(store.blocks().exif == bytes);
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
    require(store.blocks().resources == bytes);
    setIptcText(store, "IptcCaption", QStringLiteral("a caption, \u05D0"));
    const MetadataStore again(store.blocks());
    require(iptcText(again, "IptcCaption") == QStringLiteral("a caption, \u05D0"));
    require(iptcText(again, "IptcHeadline") == headline);
}

} // namespace

/// The first byte says whether an EXIF block or image resource blocks follow.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, qsizetype(size) - 1);
    data[0] % 2 ? tryExif(bytes) : tryResources(bytes);
    return 0;
}
