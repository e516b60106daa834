#pragma once

#include "imaging/EmbeddedMetadata.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <memory>

namespace tarsel {

/// The metadata that a box holds: bytes and types as read; only what was changed is written anew. Maker
/// notes, XMP and the profile are carried along. Parsing happens on the first look, so that a picture that
/// only passes through costs nothing. Copies share what was parsed.
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

    // --- EXIF: an indexed list of names ("DateTimeOriginal") and raw texts ("10/1250", "48,32,..")
    // -----------------
    int ExifCount() const;
    QString ExifName(int index) const;
    QString ExifValue(int index) const;
    QString ExifValueByName(const QString& name) const;      ///< "" when absent
    bool ExifSet(const QString& name, const QString& value); ///< false when the name or value is not accepted
    bool ExifDelete(const QString& name);
    void ExifClear();

    // --- IPTC, by record and dataset number (2:105 is the headline)
    // ------------------------------------------------
    bool HasIptc() const;
    QString iptcText(int dataset) const;                ///< "" when absent
    void setIptcText(int dataset, const QString& text); ///< an empty text removes the dataset
    QStringList iptcList(int dataset) const;
    void setIptcList(int dataset, const QStringList& texts);
    void IptcClear();
    void IptcLoadFromFile(const QString& path); ///< 53 when missing, 0x8000FFFF when it is no .ffo file
    void IptcSaveToFile(const QString& path) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

/// Between a date and the EXIF date text "yyyy:MM:dd hh:mm:ss". Error 13 for a text that is no such date.
QDateTime exifTextToDate(const QString& text);
QString exifDateToText(const QDateTime& date);

} // namespace tarsel
