// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/CollectionLists.h"
#include "collections/PageFiles.h"
#include "imaging/ImageBox.h"

#include <QCoreApplication>
#include <QStringList>
#include <functional>
#include <optional>
#include <stop_token>

namespace tarsel {

class OpenDocument;
struct Thumbnail;

/// Headers of the basket list: text and SubItems 1 to 5.
QStringList basketHeaders();
namespace BasketColumn {
enum : int {
    Resolution = 1,
    FileSize = 2,
    Type = 3,
    SourcePath = 4, ///< the same on all pages of one document
    Description = 5,
};
} // namespace BasketColumn

/// The basket: the working set of pictures and pages of documents. A row's Tag is the picture to work on: the
/// file itself, or the page's own file in the folder Temp.
class Basket {
    Q_DECLARE_TR_FUNCTIONS(Basket)
public:
    Basket(CollectionLists lists, CollectionSettings initial);

    CollectionSettings settings;

    /// Adds the selected rows of lvFolder. Trapped as "FrmMain.cmdAddToQueue_Click".
    void cmdAddToQueue_Click();
    /// The same for a drop from lvFolder, with its own row names and texts. Trapped as "AddToBasketByDrag".
    void AddToBasketByDrag();
    /// Adds one file by path, as from a basket file. Trapped as "subAddEntryToListView".
    void subAddEntryToListView(const QString& path);
    /// Files that the last adding (of all that was selected, or of all files since the basket was emptied)
    /// could not read.
    const QStringList& LTemp() const { return m_failed; }

    /// Marks an adding of files, which lets other handlers run in between.
    class Adding {
    public:
        explicit Adding(Basket& basket);
        ~Adding();
        Adding(const Adding&) = delete;
        Adding& operator=(const Adding&) = delete;
        /// Lets pending input run. False when the adding is to end here.
        bool goesOn() const;

    private:
        Basket& m_basket;
    };
    /// Ends the running adding before its next file or page; what has been added stays.
    void stopAdding() { m_stopAdding = true; }
    /// A stop requested from outside ends every adding in the same way.
    std::stop_token stop;
    /// Called with true when an adding begins and with false at its end.
    std::function<void(bool)> addingChanged;

    /// Makes the thumbnails of all rows again, after a change of how they are made; input runs in between.
    void makeThumbnailsAgain();

    void cmdPagesDelete(); ///< removes the selected rows; their page files stay
    void cmdPagesNew();    ///< empties the basket and deletes all page files, without asking
    void empty();          ///< empties the basket alone
    /// Moves the selected rows, in their order, to the row `target`, as a drop of the focused row there:
    /// after it when it is at or after the focused row, else before it.
    void MoveRowsTo(int target);

private:
    struct Source;

    void addSelected(AddedBy addedBy, const Adding& adding);
    void addFolderRow(AddedBy addedBy, int folderRow, const Adding& adding);
    void addPicture(const Source& source, const ListRow& folderRow);
    void addPages(const Source& source, int pages, const Adding& adding);
    void addPage(const Source& source, const OpenDocument& document, int page);
    std::optional<Thumbnail> pageThumbnail(const Source& source, const QString& pageFile);
    std::optional<Thumbnail> folderThumbnail(const ListRow& folderRow) const;
    void addRow(ListRow row, const Thumbnail& thumbnail);
    void showStatus(AddedBy addedBy, const QString& text);
    void showCount();
    void noteFailed(const QString& path);

    CollectionLists m_lists;
    ImageBox m_pageBox; ///< pages on their way to their files; the preview's box shows another picture
    QStringList m_failed;
    int m_adding = 0; ///< additions in progress: one may run inside another
    bool m_stopAdding = false;
};

} // namespace tarsel
