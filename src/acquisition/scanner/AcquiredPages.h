// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannedPage.h"
#include "configuration/ConfigRecord.h"

#include <span>

namespace tarsel {

/// Entries of cboSinglepage and cboMultipage; the settings hold the index.
std::span<const char* const> singlePageFormats();
std::span<const char* const> multiPageFormats();

/// Where the pages of an acquisition go. Used by one thread at a time; to be kept for "another page" of the
/// same document.
class AcquiredPages {
public:
    /// `temporaryFolder` takes the pages for the basket.
    AcquiredPages(const settings::Twain& choice, const QString& temporaryFolder);

    /// Saves one page by the choice: a temporary TIFF file for the basket, a file of its own, or a page of
    /// the document. Page 1 of a document replaces an older file, the others are appended; when page 1 could
    /// not be saved, the first page that can be takes its place. Whether files may be overwritten is not
    /// asked: the setting Overwrite is stored and has no effect. A failure is in the result, and leaves the
    /// file as it was.
    AcquiredFile subAcquirePage(const ScannedPage& page);

    /// The path that the page of this number gets, of the basket's without the random number.
    QString pathOf(int number) const;

private:
    void save(const ScannedPage& page, AcquiredFile& file);

    const settings::Twain m_choice;
    const QString m_temporaryFolder;
    bool m_isBegun = false; ///< the document holds pages of this acquisition
};

} // namespace tarsel
