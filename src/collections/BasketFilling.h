// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/CollectionLists.h"
#include "collections/FileFacts.h"
#include "collections/PendingRows.h"

#include <QCoreApplication>
#include <QStringList>
#include <map>
#include <optional>
#include <vector>

namespace tarsel {

/// A file on its way into the basket, and the row that it has there until it is read.
struct BasketItem {
    BasketSource source;
    ListRow row;
};
/// Of a file in a basket file, or from another program.
BasketItem basketItem(const FileFacts& file, AddedBy addedBy = AddedBy::BasketFile);
/// Of a row of the folder list and its thumbnail, which is not decoded again for the basket.
BasketItem basketItem(AddedBy addedBy, const ListRow& folderRow, const Picture& thumbnail);

/// The rows that one adding puts into the basket: first what is known without reading the files, then what
/// threads have found in them.
class BasketFilling {
    Q_DECLARE_TR_FUNCTIONS(Basket)
public:
    using VisibleRows = std::function<std::pair<int, int>()>;
    /// For that many items at most, with row numbers from `firstNumber` on. `panel` of the status line names
    /// the file in work; empty for none.
    BasketFilling(CollectionLists lists, BasketReading& reading, int firstNumber, int count, QString panel);
    ~BasketFilling(); ///< stops reading; rows that are not complete go
    BasketFilling(const BasketFilling&) = delete;
    BasketFilling& operator=(const BasketFilling&) = delete;

    void place(const std::vector<BasketItem>& items);
    /// Takes over what has been found so far, if anything.
    void complete(const VisibleRows& visibleRows);
    bool isComplete() const { return m_rows.isEmpty(); }
    int pending() const { return m_rows.count(); }
    bool showsPages() const { return m_showsPages; } ///< the bar counts the pages of a document
    /// Files that could not be read, in the order of the items.
    QStringList failed() const;
    /// Documents that ended early since a page file could not be written, and why.
    std::vector<std::pair<QString, TrappedError>> unwritten() const;

private:
    void take(BasketReading::Numbered& found);
    void takePicture(int row, const BasketSource& source, const Thumbnail& thumbnail);
    void takePage(int row, const BasketSource& source, const BasketContent& page);
    void takeFailure(int number, const BasketSource& source, const TrappedError& failure);
    void showPage(const BasketSource& source, const BasketContent& page);
    void showStatus(const QString& text);

    CollectionLists m_lists;
    BasketReading& m_reading;
    PendingRows m_rows;
    const QString m_panel;
    std::vector<BasketSource> m_sources;     ///< by number
    std::map<int, QString> m_failed;         ///< by number
    std::map<int, TrappedError> m_unwritten; ///< by number
    std::vector<int> m_ended;                ///< numbers whose rows are to go
    bool m_showsPages = false;
};

} // namespace tarsel
