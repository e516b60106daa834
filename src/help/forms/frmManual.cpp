// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/forms/frmManual.h"

#include "controls/FormScrollArea.h"
#include "controls/LineIcon.h"
#include "controls/PaleText.h"
#include "help/forms/FoundPlaceDelegate.h"
#include "help/forms/ui_frmManual.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QWindow>
#include <utility>

namespace tarsel {

namespace {

const QString startPage = QStringLiteral("index");
constexpr int placeRole = Qt::UserRole; ///< of the rows of both lists

QString placeOf(const QString& page, const QString& anchor) {
    return anchor.isEmpty() ? page : page + QLatin1Char('#') + anchor;
}

} // namespace

frmManual::frmManual(Manual manual, QWidget* owner) :
    QDialog(owner, Qt::Window), m_manual(std::move(manual)), m_ui(std::make_unique<Ui::frmManual>()) {
    m_ui->setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false);
    m_ui->cmdBack->setIcon(lineIcon(QStringLiteral("previous")));
    m_ui->cmdForward->setIcon(lineIcon(QStringLiteral("next")));
    m_ui->cmdStart->setIcon(lineIcon(QStringLiteral("home")));
    setWindowIcon(lineIcon(QStringLiteral("help")));
    keepPlaceholderReadable(*m_ui->txtSearch);
    m_ui->lstFound->setItemDelegate(new FoundPlaceDelegate(m_ui->lstFound));
    fillContents();
    connectParts();
    addKeys();
    const int letter = fontMetrics().averageCharWidth();
    m_ui->splManual->setStretchFactor(1, 1);
    m_ui->splManual->setSizes({37 * letter, 105 * letter});
    fitToScreen(*this, {148 * letter, 46 * fontMetrics().height()});
    visit({startPage, {}});
}

frmManual::~frmManual() = default;

void frmManual::fillContents() {
    QTreeWidgetItem* group = nullptr;
    for (const auto& [title, page] : m_manual.contents()) {
        const bool isGroup = page.isEmpty();
        QTreeWidgetItem* item =
            isGroup || !group ? new QTreeWidgetItem(m_ui->treContents) : new QTreeWidgetItem(group);
        item->setText(0, title);
        item->setData(0, placeRole, page);
        if (isGroup) {
            group = item;
            item->setFlags(Qt::ItemIsEnabled); // nothing to select
            QFont bold = item->font(0);
            bold.setBold(true);
            item->setFont(0, bold);
        }
    }
    m_ui->treContents->expandAll();
}

void frmManual::connectParts() {
    connect(m_ui->cmdBack, &QToolButton::clicked, this, [this] { step(-1); });
    connect(m_ui->cmdForward, &QToolButton::clicked, this, [this] { step(1); });
    connect(m_ui->cmdStart, &QToolButton::clicked, this, [this] { showPlace(startPage); });
    ManualView* page = m_ui->txtPage;
    connect(m_ui->cmdSmaller, &QToolButton::clicked, page, [page] { page->enlarge(page->enlarged() - 1); });
    connect(m_ui->cmdLarger, &QToolButton::clicked, page, [page] { page->enlarge(page->enlarged() + 1); });
    connect(page, &QTextBrowser::anchorClicked, this, &frmManual::follow);
    connect(m_ui->txtSearch, &QLineEdit::textChanged, this, &frmManual::search);
    connect(m_ui->treContents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item && !item->data(0, placeRole).toString().isEmpty())
            showPlace(item->data(0, placeRole).toString());
    });
    connect(m_ui->lstFound, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item && !item->data(placeRole).toString().isEmpty())
            showPlace(item->data(placeRole).toString());
    });
}

void frmManual::addKeys() {
    const auto add = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    const auto press = [](QToolButton* button) { return [button] { button->click(); }; };
    add(QKeySequence::Back, press(m_ui->cmdBack));
    add(QKeySequence::Forward, press(m_ui->cmdForward));
    add(QKeySequence(Qt::ALT | Qt::Key_Home), press(m_ui->cmdStart));
    add(QKeySequence::ZoomIn, press(m_ui->cmdLarger));
    add(QKeySequence(Qt::CTRL | Qt::Key_Equal), press(m_ui->cmdLarger));
    add(QKeySequence::ZoomOut, press(m_ui->cmdSmaller));
    add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { m_ui->txtPage->enlarge(0); });
    add(QKeySequence::Find, [this] {
        m_ui->txtSearch->setFocus(Qt::ShortcutFocusReason);
        m_ui->txtSearch->selectAll();
    });
}

void frmManual::showPlace(const QString& place) {
    const QString page = place.section(QLatin1Char('#'), 0, 0);
    if (m_manual.page(page))
        visit({page, place.section(QLatin1Char('#'), 1)});
    else
        visit({startPage, {}});
}

QString frmManual::place() const {
    return m_visits.empty() ? QString() : placeOf(m_visits[m_current].page, m_visits[m_current].anchor);
}

/// Links lead to "page.md#anchor", from a translated page to "../page.md#anchor", and to "#anchor" of the
/// same page.
void frmManual::follow(const QUrl& link) {
    const QString page = QFileInfo(link.path()).completeBaseName();
    showPlace(placeOf(page.isEmpty() ? m_ui->txtPage->pageName() : page, link.fragment()));
}

void frmManual::visit(const Visit& visit) {
    if (!m_visits.empty()) {
        m_visits[m_current].scrolled = m_ui->txtPage->verticalScrollBar()->value();
        m_visits.resize(m_current + 1);
        if (m_visits.back().page == visit.page && m_visits.back().anchor == visit.anchor)
            m_visits.pop_back();
    }
    m_visits.push_back(visit);
    m_current = m_visits.size() - 1;
    display(visit);
}

void frmManual::step(int by) {
    if (by < 0 ? m_current == 0 : m_current + 1 >= m_visits.size())
        return;
    m_visits[m_current].scrolled = m_ui->txtPage->verticalScrollBar()->value();
    m_current = by < 0 ? m_current - 1 : m_current + 1;
    display(m_visits[m_current]);
}

void frmManual::display(const Visit& visit) {
    if (const ManualPage* page = m_manual.page(visit.page)) {
        m_ui->txtPage->showPage(*page, visit.anchor);
        if (visit.scrolled >= 0)
            m_ui->txtPage->scrollTo(visit.scrolled);
        setWindowTitle(page->name == startPage ? tr("Manual") : tr("%1 - Manual").arg(page->title()));
    } else {
        m_ui->txtPage->setPlainText(tr("The pages of the manual are not installed."));
    }
    m_ui->cmdBack->setEnabled(m_current > 0);
    m_ui->cmdForward->setEnabled(m_current + 1 < m_visits.size());
    selectInContents(visit.page);
}

void frmManual::selectInContents(const QString& page) {
    const QSignalBlocker silent(m_ui->treContents);
    m_ui->treContents->setCurrentItem(nullptr);
    for (QTreeWidgetItemIterator each(m_ui->treContents); *each; ++each)
        if ((*each)->data(0, placeRole).toString() == page)
            m_ui->treContents->setCurrentItem(*each);
}

void frmManual::search(const QString& words) {
    const QSignalBlocker silent(m_ui->lstFound);
    const bool searches = !words.trimmed().isEmpty();
    m_ui->lstFound->clear();
    for (const auto& [page, anchor, title, excerpt] : m_manual.find(words)) {
        auto* item = new QListWidgetItem(title, m_ui->lstFound);
        item->setData(placeRole, placeOf(page, anchor));
        item->setData(FoundPlaceDelegate::excerptRole, excerpt);
    }
    if (searches && m_ui->lstFound->count() == 0)
        (new QListWidgetItem(tr("No page has these words."), m_ui->lstFound))->setFlags(Qt::NoItemFlags);
    m_ui->picLists->setCurrentWidget(searches ? static_cast<QWidget*>(m_ui->lstFound) : m_ui->treContents);
    m_ui->txtPage->markWords(words.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

void frmManual::openFirstFound() {
    if (m_ui->picLists->currentWidget() != m_ui->lstFound)
        return;
    m_ui->lstFound->setFocus();
    m_ui->lstFound->setCurrentRow(0);
}

/// Return and Down lead from the words to the places; Esc takes the words back before it closes the window.
void frmManual::keyPressEvent(QKeyEvent* event) {
    const bool inSearch = m_ui->txtSearch->hasFocus();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn || (inSearch && event->key() == Qt::Key_Down)) {
        if (inSearch)
            openFirstFound();
        event->accept();
    } else if (event->key() == Qt::Key_Escape && !m_ui->txtSearch->text().isEmpty()) {
        m_ui->txtSearch->clear();
    } else {
        QDialog::keyPressEvent(event);
    }
}

/// A modal dialog blocks all windows but those that belong to it.
bool frmManual::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Show)
        QMetaObject::invokeMethod(this, &frmManual::standAboveModalWindow, Qt::QueuedConnection);
    return QDialog::event(event);
}

void frmManual::standAboveModalWindow() {
    QWindow* const own = windowHandle();
    QWindow* const modal = QGuiApplication::modalWindow();
    if (!own || modal == own || own->transientParent() == modal)
        return;
    own->setTransientParent(modal);
    if (modal)
        connect(modal, &QWindow::visibleChanged, this, &frmManual::standAboveModalWindow,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
}

} // namespace tarsel
