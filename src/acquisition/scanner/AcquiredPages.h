// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannedPage.h"
#include "configuration/ConfigRecord.h"

#include <QStringList>
#include <optional>
#include <span>

namespace tarsel {

/// Entries of cboSinglepage and cboMultipage; the settings hold the index.
std::span<const char* const> singlePageFormats();
std::span<const char* const> multiPageFormats();
/// Of the chosen entry, in lower case without a dot; of the first entry for an index outside of the list, as
/// in a damaged configuration.
QString singlePageExtension(const settings::Twain& choice);
/// The file name of the document that takes all pages.
QString documentName(const settings::Twain& choice);

enum class OldFile { Replace, Keep };

/// Saves the page as a picture of its own, in the format of the extension, with its resolution. False when an
/// older file is to be kept, and there is one.
bool saveScannedPage(const ScannedPage& page, const QString& path, OldFile oldFile);

/// A document, TIFF or PDF by its extension, that takes one page after another.
class PagedDocument {
public:
    PagedDocument(const QString& path, OldFile oldFile) : m_path(path), m_oldFile(oldFile) {}
    /// Page 1 begins the document, the others are appended. When page 1 could not be saved, the first page
    /// that can be takes its place. False when it would begin where an older file is to be kept. A failure
    /// leaves the file as it was; error 53 where the document of the pages before is gone.
    bool add(const ScannedPage& page);

private:
    const QString m_path;
    const OldFile m_oldFile;
    bool m_lacksFirstPage = false;
};

/// Where the pages of an acquisition go. For one thread at a time; to be kept for "another page" of the same
/// document.
class AcquiredPages {
public:
    /// `temporaryFolder` takes the pages for the basket, which are listed there as acquired files.
    /// `replaceable` has the names of the files in the chosen folder that pages may replace; without it they
    /// may replace all.
    AcquiredPages(const settings::Twain& choice, const QString& temporaryFolder,
                  const std::optional<QStringList>& replaceable = {});

    /// Saves one page by the choice: a temporary TIFF file for the basket, a file of its own, or a page of
    /// the document. The setting Overwrite is stored and has no effect here. A failure is in the result:
    /// error 70 where a file that must not be replaced has the name.
    AcquiredFile subAcquirePage(const ScannedPage& page);

private:
    QString saveToFile(const ScannedPage& page);
    OldFile oldFileAt(const QString& path) const;
    QString saveForBasket(const ScannedPage& page) const;

    const settings::Twain m_choice;
    const QString m_temporaryFolder;
    const std::optional<QStringList> m_replaceable;
    PagedDocument m_document;
};

} // namespace tarsel
