// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ListControl.h"

#include "controls/FocusFrame.h"
#include "controls/PaleText.h"
#include "controls/RowDelegate.h"
#include "controls/TableColumns.h"
#include "controls/ThumbnailView.h"

#include <QAbstractItemDelegate>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMetaMethod>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

constexpr int typingRest = 300; ///< milliseconds

/// A view whose drags only ever offer copies: moving is the list's work. As one of single selection it
/// selects what was clicked last, whatever keys are held, also nothing.
template <class View>
class DraggingView final : public View {
public:
    using View::View;

protected:
    void startDrag(Qt::DropActions) override { View::startDrag(Qt::CopyAction); }
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override {
        if (this->selectionMode() != QAbstractItemView::SingleSelection)
            return View::selectionCommand(index, event);
        return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                               : QItemSelectionModel::SelectionFlags(QItemSelectionModel::Clear);
    }
};

bool isPlain(const QKeyEvent& event) {
    return !(event.modifiers() & ~Qt::KeypadModifier);
}

bool isTyped(const QKeyEvent& event) {
    return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
           !event.text().isEmpty() && event.text().front().isPrint();
}

bool isArrow(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right ||
           key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

/// Rows in ascending order as runs of neighbours, so that thousands of rows are selected in one step.
QItemSelection selectionOf(const ListView& list) {
    QItemSelection selection;
    const std::vector<int> rows = list.selectedRows();
    const int lastColumn = list.columnCount() - 1;
    for (size_t first = 0; first < rows.size();) {
        size_t last = first;
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1)
            ++last;
        selection.select(list.index(rows[first], 0), list.index(rows[last], lastColumn));
        first = last + 1;
    }
    return selection;
}

} // namespace

ListControl::ListControl(ListView& list, QWidget* parent) :
    QStackedWidget(parent), m_list(list), m_table(new DraggingView<QTreeView>(this)),
    m_thumbnails(new DraggingView<ThumbnailView>(this)), m_columns(new TableColumns(m_table)),
    m_tableRows(new RowDelegate(this)), m_thumbnailRows(new RowDelegate(this)), m_hint(new QLabel(this)) {
    setContentsMargins(focusFrameWidth, focusFrameWidth, focusFrameWidth, focusFrameWidth);
    // Before the views learn of it, which signal a selection that may be out of date.
    for (const auto coming :
         {&QAbstractItemModel::rowsAboutToBeInserted, &QAbstractItemModel::rowsAboutToBeRemoved})
        connect(&m_list, coming, this, [this] {
            if (m_scheduled)
                giveSelectionToView();
        });
    prepareTable();
    prepare(m_table);
    prepare(m_thumbnails);
    connect(m_thumbnails, &ThumbnailView::zoomed, this, &ListControl::zoomed);
    m_thumbnails->setSelectionModel(m_table->selectionModel());
    setThumbnailSize({40, 40});
    setTableIconSize({16, 16});

    const QItemSelectionModel* selection = m_table->selectionModel();
    connect(selection, &QItemSelectionModel::selectionChanged, this, &ListControl::takeSelectionFromView);
    connect(selection, &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { m_list.setFocusedRow(current.row()); });
    connect(&m_list, &ListView::selectionChanged, this, &ListControl::scheduleSelectionToView);
    connect(&m_list, &QAbstractItemModel::layoutChanged, this, &ListControl::scheduleSelectionToView);
    m_typing.setSingleShot(true);
    m_typing.setInterval(typingRest);
    connect(&m_typing, &QTimer::timeout, this, &ListControl::keySelected);
    setForm(Form::Details);
    prepareHint();
}

void ListControl::setAccessibleName(const QString& name) {
    m_table->setAccessibleName(name);
    m_thumbnails->setAccessibleName(name);
}

QAbstractItemView* ListControl::view() const {
    return qobject_cast<QAbstractItemView*>(currentWidget());
}

void ListControl::setForm(Form form) {
    const bool focused = view() && view()->hasFocus();
    setCurrentWidget(form == Form::Details ? static_cast<QWidget*>(m_table) : m_thumbnails);
    setFocusProxy(view());
    if (focused)
        view()->setFocus();
    Q_EMIT formChanged();
}

ListControl::Form ListControl::form() const {
    return currentWidget() == m_table ? Form::Details : Form::Thumbnails;
}

void ListControl::setThumbnailSize(QSize size) {
    // Wide enough for a name of the usual length.
    const int width = std::max(size.width() + 22, fontMetrics().averageCharWidth() * 22);
    m_thumbnailRows->cellSize = {width, size.height() + fontMetrics().height() + 18};
    m_thumbnails->setSizes(size, m_thumbnailRows->cellSize);
}

QSize ListControl::thumbnailSize() const {
    return m_thumbnails->iconSize();
}

void ListControl::setTableIconSize(QSize size) {
    m_table->setIconSize(size);
}

void ListControl::setFullRowSelect(bool full) {
    m_tableRows->fullRow = full;
    m_table->viewport()->update();
}

int ListControl::columnWidth(int column) const {
    return m_columns->width(column);
}

void ListControl::setColumnWidth(int column, int width) {
    m_columns->setWidth(column, width);
}

void ListControl::setWideColumn(int column, bool hasHalf) {
    m_columns->setWideColumn(column, hasHalf);
}

void ListControl::setUsualText(int column, const QString& text) {
    m_columns->setUsualText(column, text);
}

void ListControl::acceptRowsOf(const ListControl* source) {
    m_dropSources.push_back(source);
    acceptDrops();
}

void ListControl::acceptFiles() {
    m_acceptsFiles = true;
    acceptDrops();
}

void ListControl::acceptDrops() {
    for (QAbstractItemView* each :
         {static_cast<QAbstractItemView*>(m_table), static_cast<QAbstractItemView*>(m_thumbnails)})
        each->setAcceptDrops(true);
}

void ListControl::setRowsDraggable() {
    m_table->setDragEnabled(true);
    m_thumbnails->setDragEnabled(true);
}

void ListControl::setSortable(bool sortable) {
    m_table->header()->setSectionsClickable(sortable);
}

void ListControl::setSingleSelection() {
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_thumbnails->setSelectionMode(QAbstractItemView::SingleSelection);
}

void ListControl::editText(int row) {
    const QModelIndex index = m_list.index(row, 0);
    view()->setCurrentIndex(index);
    view()->edit(index);
}

void ListControl::endEditing() {
    const QModelIndex index = view()->currentIndex();
    QWidget* editor = view()->indexWidget(index);
    if (!editor)
        return;
    QAbstractItemDelegate* delegate = view()->itemDelegateForIndex(index);
    Q_EMIT delegate->commitData(editor);
    Q_EMIT delegate->closeEditor(editor);
}

void ListControl::setHint(const QString& text) {
    m_hint->setText(text);
    placeHint();
}

void ListControl::resizeEvent(QResizeEvent* event) {
    QStackedWidget::resizeEvent(event);
    placeHint();
    Q_EMIT viewMoved();
}

void ListControl::changeEvent(QEvent* event) {
    QStackedWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        colorHint();
}

void ListControl::paintEvent(QPaintEvent* event) {
    QStackedWidget::paintEvent(event);
    QPainter painter(this);
    if (view()->hasFocus())
        drawFocusFrame(painter, palette(), rect());
}

void ListControl::placeHint() {
    m_hint->setGeometry(rect().adjusted(24, 24, -24, -24));
    m_hint->setVisible(m_list.isEmpty() && !m_hint->text().isEmpty());
    m_hint->raise();
}

void ListControl::prepareHint() {
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setTextFormat(Qt::PlainText); // names of files and folders
    m_hint->setAttribute(Qt::WA_TransparentForMouseEvents);
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&m_list, changed, this, &ListControl::placeHint);
    connect(&m_list, &QAbstractItemModel::modelReset, this, &ListControl::placeHint);
    colorHint();
    placeHint();
}

void ListControl::colorHint() {
    QPalette colors;
    colors.setColor(QPalette::WindowText, paleText(palette()));
    m_hint->setPalette(colors);
}

int ListControl::selectNeighbour(int step) {
    const int selected = m_list.selectedIndex();
    const int row = selected + step;
    if (selected < 0 || row < 0 || row >= m_list.count())
        return -1;
    m_list.selectOnly(row);
    view()->scrollTo(m_list.index(row, 0));
    setFocus();
    return row;
}

void ListControl::prepareTable() {
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_table->setAlternatingRowColors(true);
    QHeaderView* header = m_table->header();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(header, &QHeaderView::sectionClicked, &m_list, &ListView::SortByColumn);
    connect(&m_list, &ListView::sortingChanged, this, &ListControl::showSorting);
}

/// The header's arrow is shown for as long as the rows are in that order.
void ListControl::showSorting() {
    m_table->header()->setSortIndicatorShown(m_list.sortColumn() >= 0);
    m_table->header()->setSortIndicator(m_list.sortColumn(), m_list.sortOrder());
}

void ListControl::setPixmapMaker(std::function<QPixmap(const QVariant&)> maker) {
    m_tableRows->pixmapOf = m_thumbnailRows->pixmapOf = std::move(maker);
}

ListControl::RowRange ListControl::visibleRows() const {
    const QWidget* viewport = view()->viewport();
    const int top = view()->verticalScrollBar()->value();
    const int bottom = top + viewport->height() - 1;
    const bool table = form() == Form::Details;
    const int height = table ? std::max(1, m_table->sizeHintForRow(0)) : m_thumbnails->gridSize().height();
    const int columns = table ? 1 : std::max(1, viewport->width() / m_thumbnails->gridSize().width());
    return {std::clamp(top / height * columns, 0, std::max(0, m_list.count() - 1)),
            std::min((bottom / height + 1) * columns - 1, m_list.count() - 1)};
}

void ListControl::prepare(QAbstractItemView* view) {
    view->setModel(&m_list);
    view->setItemDelegate(view == m_table ? m_tableRows : m_thumbnailRows);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this, &ListControl::viewMoved);
    connect(view->verticalScrollBar(), &QScrollBar::rangeChanged, this, &ListControl::viewMoved);
    connect(view, &QAbstractItemView::doubleClicked, this, &ListControl::rowDoubleClicked);
    addWidget(view);
}

bool ListControl::eventFilter(QObject* watched, QEvent* event) {
    const bool onViewport = !qobject_cast<QAbstractItemView*>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        if (!onViewport)
            Q_EMIT entered();
        update();
        break;
    case QEvent::FocusOut:
        m_typing.stop();
        m_isDeleting = false;
        update();
        break;
    case QEvent::KeyPress:
        if (!onViewport && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete)
            m_isDeleting = isPlain(*static_cast<QKeyEvent*>(event));
        return !onViewport && keyPressed(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        if (!onViewport && !static_cast<QKeyEvent*>(event)->isAutoRepeat())
            keyReleased(*static_cast<QKeyEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        // The view first: the signal comes after the click's selection.
        if (onViewport && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            QMetaObject::invokeMethod(this, &ListControl::rowClicked, Qt::QueuedConnection);
        break;
    case QEvent::ContextMenu:
        return menuRequested(*static_cast<QContextMenuEvent*>(event), onViewport);
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return onViewport && dragMoved(event);
    default:
        break;
    }
    return QStackedWidget::eventFilter(watched, event);
}

/// The views have a current row as soon as they have the focus, which is neither marked nor shown: without a
/// selected row the first key is for that one instead of the next.
bool ListControl::selectFirst(const QKeyEvent& event) {
    if (!isArrow(event.key()) || !isPlain(event) || m_list.isEmpty() || m_list.selectedIndex() >= 0)
        return false;
    const int current = std::max(0, view()->currentIndex().row());
    const int row = event.key() == Qt::Key_End    ? m_list.count() - 1
                    : event.key() == Qt::Key_Home ? 0
                                                  : current;
    m_list.selectOnly(row);
    view()->scrollTo(m_list.index(row, 0));
    return true;
}

bool ListControl::keyPressed(const QKeyEvent& event) {
    if (isTyped(event))
        m_typing.start();
    if (selectFirst(event))
        return true;
    if (event.matches(QKeySequence::Copy)) {
        copyRows(m_list, true);
        return true;
    }
    if (m_acceptsFiles && event.matches(QKeySequence::Paste)) {
        if (const QMimeData* copied = QGuiApplication::clipboard()->mimeData(); copied && copied->hasUrls())
            Q_EMIT filesOffered(copied->urls());
        return true;
    }
    if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier) {
        Q_EMIT menuWanted(menuPosition());
        return true;
    }
    // Where no slot waits for Enter it is left to the dialog's default button.
    const bool wanted = isSignalConnected(QMetaMethod::fromSignal(&ListControl::enterPressed));
    if (!wanted || (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter))
        return false;
    Q_EMIT enterPressed();
    return true;
}

/// The mouse asks the viewport, the menu key the view.
bool ListControl::menuRequested(const QContextMenuEvent& event, bool onViewport) {
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    if (onViewport == byKey)
        return false;
    Q_EMIT menuWanted(byKey ? menuPosition() : event.globalPos());
    return true;
}

/// Next to the row with the focus, as far as it is in view.
QPoint ListControl::menuPosition() const {
    const QWidget* viewport = view()->viewport();
    const QRect row = view()->visualRect(view()->currentIndex()) & viewport->rect();
    return viewport->mapToGlobal(row.isEmpty() ? viewport->rect().topLeft() : row.center());
}

void ListControl::keyReleased(const QKeyEvent& event) {
    if (isArrow(event.key()))
        Q_EMIT keySelected();
    else if (event.key() == Qt::Key_Delete && std::exchange(m_isDeleting, false))
        Q_EMIT deleteReleased();
}

/// Takes the drags of files and of lists whose rows are welcome here, and leaves all others to the view.
bool ListControl::dragMoved(QEvent* event) {
    if (event->type() == QEvent::DragLeave) {
        setDropRow(-1);
        return false;
    }
    auto* drop = static_cast<QDropEvent*>(event);
    ListControl* source = sourceOf(drop->source());
    const bool areFiles = m_acceptsFiles && !drop->source() && drop->mimeData()->hasUrls();
    if (!source && !areFiles)
        return false;
    const int row = view()->indexAt(drop->position().toPoint()).row();
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    const bool isDropped = event->type() == QEvent::Drop;
    setDropRow(source && !isDropped ? row : -1);
    if (isDropped)
        dropHere(*drop, source, row);
    return true;
}

/// After the event, which the drag's own loop or another program waits for: adding files takes its time.
void ListControl::dropHere(const QDropEvent& drop, ListControl* source, int row) {
    if (source)
        QMetaObject::invokeMethod(
            this, [this, source, row] { Q_EMIT rowsDropped(source, row); }, Qt::QueuedConnection);
    else
        QMetaObject::invokeMethod(
            this, [this, files = drop.mimeData()->urls()] { Q_EMIT filesOffered(files); },
            Qt::QueuedConnection);
}

ListControl* ListControl::sourceOf(QObject* dragSource) const {
    for (QObject* object = dragSource; object; object = object->parent())
        if (auto* control = qobject_cast<ListControl*>(object))
            return std::find(m_dropSources.begin(), m_dropSources.end(), control) != m_dropSources.end()
                       ? control
                       : nullptr;
    return nullptr;
}

void ListControl::setDropRow(int row) {
    m_tableRows->dropRow = m_thumbnailRows->dropRow = row;
    view()->viewport()->update();
}

/// Compares all rows in one pass: a change of thousands of rows comes as ranges, row by row it would be slow.
void ListControl::takeSelectionFromView() {
    if (m_synchronising)
        return;
    const QScopedValueRollback guard(m_synchronising, true);
    std::vector<bool> wanted(size_t(m_list.count()), false);
    for (const QItemSelectionRange& range : m_table->selectionModel()->selection())
        for (int row = range.top(); row <= std::min(range.bottom(), m_list.count() - 1); ++row)
            wanted[size_t(row)] = true;
    for (int row = 0; row < m_list.count(); ++row)
        if (m_list.isSelected(row) != wanted[size_t(row)])
            m_list.select(row, wanted[size_t(row)]);
}

/// A loop that selects row by row is followed once, when it lets pending events run.
void ListControl::scheduleSelectionToView() {
    if (m_synchronising || m_scheduled)
        return;
    m_scheduled = true;
    QMetaObject::invokeMethod(this, &ListControl::giveSelectionToView, Qt::QueuedConnection);
}

void ListControl::giveSelectionToView() {
    m_scheduled = false;
    const QScopedValueRollback guard(m_synchronising, true);
    QItemSelectionModel* selection = m_table->selectionModel();
    const int focused = m_list.focusedRow();
    if (focused >= 0 && focused < m_list.count())
        selection->setCurrentIndex(m_list.index(focused, 0), QItemSelectionModel::NoUpdate);
    selection->select(selectionOf(m_list), QItemSelectionModel::ClearAndSelect);
}

QString rowsAsText(const ListView& list, bool selectedOnly) {
    QStringList lines;
    for (int row = 0; row < list.count(); ++row) {
        if (selectedOnly && !list.isSelected(row))
            continue;
        QStringList cells{list.row(row).text};
        for (int column = 1; column < list.columnCount(); ++column)
            cells << list.subItem(row, column);
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

void copyRows(const ListView& list, bool selectedOnly) {
    QModelIndexList rows;
    for (int row = 0; row < list.count(); ++row)
        if (!selectedOnly || list.isSelected(row))
            rows << list.index(row, 0);
    QMimeData* data = list.mimeData(rows);
    data->setText(rowsAsText(list, selectedOnly));
    if (data->hasUrls()) // some file managers paste nothing else
        data->setData(QStringLiteral("x-special/gnome-copied-files"),
                      "copy\n" + data->data(QStringLiteral("text/uri-list")).replace("\r\n", "\n").trimmed());
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace tarsel
