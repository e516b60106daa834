// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "help/ManualPage.h"

#include <QStringList>

namespace tarsel {

/// The manual: the Markdown pages of a folder, in the order of its page "index".
class Manual {
public:
    /// A line of the contents: a page, or the title of a group of pages, which has no page.
    struct Entry {
        QString title;
        QString page;
    };
    struct Found {
        QString page;    ///< name
        QString anchor;  ///< of the section; empty for the page's first
        QString title;   ///< "Page - Section"
        QString excerpt; ///< words around the first place
    };

    /// A page that there is in the subfolder of one of the languages ("de"), the first that has it, is taken
    /// from there. Pages that can't be read are left out; a folder that is missing makes an empty manual.
    static Manual read(const QString& folder, const QStringList& languages = {});

    bool isEmpty() const { return m_pages.empty(); }
    const std::vector<ManualPage>& pages() const { return m_pages; }
    const ManualPage* page(const QString& name) const; ///< nullptr for an unknown name
    std::vector<Entry> contents() const;
    /// The sections that have all of the words, those with all of them in their titles first. Upper and lower
    /// case are the same.
    std::vector<Found> find(const QString& words) const;

private:
    std::vector<ManualPage> m_pages; ///< the page "index" first
};

/// The folder of the manual that comes with the program: beside the program's own, in a build folder as in an
/// installed tree. Empty when there is none.
QString manualFolder();

} // namespace tarsel
