// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/BasketHistory.h"
#include "collections/BasketReading.h"
#include "collections/CollectionLists.h"

#include <QCoreApplication>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <stop_token>
#include <utility>
#include <vector>

namespace tarsel {

struct BasketItem;
struct OfferedFiles;

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
///
/// Files are read on threads. Rows appear at once and are completed as their files are read: a file that
/// can't be read loses its row, and the row of a document stays after those of its pages until the last of
/// them has been added. Rows that a stop leaves incomplete are removed.
class Basket {
    Q_DECLARE_TR_FUNCTIONS(Basket)
public:
    Basket(CollectionLists lists, CollectionSettings initial);
    ~Basket(); ///< waits for the files in work
    Basket(const Basket&) = delete;
    Basket& operator=(const Basket&) = delete;

    CollectionSettings settings;
    /// The first and the last row in view, which are read first.
    std::function<std::pair<int, int>()> visibleRows;
    /// Whoever keeps the basket keeps them too.
    std::vector<AwaitedEntry>& awaited() { return m_history.awaited; }
    void await(const std::vector<BasketEntry>& entries);
    /// Called on the reading threads.
    ThumbnailReader readThumbnail = loadThumbnail;

    /// Adds the selected rows of lvFolder. Trapped as "FrmMain.cmdAddToQueue_Click".
    void cmdAddToQueue_Click();
    /// The same for a drop from lvFolder, with its own row names and texts. Trapped as "AddToBasketByDrag".
    void AddToBasketByDrag();
    /// The same for files from elsewhere, and for the pictures of folders. What was skipped is said in the
    /// panel "status".
    void addOfferedFiles(const QList<QUrl>& files);
    /// Adds one file by path, as from a basket file. Trapped as "subAddEntryToListView".
    void subAddEntryToListView(const QString& path);
    /// The same for all files of a basket file; those that are missing are skipped. False when it ended
    /// before all were read.
    bool addListedFiles(const QStringList& paths);
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
    /// Ends the running adding; rows that are complete stay.
    void stopAdding() { m_stopAdding = true; }
    bool wasStopped() const { return m_stopAdding; } ///< the last adding
    /// A stop requested from outside ends every adding in the same way.
    std::stop_token stop;
    /// Called with true when an adding begins and with false at its end.
    std::function<void(bool)> addingChanged;

    /// Makes the thumbnails of all rows again, after a change of how they are made; input runs in between. A
    /// row whose file can't be read keeps its picture. During an adding it is put off to its end.
    void makeThumbnailsAgain();

    /// Removes the selected rows and selects the next one; their page files stay.
    void cmdPagesDelete();
    /// Empties the basket and deletes all page files, without asking: at once those that no undo needs.
    void cmdPagesNew();
    void empty(); ///< for the rows of a basket file; page files stay
    void describe(int row, const QString& text) { m_history.describe(row, text); }
    void undo();
    void redo();
    BasketHistory& history() { return m_history; }
    /// Moves the selected rows, in their order, to the row `target`, as a drop of the focused row there:
    /// after it when it is at or after the focused row, else before it.
    void MoveRowsTo(int target);
    /// Moves the selected rows, in their order, before the row above them (step -1) or after the row below
    /// (step 1). Rows apart from each other come together; at the end of the list they stay.
    void moveSelected(int step);

private:
    /// What an adding adds.
    struct Items {
        int count;
        std::function<std::optional<BasketItem>(int index)> at; ///< nothing for a file that gets no row
        /// How many can be made; may wait some milliseconds for the next one.
        std::function<int(int next)> known = [](int) { return std::numeric_limits<int>::max(); };
    };
    /// What an adding shows of its course.
    struct Shown {
        QString panel = {}; ///< of the status line, which names the file in work; empty for none
        bool bar = false;
        bool count = false; ///< in the panel "queue"
    };

    template <class Body>
    void addTrapped(const char* routine, Body&& body);
    void addSelected(AddedBy addedBy, const Adding& adding);
    void beginAdding();
    std::optional<OfferedFiles> readOffered(const QList<QUrl>& files, const Adding& adding) const;
    void fillByUser(const QString& panel, const Items& items, const Adding& adding);
    bool fill(const Items& items, const Adding& adding, Shown shown);
    void renewThumbnails(const Adding& adding);
    void showAgain(int row, const Thumbnail& thumbnail);
    BasketReading& startReading();
    int claimNumbers(int count);
    void moveSelectedTo(int place);
    void showCount();
    void showCountAtEnd();
    void noteFailed(const QString& path);
    bool isListed(const QString& path) const;
    void reportUnwritten(const char* routine);

    CollectionLists m_lists;
    BasketHistory m_history{m_lists};
    QStringList m_failed;
    std::vector<std::pair<QString, TrappedError>> m_unwritten; ///< documents without room for their pages
    int m_adding = 0; ///< additions in progress: one may run inside another
    bool m_stopAdding = false;
    bool m_thumbnailsAgain = false; ///< wanted and not begun
    int m_nextNumber = 0;
    std::vector<std::unique_ptr<BasketReading>> m_readings; ///< also stopped ones with a file still in work
};

} // namespace tarsel
