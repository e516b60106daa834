// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/MetadataStore.h"

#include "base/TrappedError.h"
#include "embedded/ExifBlock.h"
#include "embedded/ExifText.h"
#include "embedded/IimData.h"
#include "embedded/IptcSideFile.h"
#include "embedded/ResourceBlocks.h"
#include "embedded/XmpInStep.h"

#include <QCryptographicHash>
#include <algorithm>
#include <iterator>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

QByteArray iptcOf(const QByteArray& resources) {
    return ResourceBlocks(resources).data(ResourceBlocks::iptcNumber);
}

QByteArray digestOf(const QByteArray& iptc) {
    return QCryptographicHash::hash(iptc, QCryptographicHash::Md5);
}

/// TIFF files fill the data up with zeros, of which the digest knows nothing.
bool isDigestOf(const QByteArray& digest, QByteArray iptc) {
    if (digest == digestOf(iptc))
        return true;
    while (iptc.endsWith('\0'))
        iptc.chop(1);
    return digest == digestOf(iptc);
}

/// One row of the EXIF list.
struct ExifAttribute {
    QString name;
    QString value;
    ExifGroup group;
    quint16 tag;
    bool isStorage = false; ///< says how this file stores its pixels; read only
};

/// The thumbnail's directory describes another picture and isn't listed.
bool isListed(const ExifEntry& entry) {
    return entry.hasValue && entry.group != ExifGroup::Thumbnail;
}

std::vector<ExifAttribute> attributesOf(const QByteArray& exif) {
    std::vector<ExifAttribute> attributes;
    const std::optional<ExifBlock> block = ExifBlock::read(exif);
    if (!block)
        return attributes;
    for (const ExifEntry& entry : block->entries())
        if (isListed(entry))
            attributes.push_back(
                {exifTagName(entry.group, entry.tag), exifText(*block, entry), entry.group, entry.tag});
    return attributes;
}

/// The groups in which the block has this attribute, else the one in which the standard puts it.
std::vector<const ExifTag*> placesOf(const ExifBlock& block, const ExifTag& standard) {
    std::vector<const ExifTag*> places;
    for (const ExifEntry& entry : block.entries()) {
        if (!isListed(entry))
            continue;
        const ExifTag* tag = exifTagAt(entry.group, entry.tag);
        if (tag && tag->name == standard.name && std::ranges::count(places, tag) == 0)
            places.push_back(tag);
    }
    if (places.empty())
        places.push_back(&standard);
    return places;
}

/// The block with the value set in one place; nothing when the text doesn't convert or when anything else
/// would not read as before. A block that fitted a JPEG segment still does: its thumbnail goes first.
std::optional<ExifBlock> withAttribute(const ExifBlock& before, const ExifTag& tag, const QString& text) {
    const std::optional<ExifValueBytes> value = exifValueFromText(tag, text, before.order());
    if (!value)
        return std::nullopt;
    const auto changed = [&](ExifBlock block) {
        block.set(tag.group, tag.tag, value->type, value->count, value->bytes);
        return block;
    };
    ExifBlock after = changed(before);
    ExifBlock reference = before;
    if (after.bytes().size() > largestJpegExif && before.bytes().size() <= largestJpegExif) {
        reference.dropThumbnail();
        after = changed(reference);
        if (after.bytes().size() > largestJpegExif)
            return std::nullopt;
    }
    const ExifEntry* written = after.find(tag.group, tag.tag);
    const bool readsBack = written && written->hasValue && after.value(*written) == value->bytes;
    return readsBack && after.keepsAllOf(reference, tag.group, tag.tag) ? std::optional(after) : std::nullopt;
}

/// Nothing when other attributes depend on this one or share its bytes.
std::optional<ExifBlock> withoutAttribute(const ExifBlock& before, const ExifAttribute& attribute) {
    const ExifEntry* entry = before.find(attribute.group, attribute.tag);
    if (entry && entry->isPointer())
        return std::nullopt;
    ExifBlock after = before;
    after.remove(attribute.group, attribute.tag);
    return after.keepsAllOf(before, attribute.group, attribute.tag) ? std::optional(after) : std::nullopt;
}

} // namespace

/// Blocks that never change, and what they say, parsed at the first look: copies on any thread share it.
struct MetadataStore::State {
    explicit State(EmbeddedMetadata held, Remarks said = {}) : blocks(std::move(held)), remarks(said) {}

    const EmbeddedMetadata blocks;
    const Remarks remarks;

    const std::vector<ExifAttribute>& exif() const {
        std::call_once(exifOnce, [this] {
            attributes = attributesOf(blocks.storage);
            for (ExifAttribute& attribute : attributes)
                attribute.isStorage = true;
            std::ranges::move(attributesOf(blocks.exif), std::back_inserter(attributes));
        });
        return attributes;
    }
    const IimData& iim() const {
        std::call_once(iimOnce, [this] { iptc = IimData(iptcOf(blocks.resources)); });
        return iptc;
    }

private:
    mutable std::once_flag exifOnce;
    mutable std::vector<ExifAttribute> attributes;
    mutable std::once_flag iimOnce;
    mutable IimData iptc;
};

MetadataStore::MetadataStore() : MetadataStore(EmbeddedMetadata()) {}
MetadataStore::MetadataStore(EmbeddedMetadata blocks) :
    m_state(std::make_shared<const State>(std::move(blocks))) {}
MetadataStore::~MetadataStore() = default;
MetadataStore::MetadataStore(const MetadataStore&) = default;
MetadataStore& MetadataStore::operator=(const MetadataStore&) = default;
// A store that was moved from stays usable: it shares the state.
// NOLINTNEXTLINE(performance-move-constructor-init)
MetadataStore::MetadataStore(MetadataStore&& other) noexcept : m_state(other.m_state) {}
MetadataStore& MetadataStore::operator=(MetadataStore&& other) noexcept {
    m_state = other.m_state;
    return *this;
}

void MetadataStore::setExif(const QByteArray& bytes, bool losesThumbnail) {
    EmbeddedMetadata changed = m_state->blocks;
    changed.exif = bytes;
    replaceBlocks(std::move(changed), losesThumbnail);
}

void MetadataStore::setIim(const IimData& data) {
    const QByteArray old = iptcOf(m_state->blocks.resources);
    EmbeddedMetadata changed = m_state->blocks;
    ResourceBlocks resources(changed.resources);
    resources.replace(ResourceBlocks::iptcNumber, data.bytes());
    changed.resources = resources.bytes();
    if (replaceBlocks(std::move(changed)))
        updateDigest(old);
}

/// True when the XMP packet states all that was changed.
bool MetadataStore::replaceBlocks(EmbeddedMetadata changed, bool losesThumbnail) {
    Remarks remarks = m_state->remarks;
    remarks.lostThumbnail = remarks.lostThumbnail || losesThumbnail;
    if (changed.xmp.isEmpty()) {
        m_state = std::make_shared<const State>(std::move(changed), remarks);
        return false;
    }
    const MetadataStore before = *this;
    m_state = std::make_shared<const State>(changed, remarks);
    const XmpInStep step = xmpInStep(before, *this);
    remarks.contradictsXmp = remarks.contradictsXmp || step.contradicts;
    if (step.xmp != changed.xmp || remarks.contradictsXmp) {
        changed.xmp = step.xmp;
        m_state = std::make_shared<const State>(std::move(changed), remarks);
    }
    return !remarks.contradictsXmp && !step.lacks;
}

/// Programs take the digest of older IPTC data as a sign that these are newer than the XMP packet. So it
/// follows the data while both agree.
void MetadataStore::updateDigest(const QByteArray& oldIptc) {
    EmbeddedMetadata changed = m_state->blocks;
    ResourceBlocks resources(changed.resources);
    if (!isDigestOf(resources.data(ResourceBlocks::digestNumber), oldIptc))
        return;
    const QByteArray iptc = resources.data(ResourceBlocks::iptcNumber);
    resources.replace(ResourceBlocks::digestNumber, iptc.isEmpty() ? QByteArray() : digestOf(iptc));
    changed.resources = resources.bytes();
    m_state = std::make_shared<const State>(std::move(changed), m_state->remarks);
}

EmbeddedMetadata MetadataStore::blocks() const {
    return m_state->blocks;
}

bool MetadataStore::ContradictsXmp() const {
    return m_state->remarks.contradictsXmp;
}

bool MetadataStore::LostThumbnail() const {
    return m_state->remarks.lostThumbnail;
}

// --- EXIF --------------------------------------------------------------------------------------------------

int MetadataStore::ExifCount() const {
    return int(m_state->exif().size());
}

QString MetadataStore::ExifName(int index) const {
    if (index < 0 || index >= ExifCount())
        fail(ErrorNumber::SubscriptOutOfRange);
    return m_state->exif()[size_t(index)].name;
}

QString MetadataStore::ExifValue(int index) const {
    if (index < 0 || index >= ExifCount())
        fail(ErrorNumber::SubscriptOutOfRange);
    return m_state->exif()[size_t(index)].value;
}

QString MetadataStore::ExifValueByName(const QString& name) const {
    const std::vector<ExifAttribute>& attributes = m_state->exif();
    const auto found = std::ranges::find(attributes, name, &ExifAttribute::name);
    return found == attributes.end() ? QString() : found->value;
}

bool MetadataStore::HasExif(const QString& name) const {
    return std::ranges::count(m_state->exif(), name, &ExifAttribute::name) > 0;
}

bool MetadataStore::ExifSet(const QString& name, const QString& value) {
    const ExifTag* standard = exifTagByName(name);
    if (!standard || standard->isStructural)
        return false;
    const QByteArray& present = m_state->blocks.exif;
    std::optional<ExifBlock> block = present.isEmpty() ? ExifBlock::fresh() : ExifBlock::read(present);
    if (!block)
        return false;
    const bool hadThumbnail = !block->thumbnail().isEmpty();
    for (const ExifTag* tag : placesOf(*block, *standard)) {
        block = withAttribute(*block, *tag, value);
        if (!block)
            return false;
    }
    if (block->bytes() != present)
        setExif(block->bytes(), hadThumbnail && block->thumbnail().isEmpty());
    return true;
}

bool MetadataStore::ExifDelete(const QString& name) {
    std::optional<ExifBlock> block = ExifBlock::read(m_state->blocks.exif);
    bool found = false;
    for (const ExifAttribute& attribute : m_state->exif()) {
        if (attribute.name != name)
            continue;
        if (attribute.isStorage)
            return false;
        block = withoutAttribute(*block, attribute);
        if (!block)
            return false;
        found = true;
    }
    if (found)
        setExif(block->entries().empty() ? QByteArray() : block->bytes());
    return found;
}

void MetadataStore::ExifClear() {
    EmbeddedMetadata changed = m_state->blocks;
    changed.exif.clear();
    changed.cameraSegments.clear();
    replaceBlocks(std::move(changed));
}

// --- IPTC --------------------------------------------------------------------------------------------------

bool MetadataStore::HasIptc() const {
    return m_state->iim().hasFields();
}

QString MetadataStore::iptcText(int dataset) const {
    return m_state->iim().text(dataset);
}

QStringList MetadataStore::iptcList(int dataset) const {
    return m_state->iim().texts(dataset);
}

void MetadataStore::setIptcText(int dataset, const QString& text) {
    if (iptcText(dataset) == text)
        return;
    IimData data = m_state->iim();
    data.setText(dataset, text);
    setIim(data);
}

void MetadataStore::setIptcList(int dataset, const QStringList& texts) {
    if (iptcList(dataset) == texts)
        return;
    IimData data = m_state->iim();
    data.setTexts(dataset, texts);
    setIim(data);
}

void MetadataStore::IptcClear() {
    setIim({});
}

void MetadataStore::IptcLoadFromFile(const QString& path) {
    setIim(readIptcSideFile(path));
}

void MetadataStore::IptcSaveToFile(const QString& path) const {
    writeIptcSideFile(path, m_state->iim());
}

} // namespace tarsel
