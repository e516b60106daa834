// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/CollectionLists.h"
#include "collections/FolderRow.h"
#include "collections/SharpThumbnails.h"

#include <QObject>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace tarsel {

/// The list of the pictures in one folder. Rows appear as soon as the file system has named the files;
/// resolution, pages and thumbnail follow from background threads, rows in view first. In the finished list a
/// row of the thumbnail view has the index of its thumbnail in ilFolder as number and as icon; rows of the
/// detail view have no icon, and show the small picture named by their icon key.
class FolderView final : public QObject {
    Q_OBJECT
public:
    explicit FolderView(CollectionLists lists);
    ~FolderView() override;

    CollectionSettings settings;
    ThumbnailReader readThumbnail = loadThumbnail; ///< called on threads
    /// True from the choice of a folder until its first rows are there.
    bool FolderChanging = false;
    /// The first and the last row in view.
    std::function<std::pair<int, int>()> visibleRows;

    /// Begins to list a folder; a listing that is running ends at once. In the thumbnail view a picture that
    /// can't be read loses its row. A folder without permission to read leaves the list empty and is reported
    /// in the panel "status"; other errors are trapped as "FrmMain.subShowFilesInFolder".
    void subShowFilesInFolder(const QString& path);
    bool isRunning() const { return m_scan.get() != nullptr; } ///< rows are missing or incomplete
    void stop();
    /// Stops a listing for the user. What has no row or picture yet has none until the folder is listed
    /// again.
    void cancel();
    /// The size of thumbnails from the next listing on; at once while nothing is listed.
    void setThumbnailSize(Size size);
    /// The size from now on: the pictures of all rows are read again.
    void changeThumbnailSize(Size size);
    /// Reads the pictures of all rows again, after a change of how thumbnails are made. Rows, their order and
    /// their selection stay.
    void makeThumbnailsAgain();
    void preferVisibleRows(); ///< other rows have come into view
    /// To the detail view and back. A listing that is running, and a thumbnail view without pictures, list
    /// the folder again. Files that have no row in the thumbnail view have one in the other.
    void cmdDetailFolder();
    void cmdThumbnailFolder();
    void refresh(); ///< lists the folder again, if there is one
    /// True while somebody else uses the progress bar, which the listing leaves alone then and takes back.
    void lendBar(bool lent);
    QString currentFolder() const { return m_folder; }
    /// Lists the folder again, now with that file of it too, whose name has none of the extensions of
    /// pictures. False, and nothing, when that has been tried, and for a file of another folder.
    bool listAlso(const QString& file);
    /// Files of any folder that were just written: those of this one get a row in its place, or the row that
    /// they have is read again. The other rows and the selection stay; with many files, and in lists that are
    /// too long for thumbnails in full size, the folder is listed again instead.
    void showWritten(const QStringList& files);
    /// Why the list isn't complete, as the panel "status" says; empty for complete ones.
    const QString& refusal() const { return m_refusal; }

Q_SIGNALS:
    void runningChanged();       ///< a listing began or ended
    void thumbnailSizeChanged(); ///< as setThumbnailSize announced it

private:
    void clearList();
    void takeThumbnailSize();
    FolderScan::Request request(QStringList known) const;
    void startScan(QStringList known = {});
    QStringList namesByNumber() const;
    int firstFreeNumber() const;
    void showOwnThumbnails();
    void retireScan();
    void fetchDelivery(FolderScan& scan);
    void take(FolderScan::Delivery delivery, int files);
    void reportFailure(const TrappedError& error);
    void refuse(const QString& reason);
    void addRows(std::vector<ListRow> rows);
    void complete(FolderScan::NumberedContent completed, std::vector<int>& unreadable);
    int rowOf(int number);
    void removeRows(std::vector<int> numbers);
    void finish();
    void showBar();
    void hideBar();
    void numberAgain();
    void addUnreadable();
    bool dropMissing(QStringList& names) const;
    void showWrittenNames();
    void takeFromUnreadable(const QStringList& names);
    ListRow writtenRow(const QString& name) const;
    void addWritten(QStringList fresh, QStringList& known);
    void leaveOutUnreadable();
    std::vector<int> rowsInView() const;
    void sharpenVisibleRows();
    Size smallBox(Size box) const;
    void showThumbnail(int number, const Picture& picture);
    void keepSorting();
    void sortAgain();

    CollectionLists m_lists;
    QString m_folder;
    QString m_alsoListed;           ///< complete path of the file that listAlso asked for in this folder
    std::optional<Size> m_nextSize; ///< of thumbnails, from the next listing on
    QString m_refusal;
    QStringList m_written; ///< names that wait for the end of the listing
    QString m_lastRead;    ///< name of the file that was completed last
    CurrentScan m_scan{[this](FolderScan& scan) { fetchDelivery(scan); }};
    SharpThumbnails m_sharp{[this](int number, const Picture& picture) { showThumbnail(number, picture); }};
    bool m_hasAllRows = false;
    bool m_hasGaps = false;              ///< some numbers have no row any more
    bool m_isOutOfOrder = false;         ///< their numbers aren't in the order of names
    std::vector<PlacedRow> m_unreadable; ///< left out by the thumbnail view
    bool m_isBarLent = false;
    int m_expected = 0;
    int m_completed = 0;
    std::vector<int> m_rowOf; ///< row by number, as of the last look; empty when rows have moved
    std::pair<int, Qt::SortOrder> m_sorting{-1, Qt::AscendingOrder};
};

} // namespace tarsel
