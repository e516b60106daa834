// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "collections/modFileSystem.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <optional>

namespace tarsel {

/// What the program wants to know of one file: texts for list columns, its size in words, its dates.
class clsFileInfo {
    Q_DECLARE_TR_FUNCTIONS(clsFileInfo)
public:
    /// Fixes how dates are written, as is needed away from the main thread. Otherwise the user's locale is
    /// asked at each file.
    void setDateForms(DateForms forms) { m_dateForms = std::move(forms); }

    /// Refreshes every property when the file exists and can be opened; else leaves all as they were.
    void setFilePath(const QString& path);
    QString FilePath() const { return m_path; }
    void ClearFileInfo();
    void RefreshInfo();

    QString fFileExtention() const { return m_extension; } ///< after the last point, in the file's spelling
    qint32 fSize() const { return m_size; } ///< in bytes; the largest 32-bit number for a larger file
    /// The size text made by the last refresh; `flag` rules the text of the next file.
    QString fSizeFormated(int flag);
    /// The same in English. The flag stays as it is.
    QString englishSize() const { return m_englishSizeText; }
    QString fPath32bit() const { return m_path; }
    QString fName32bit() const { return m_name; }
    QString fLocation() const { return m_location; }
    QString fType() const { return m_type; }
    QString fDateCreated() const { return m_created; }
    QString fDateModified() const { return m_modified; }
    QString fDateAccessed() const { return m_accessed; }
    QDateTime dateCreated() const { return m_createdAt; }
    QDateTime dateModified() const { return m_modifiedAt; }
    QDateTime dateAccessed() const { return m_accessedAt; }
    bool fATTR_Hidden() const { return m_hidden; }
    bool fATTR_ReadOnly() const { return m_readOnly; }

    static bool CheckIfFileExists(const QString& path);
    static QString StripFileFromPath(const QString& path);
    static QString StripFileExtention(const QString& name);
    /// The words for a size in bytes, with the byte count after them when `longText`. The unit changes where
    /// the count of kilobytes passes a decimal step: 1,024,000 bytes are "0.98MB".
    static QString sizeText(qint32 size, bool longText);
    /// The same for file names, in English whatever the user's language.
    static QString englishSizeText(qint32 size, bool longText);

private:
    QString m_path, m_name, m_extension, m_location, m_type, m_sizeText, m_englishSizeText;
    QString m_created, m_modified, m_accessed;
    QDateTime m_createdAt, m_modifiedAt, m_accessedAt;
    qint32 m_size = 0;
    int m_sizeFormatFlag = 0;
    std::optional<DateForms> m_dateForms;
    bool m_hidden = false;
    bool m_readOnly = false;
};

/// The one shared file-information object.
clsFileInfo& FileInfo();

} // namespace tarsel
