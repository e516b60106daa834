// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TrappedError.h"
#include "embedded/IptcFields.h"
#include "embedded/PrivateMetadata.h"
#include "metadata/modMetadata.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tarsel::modMetadata {

namespace {

const QString software = QStringLiteral("Software");

QDateTime dateOf(const AttributeValue& value, const DateForms& forms) {
    const auto* date = std::get_if<QDateTime>(&value);
    return date ? *date : toDate(std::get<QString>(value), forms);
}

QString textOf(const AttributeValue& value) {
    const auto* date = std::get_if<QDateTime>(&value);
    return date ? ImageBox::ExifDateToText(*date) : std::get<QString>(value);
}

/// The standard's limits count bytes; texts are stored as UTF-8 unless older ones beside them are not.
void requireFits(const IptcField& field, const QString& text) {
    const qsizetype size = text.toUtf8().size();
    if (field.mostBytes > 0 && size > field.mostBytes)
        fail(ErrorNumber::Overflow,
             QCoreApplication::translate("modMetadata", "%1 takes at most %2 bytes, and this text has %3")
                 .arg(field.label)
                 .arg(field.mostBytes)
                 .arg(size));
}

void setItems(ImageBox& box, const IptcField& field, const QStringList& items) {
    for (const QString& item : items)
        requireFits(field, item);
    setIptcList(box.metadata(), field.member.toStdString(), items);
}

void setText(ImageBox& box, const IptcField& field, const QString& text) {
    const std::string member = field.member.toStdString();
    const QStringList present = iptcList(box.metadata(), member);
    for (const QString& part : iptcParts(box.metadata(), member, text))
        if (!present.contains(part)) // a longer one of another program may stay
            requireFits(field, part);
    setIptcText(box.metadata(), member, text);
}

/// Between commas, without the blanks round them.
QStringList itemsIn(const QString& text) {
    QStringList items = text.split(u',');
    for (QString& item : items)
        item = item.trimmed();
    items.removeAll(QString());
    return items;
}

bool setIptc(ImageBox& box, const QString& label, const AttributeValue& value, const DateForms& forms) {
    const IptcField* field = iptcFieldByLabel(label);
    if (!field)
        return false;
    const std::string member = field->member.toStdString();
    if (IsIptcDate(label))
        setIptcDate(box.metadata(), member, dateOf(value, forms));
    else if (field->kind == IptcKind::List)
        setItems(box, *field, itemsIn(textOf(value)));
    else
        setText(box, *field, textOf(value));
    return true;
}

bool setExif(ImageBox& box, const QString& name, const AttributeValue& value, const DateForms& forms) {
    const QString text = IsExifDate(name) ? ImageBox::ExifDateToText(dateOf(value, forms)) : textOf(value);
    return box.ExifSet(name, text) && box.ExifSet(software, ProductTitle);
}

bool isOneOf(const QString& path, std::initializer_list<const char*> extensions) {
    const QString extension = QFileInfo(path).suffix().toLower();
    return std::ranges::any_of(extensions,
                               [&](const char* each) { return extension == QLatin1String(each); });
}

/// Runs a change of the box and writes the file; when that fails, the box holds what it held before.
template <class Change>
bool changeAndSave(ImageBox& box, const QString& path, bool writes, Change&& change) {
    const MetadataStore before = box.metadata();
    try {
        if (!change()) {
            box.metadata() = before;
            return false;
        }
        if (writes)
            box.SaveMetadataOnly(path);
    } catch (...) {
        box.metadata() = before;
        throw;
    }
    return true;
}

} // namespace

void ReadMetadata(const QString& path, ImageBox& box) {
    box.LoadMetadataOnly(path);
}

bool SetMetadataAttribute(ImageBox& box, bool isIptc, const QString& name, const AttributeValue& value,
                          const DateForms& forms) {
    return isIptc ? setIptc(box, name, value, forms) : setExif(box, name, value, forms);
}

void ClearIptcField(ImageBox& box, const QString& label) {
    if (const IptcField* field = iptcFieldByLabel(label))
        box.metadata().setIptcList(field->dataset, {});
}

bool UpdateMetadataAttribute(const QString& path, bool isIptc, const QString& name,
                             const AttributeValue& value, ImageBox& box, const DateForms& forms) {
    const bool writes = isOneOf(path, {"jpeg", "jpg", "jpe", "tiff", "tif", "psd"});
    return changeAndSave(box, path, writes, [&] {
        // Lists have dialogs of their own; what is unknown changes nothing.
        const IptcField* field = isIptc ? iptcFieldByLabel(name) : nullptr;
        if (isIptc && (!field || field->kind == IptcKind::List))
            return true;
        return SetMetadataAttribute(box, isIptc, name, value, forms);
    });
}

bool DeleteExifAttribute(const QString& path, const QString& name, ImageBox& box) {
    // Fewer than a change writes: the file of another extension keeps the attribute.
    const bool writes = isOneOf(path, {"jpeg", "jpg", "tiff", "tif"});
    return changeAndSave(box, path, writes, [&] {
        if (!box.ExifDelete(name))
            return false;
        box.ExifSet(software, ProductTitle);
        return true;
    });
}

void ClearIptcList(const QString& path, const QString& label, ImageBox& box) {
    SetIptcList(path, label, {}, box);
}

void SetIptcList(const QString& path, const QString& label, const QStringList& texts, ImageBox& box) {
    const IptcField* field = iptcFieldByLabel(label);
    if (!field || field->kind != IptcKind::List)
        fail(ErrorNumber::InvalidCall, label);
    changeAndSave(box, path, true, [&] {
        setItems(box, *field, texts);
        return true;
    });
}

QStringList remarksOn(const MetadataStore& metadata) {
    QStringList remarks;
    if (metadata.ContradictsXmp())
        remarks << QCoreApplication::translate(
            "modMetadata", "the XMP data of the file could not be changed and may say something else");
    if (metadata.LostThumbnail())
        remarks << QCoreApplication::translate("modMetadata",
                                               "the thumbnail was removed to make room for the new text");
    return remarks;
}

bool HasIptcFields(const QString& sideFile) {
    MetadataStore fields;
    fields.IptcLoadFromFile(sideFile);
    return fields.HasIptc();
}

QString remarkOnEmptyFfo(const QString& sideFile) {
    return QCoreApplication::translate("modMetadata", "%1 has no IPTC fields; those of the picture stay")
        .arg(sideFile);
}

void RemovePrivateMetadata(ImageBox& box) {
    EmbeddedMetadata blocks = box.metadata().blocks();
    removePrivateMetadata(blocks);
    box.metadata() = MetadataStore(std::move(blocks));
}

} // namespace tarsel::modMetadata
