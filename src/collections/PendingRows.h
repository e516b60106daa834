// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "collections/BasketReading.h"

#include <QObject>
#include <memory>
#include <utility>

namespace tarsel {

/// Rows of a list whose files are still being read, found again by number wherever the user moves them. A row
/// that is removed in the meantime is no longer read.
class PendingRows final : public QObject {
    Q_OBJECT
public:
    /// For rows with the numbers from `firstNumber` on.
    PendingRows(ListView& list, BasketReading& reading, int firstNumber, int count);
    ~PendingRows() override; ///< takes the numbers back

    /// Appends rows in one step, numbered on from the last one, and begins to read their files.
    void append(std::vector<ListRow> rows, const std::vector<BasketSource>& sources);
    /// Numbers all rows of the list. Their files are not read before readAgain.
    void claimAll();
    /// Begins to read the files of rows that were claimed, from the number `first` on, as single pictures.
    void readAgain(int first, int count);

    int count() const { return m_pending; }
    bool isEmpty() const { return m_pending == 0; }
    std::vector<int> rows(); ///< ascending
    int rowOf(int number);   ///< -1 when it is gone
    /// What was found since; waits for a short time. Rows in view are read first.
    std::vector<BasketReading::Numbered> fetch(const std::function<std::pair<int, int>()>& visibleRows);
    void end(int number); ///< the row is complete

private:
    void expect(const std::vector<BasketSource>& sources);
    void findRows();

    ListView& m_list;
    BasketReading& m_reading;
    const int m_first;
    int m_next = 0; ///< numbers given out
    int m_pending = 0;
    std::vector<bool> m_isPending; ///< by number, from 0
    std::vector<int> m_rowOf;      ///< by number, from 0
    bool m_haveMoved = false;      ///< m_rowOf is out of date
};

} // namespace tarsel
