// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QList>
#include <QPixmap>
#include <QStackedWidget>
#include <QTimer>
#include <QUrl>
#include <functional>

class QAbstractItemView;
class QDropEvent;
class QLabel;
class QTreeView;

namespace tarsel {

class RowDelegate;
class TableColumns;
class ThumbnailView;

/// Shows a ListView as a table or as thumbnails and keeps the selection of list and widget in step, in both
/// directions. What the user does leaves as signals; the list's owner decides what it means.
class ListControl final : public QStackedWidget {
    Q_OBJECT
public:
    enum class Form { Thumbnails, Details };

    explicit ListControl(ListView& list, QWidget* parent = nullptr);

    ListView& list() const { return m_list; }
    /// Hides the base class's: the name belongs to the views, since they hold the focus.
    void setAccessibleName(const QString& name);
    /// The view on show, for focus, clicks and geometry.
    QAbstractItemView* view() const;

    void setForm(Form form);
    Form form() const;
    void setThumbnailSize(QSize size); ///< pictures of the form Thumbnails
    QSize thumbnailSize() const;
    /// How the rows' pictures become pixmaps; without it they must be pixmaps already.
    void setPixmapMaker(std::function<QPixmap(const QVariant& picture)> maker);
    void setTableIconSize(QSize size); ///< pictures of the form Details; small ones until it is called
    /// On: a selected row is marked over all columns; off: on its first column.
    void setFullRowSelect(bool full);
    /// In pixels of the usual font; on the screen columns grow with the font.
    int columnWidth(int column) const;
    void setColumnWidth(int column, int width);
    /// The one that takes free room; the first one until it is called. With `hasHalf` it has half the table
    /// at least, and the others are narrowed for it, else it is never narrower than its own width.
    void setWideColumn(int column, bool hasHalf = false);
    /// A text for which the column has room until its width is changed.
    void setUsualText(int column, const QString& text);
    /// Lets rows of `source` be dropped here. May be the control itself, to reorder rows.
    void acceptRowsOf(const ListControl* source);
    void setRowsDraggable();
    /// Lets a click on a heading sort the rows; it does until this is called.
    void setSortable(bool sortable);
    /// One selected row at most, and none after a click beside the rows.
    void setSingleSelection();
    /// Lets files of other programs be dropped and pasted here.
    void acceptFiles();
    /// Opens the row's text for editing in place.
    void editText(int row);
    /// Takes over the text that is being edited in place, if any.
    void endEditing();
    /// Selects the row that many steps from the selected one, shows and focuses it, and returns its number;
    /// -1, with nothing changed, where there is none.
    int selectNeighbour(int step);
    struct RowRange {
        int first = 0;
        int last = -1;
    };
    RowRange visibleRows() const; ///< rows in view, as far as scrolling and sizes say
    /// What an empty list says.
    void setHint(const QString& text);

Q_SIGNALS:
    void entered();    ///< the list got the focus
    void rowClicked(); ///< left button released
    void rowDoubleClicked();
    void enterPressed();
    void keySelected(); ///< an arrow was released, or the typing of a row's name came to rest
    void deleteReleased();
    void formChanged();
    void menuWanted(const QPoint& globalPosition);
    void zoomed(int angle); ///< Ctrl and the wheel over thumbnails, in eighths of a degree
    void viewMoved();       ///< other rows may have come into view
    /// Rows were dropped; `row` is the one under the pointer, -1 after the last.
    void rowsDropped(tarsel::ListControl* source, int row);
    void filesOffered(const QList<QUrl>& files); ///< dropped or pasted

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override; ///< frames the list that has the focus
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void prepare(QAbstractItemView* view);
    void prepareTable();
    void prepareHint();
    void showSorting();
    void placeHint();
    void colorHint();
    bool selectFirst(const QKeyEvent& event);
    bool keyPressed(const QKeyEvent& event);
    bool menuRequested(const QContextMenuEvent& event, bool onViewport);
    QPoint menuPosition() const;
    void keyReleased(const QKeyEvent& event);
    bool dragMoved(QEvent* event);
    void dropHere(const QDropEvent& drop, ListControl* source, int row);
    void acceptDrops();
    ListControl* sourceOf(QObject* dragSource) const;
    void setDropRow(int row);
    void takeSelectionFromView();
    void scheduleSelectionToView();
    void giveSelectionToView();

    ListView& m_list;
    QTreeView* m_table;
    ThumbnailView* m_thumbnails;
    TableColumns* m_columns;
    RowDelegate* m_tableRows; ///< one for each view: an editor belongs to one view
    RowDelegate* m_thumbnailRows;
    QLabel* m_hint;
    std::vector<const ListControl*> m_dropSources;
    bool m_isDeleting = false; ///< Del was pressed here, by itself: not as part of a shortcut
    QTimer m_typing;           ///< runs until it comes to rest
    bool m_acceptsFiles = false;
    bool m_synchronising = false;
    bool m_scheduled = false;
};

/// Rows as lines of cells between tabs.
QString rowsAsText(const ListView& list, bool selectedOnly);
/// Brings rows to the clipboard, as that text and as the files that their Tags name.
void copyRows(const ListView& list, bool selectedOnly);

} // namespace tarsel
