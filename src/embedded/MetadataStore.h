// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <memory>

namespace tarsel {

class IimData;

/// The metadata that a box holds: bytes and types as read; only what was changed is written again. Maker
/// notes, XMP and the profile are carried along. Parsing happens on the first look, so that a picture that
/// only passes through costs nothing. Copies share what was parsed and may be used on different threads; a
/// single store belongs to one thread at a time.
///
/// A change of EXIF or IPTC data is made in the XMP packet too, where it states the property.
class MetadataStore {
public:
    MetadataStore();
    explicit MetadataStore(EmbeddedMetadata blocks);
    ~MetadataStore();
    MetadataStore(const MetadataStore&);
    MetadataStore& operator=(const MetadataStore&);
    MetadataStore(MetadataStore&&) noexcept;
    MetadataStore& operator=(MetadataStore&&) noexcept;

    /// The blocks as they go into a file: unchanged blocks byte for byte.
    EmbeddedMetadata blocks() const;

    /// Whether the XMP packet still says something else of a property that was changed here, because it is
    /// damaged, full, or in a form that can't be changed.
    bool ContradictsXmp() const;
    bool LostThumbnail() const; ///< whether it was dropped to make room for an attribute

    // --- EXIF: an indexed list of names ("DateTimeOriginal") and raw texts ("10/1250", "30,32,32,30") in the
    // order of the file, without the thumbnail's. An index out of range raises error 9. --------------------
    int ExifCount() const;
    QString ExifName(int index) const;
    QString ExifValue(int index) const;
    QString ExifValueByName(const QString& name) const; ///< "" when absent
    bool HasExif(const QString& name) const;            ///< also with an empty value
    /// Any attribute of the standard, made when it is missing. False, and nothing changed, when the name
    /// isn't known or describes the structure, when the value doesn't convert to the attribute's type, or
    /// when the data would no longer fit a JPEG segment; before that the thumbnail goes.
    bool ExifSet(const QString& name, const QString& value);
    bool ExifDelete(const QString& name); ///< false when absent, or when others depend on it
    void ExifClear();                     ///< and what camera makers store beside the block

    // --- IPTC, by dataset number of record 2 (105 is the headline); IptcFields.h knows them by name --------
    bool HasIptc() const;                ///< a field, more than an envelope
    QString iptcText(int dataset) const; ///< "" when absent
    void setIptcText(int dataset,
                     const QString& text); ///< an empty text removes the dataset; error 6 beyond 32767 bytes
    QStringList iptcList(int dataset) const;
    void setIptcList(int dataset, const QStringList& texts);
    void IptcClear();
    void IptcLoadFromFile(const QString& path); ///< 53 when missing, 0x8000FFFF when it is not an .ffo file
    void IptcSaveToFile(const QString& path) const;

private:
    struct State;
    struct Remarks {
        bool contradictsXmp = false;
        bool lostThumbnail = false;
    };
    void setExif(const QByteArray& bytes, bool losesThumbnail = false);
    void setIim(const IimData& data);
    bool replaceBlocks(EmbeddedMetadata changed, bool losesThumbnail = false);
    void updateDigest(const QByteArray& oldIptc);

    std::shared_ptr<const State> m_state; ///< replaced by a change, so that copies keep what they have
};

/// Between a date and the EXIF date text "yyyy:MM:dd hh:mm:ss". The standard's unknown date (blanks or zeros)
/// is the empty date; error 13 for any other text.
QDateTime exifTextToDate(const QString& text);
QString exifDateToText(const QDateTime& date);

} // namespace tarsel
