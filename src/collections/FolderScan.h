// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "collections/FolderRow.h"
#include "collections/NumberedWork.h"

#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace tarsel {

/// Reads one folder on threads of its own: rows from the file system first, in the order of their names, then
/// what completes them, rows in view first. The owner fetches both when it has been woken.
class FolderScan {
public:
    struct Request {
        QString folder;
        CollectionSettings settings;
        clsFileInfo info; ///< of the file before, with fixed date formats
        /// Names by row number of rows that are there already and only need to be completed; empty where a
        /// row is gone. Without any, the folder is listed.
        QStringList known;
        QString alsoListed; ///< name of one more file that the listing has, when it is a picture
        ThumbnailReader readThumbnail = loadThumbnail; ///< called on the scan's threads
    };
    struct NumberedContent {
        int number;
        RowContent content;
    };
    /// What there is to show since the last call.
    struct Delivery {
        std::vector<ListRow> rows; ///< `number` counts them from 0 in the order of names
        std::vector<NumberedContent> contents;
        std::optional<TrappedError> failure; ///< the listing can't go on
        bool allRows = false;
        bool isEmpty() const { return rows.empty() && contents.empty() && !allRows; }
    };

    /// `wake` is called from any thread, once until the next fetch.
    FolderScan(Request request, std::function<void()> wake);
    /// Stops, and waits for the files in work.
    ~FolderScan();
    FolderScan(const FolderScan&) = delete;
    FolderScan& operator=(const FolderScan&) = delete;

    void stop();
    bool hasEnded() const; ///< after a stop: nothing is in work any more
    /// No more than that many rows and contents at once; the owner is woken again for the rest. Contents come
    /// after the rows that they complete.
    struct Limits {
        size_t rows;
        size_t contents;
    };
    Delivery fetch(Limits most);
    /// Rows that are to be completed before all others, in that order.
    void prefer(std::vector<int> numbers) { m_contents.prefer(std::move(numbers)); }
    int count() const; ///< files of the folder; 0 until they are known

private:
    void listRows();
    void makeRows();
    void passOn(std::vector<ListRow> rows);
    void takeKnownRows();
    void setNames(const QStringList& names);
    void completeRow(int number);
    CollectionSettings affordableSettings(qsizetype rows) const;
    void deliver(std::optional<TrappedError> failure);
    void wakeOwner();

    const Request m_request;
    const std::function<void()> m_wake;
    mutable std::mutex m_mutex;
    QStringList m_names;
    CollectionSettings m_settings; ///< with the size of thumbnails that so many rows allow
    Delivery m_waiting;
    bool m_woken = false;
    bool m_isListing = true;
    NumberedWork m_contents; ///< what completes the rows
    std::thread m_lister;
};

} // namespace tarsel
