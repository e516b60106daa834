// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/AcquiredPages.h"

#include <optional>

namespace tarsel::cli {

class Arguments;

/// The files that --out, --format and --multi of a scan name: one document, one picture, or a numbered
/// picture for each page.
class ScanTarget {
public:
    /// UsageError where the options don't fit each other.
    explicit ScanTarget(const Arguments& arguments);

    /// To be called before the first page. `isOnePage`: no other page can follow. Error 76 for a missing
    /// folder, error 5 where files are in the way that are not to be replaced.
    void begin(bool isOnePage);
    /// Error 5 for a file that is in the way.
    AcquiredFile save(const ScannedPage& page);

private:
    QString pathOf(int number) const;
    void requireReplaceable(const QString& path) const;

    QString m_start;  ///< path up to the page number
    QString m_suffix; ///< with the dot
    QString m_named;  ///< --out where it is a file
    OldFile m_oldFile;
    bool m_isNumbered = true;
    bool m_isMulti;
    std::optional<PagedDocument> m_document;
};

} // namespace tarsel::cli
