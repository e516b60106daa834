// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/BasketEntry.h"
#include "collections/CollectionLists.h"

#include <QObject>
#include <functional>
#include <optional>
#include <vector>

namespace tarsel {

/// What the user did to the rows of the basket, to be undone and done again. Adding is not a step of it: rows
/// are found again by their Tags, wherever other steps and additions have put them.
///
/// It holds 50 steps and 100,000 rows, of New Basket the last three; older steps go. Page files that New
/// Basket takes away are set aside for as long as its step is here.
class BasketHistory final : public QObject {
    Q_OBJECT
public:
    enum class Kind { Remove, NewBasket, OpenBasket, Move, Sort, Rename, Describe };

    /// Notes changes of order and edited titles by itself.
    explicit BasketHistory(CollectionLists lists);
    ~BasketHistory() override; ///< deletes what was set aside
    BasketHistory(const BasketHistory&) = delete;
    BasketHistory& operator=(const BasketHistory&) = delete;

    /// Entries of a basket file whose rows are still to come, with their descriptions; of the last session's
    /// basket, also those whose files are missing. They go and come back with the rows of their basket.
    std::vector<AwaitedEntry> awaited;

    /// Called after each change of what can be undone.
    std::function<void()> changed;

    /// Takes rows out of the list, given in ascending order. Rows without a picture so far are forgotten. In
    /// `programFolder`, acquired pictures among them are known as removed by the user.
    void remove(const std::vector<int>& rows, const QString& programFolder);
    /// Empties the list and takes the page files of `programFolder` away, but for acquired pictures that no
    /// row of the list was.
    void beginNewBasket(const QString& programFolder);
    /// Empties the list for the rows of a basket file.
    void beginOpenBasket();
    void describe(int row, const QString& text);

    std::optional<Kind> undoable() const;
    std::optional<Kind> redoable() const;
    /// Undone rows are selected, the first one has the focus.
    void undo();
    void redo();

private:
    struct RemovedRow {
        PlacedRow placed;
        QVariant picture;
    };
    struct Step {
        Kind kind;
        std::vector<RemovedRow> rows = {};
        std::vector<AwaitedEntry> awaited = {};
        QStringList order = {}; ///< Tags
        QString tag = {};       ///< of the row with the text
        int row = -1;           ///< where it was
        QString text = {};      ///< title or description
        QString setAside = {};  ///< folder of page files
        QString programFolder = {};
        QStringList acquired = {}; ///< files struck from the list of acquired ones
    };

    void push(Step step);
    void limitSteps();
    void dropSteps(size_t first, size_t end);
    void swap(Step& step, bool isUndo);
    std::vector<RemovedRow> takeRows(const std::vector<int>& rows);
    std::vector<RemovedRow> takeAllRows();
    void putBack(std::vector<RemovedRow> rows);
    int iconOf(const RemovedRow& row);
    void swapRemoved(Step& step, bool isUndo);
    void swapNewBasket(Step& step, bool isUndo);
    void returnPageFiles(Step& step);
    static QStringList tagsOf(const std::vector<RemovedRow>& rows);
    static void strikeAcquired(Step& step);
    static void listAcquiredAgain(Step& step);
    void swapOrder(Step& step);
    void swapText(Step& step);
    QStringList order() const;
    void noteOrder(const QStringList& before, Kind kind);

    CollectionLists m_lists;
    std::vector<Step> m_steps;
    size_t m_done = 0; ///< steps before it can be undone, the others done again
    QStringList m_orderBefore;
    bool m_swapping = false;
};

} // namespace tarsel
