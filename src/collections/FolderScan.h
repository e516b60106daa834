// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"
#include "collections/FolderRow.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
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
        RowContent (*readContent)(const QString& path, const CollectionSettings& settings) = readRowContent;
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
    void prefer(std::vector<int> numbers);
    int count() const; ///< files of the folder; 0 until they are known

private:
    void listRows();
    void makeRows();
    void takeKnownRows();
    void setNames(const QStringList& names);
    void completeRows();
    template <class Work>
    void deliveringFailure(Work&& work);
    void deliver(TrappedError failure);
    std::optional<int> takeNumber();
    bool isPending(int number) const;
    void wakeOwner();

    const Request m_request;
    const std::function<void()> m_wake;
    std::stop_source m_stop;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    QStringList m_names;
    Delivery m_waiting;
    std::vector<ListRow> m_made;   ///< rows that wait until there are enough of them
    std::vector<bool> m_isPending; ///< by number: made and not yet being completed
    std::vector<int> m_preferred;  ///< the next one last
    int m_firstPending = 0;        ///< no row before it is pending
    int m_handedOn = 0;            ///< rows that the owner has or can fetch
    bool m_woken = false;
    int m_running = 0;
    std::vector<std::thread> m_threads;
};

} // namespace tarsel
