// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/Monkey.h"

#include "base/ErrorTrap.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QStyleHints>
#include <QTest>
#include <algorithm>
#include <array>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace tarsel::test {

namespace {

constexpr int beat = 10; ///< ms between two signs of life of the event loop
/// So many inputs a modal window gets before it is to be left, and so many keys may that take.
constexpr int inputsOfAModal = 60, keysToLeave = 40;
constexpr int inputsBetweenReturns = 150, inputsBetweenEdits = 300, inputsToLoad = 20;
/// With an edit in between, whose panel disables some of these actions.
constexpr int inputsBetweenVisits = 300, firstVisit = 150;
constexpr int mostBasketRows = 60; ///< more come only by chance

/// Each opens a window; those of the basket and of the picture find one there.
constexpr std::array visited{"mnuSaveAsJpeg",  "cmdBrowseSettings", "mnuPreviewSaveInteractive",
                             "mnuSaveAsAlbum", "cmdCapture",        "cmdTwainAcquire",
                             "cmdBatchPrint",  "mnuSaveAsSaver",    "mnuPreviewSaveGreeting",
                             "cmdEXIFBar_1",   "cmdPreviewPrint",   "cmdEXIFBar_0",
                             "cmdIPTCBar_0",   "mnuAddDescription", "mnuPreviewSaveImage",
                             "cmdPagesSave"};

QString nameOf(const QWidget& window) {
    return QString::fromLatin1(window.metaObject()->className()) + QLatin1Char(' ') + window.objectName();
}

/// Keys that lists, fields, menus and dialogs act on; letters and digits come beside them.
constexpr std::array keys{Qt::Key_Return, Qt::Key_Space,  Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Up,
                          Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Home,    Qt::Key_End,
                          Qt::Key_PageUp, Qt::Key_Escape, Qt::Key_PageDown, Qt::Key_Delete,  Qt::Key_F2,
                          Qt::Key_F5,     Qt::Key_F6,     Qt::Key_Menu,     Qt::Key_Plus,    Qt::Key_Minus};

/// On a button or in a menu; null for none.
QAction* actionOf(const QWidget& window, const QString& name) {
    for (const QWidget* widget : window.findChildren<QWidget*>())
        for (QAction* action : widget->actions())
            if (action->objectName() == name)
                return action;
    return nullptr;
}

double residentMegabytes() {
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * double(::sysconf(_SC_PAGESIZE)) / 1e6;
}

} // namespace

Monkey::Monkey(frmMain& window, QString folder, quint32 seed, Length length) :
    m_window(&window), m_folder(std::move(folder)), m_wanted(length) {
    m_random.seed(seed);
    // Timers of this object also run in the loops of modal windows and of work that yields.
    connect(&m_timer, &QTimer::timeout, this, &Monkey::act);
    connect(&m_heartbeat, &QTimer::timeout, this, &Monkey::measure);
    constexpr int minute = 60'000;
    connect(&m_reports, &QTimer::timeout, this, &Monkey::report);
    m_reports.start(minute);
    m_sinceStart.start();
    m_sinceBeat.start();
    m_heartbeat.start(beat);
    m_timer.start(0);
}

void Monkey::measure() {
    const int blocked = int(m_sinceBeat.restart()) - beat;
    if (blocked > m_longestBlock) {
        m_longestBlock = blocked;
        m_longestActivity = TrappingString;
    }
    m_longestOfMinute = std::max(m_longestOfMinute, blocked);
}

/// What the lists hold explains some of the memory.
void Monkey::report() {
    if (!m_window)
        return;
    std::printf(
        "minute %d: %.0f MB, %d inputs, %d files listed, %d rows in the basket, longest block %d ms\n",
        minutes(), residentMegabytes(), m_made, m_window->workspace().lvFolder.count(),
        m_window->workspace().lvPages.count(), std::exchange(m_longestOfMinute, 0));
    std::fflush(stdout);
}

void Monkey::act() {
    if (!m_window || !m_trap.isEmpty() || m_made >= m_wanted.inputs || minutes() >= m_wanted.minutes)
        return end();
    ++m_made;
    stayInFolder();
    edit();
    visit();
    m_timer.start(below(30) == 0 ? 50 + below(400) : below(8)); // hurries, and waits now and then
    QWidget* entered = visitedWindow();
    m_modalInputs = entered && entered == m_modal ? m_modalInputs + 1 : 0;
    m_modal = entered;
    if (entered && m_modalInputs > inputsOfAModal)
        return leave(*entered);

    QWidget* top = topWindow();
    ++windows[nameOf(*top)];
    const QPoint place(below(std::max(1, top->width())), below(std::max(1, top->height())));
    QWidget* under = top->childAt(place);
    QWidget& target = under ? *under : *top;
    const QPoint inside = target.mapFrom(top, place);
    const int kind = below(20);
    if (kind < 6)
        type(*top);
    else if (kind < 8)
        scroll(target, inside);
    else if (kind < 10)
        drag(target, inside);
    else if (kind < 12)
        clickControl(*top);
    else if (kind == 12)
        triggerAction(*top);
    else if (kind == 13 && below(10) == 0)
        rearrange();
    else
        click(target, inside);
}

/// The modal window, else another one than the main window that is in use.
QWidget* Monkey::visitedWindow() const {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    QWidget* active = QApplication::activeWindow();
    return active && active != m_window && active->isVisible() ? active : nullptr;
}

QWidget* Monkey::topWindow() const {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    QWidget* entered = visitedWindow();
    return entered ? entered : m_window.data();
}

void Monkey::fillBasket() {
    ListView& listed = m_window->workspace().lvFolder;
    if (listed.isEmpty() || m_window->workspace().lvPages.count() > mostBasketRows)
        return;
    listed.select(below(listed.count()));
    m_window->findChild<QAbstractButton*>(QStringLiteral("cmdAddToQueue"))->click();
}

/// Opens the next window, as by its shortcut.
void Monkey::visit() {
    const int turn = m_made % inputsBetweenVisits;
    if (turn == firstVisit - inputsToLoad && !visitedWindow())
        fillBasket();
    if (turn != firstVisit || visitedWindow())
        return;
    const QString name = QLatin1String(visited[std::size_t(m_visits++) % visited.size()]);
    QAction* action = actionOf(*m_window, name);
    if (action && action->isEnabled()) // not from here: a modal window would hold up this object's timer
        QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
}

void Monkey::end() {
    m_timer.stop();
    for (int i = 0; i < keysToLeave && QApplication::activeModalWidget(); ++i)
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    if (m_window)
        m_window->endAtOnce();
}

bool Monkey::isInside(const QString& folder) const {
    return folder == m_folder || folder.startsWith(m_folder + QLatin1Char('/'));
}

/// Back as soon as an input has left it, and from the folders below now and then.
void Monkey::stayInFolder() {
    if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
        if (!isInside(dialog->directory().absolutePath()))
            dialog->setDirectory(m_folder);
        return;
    }
    const QString folder = m_window->folderView().currentFolder();
    if (!folder.isEmpty() && (!isInside(folder) || m_made % inputsBetweenReturns == 0))
        m_window->openFile(m_folder);
}

/// Shows a picture, and some inputs later edits what is on show then.
void Monkey::edit() {
    ListView& listed = m_window->workspace().lvFolder;
    const int turn = m_made % inputsBetweenEdits;
    const bool isEditing = m_window->findChild<QWidget*>(QStringLiteral("eb"))->isVisible();
    m_editingInputs += isEditing;
    if (isEditing || QApplication::activeModalWidget())
        return;
    if (turn == 0 && !listed.isEmpty())
        m_window->preview().ShowRow(listed, below(listed.count()));
    else if (turn == inputsToLoad)
        m_window->findChild<QAbstractButton*>(QStringLiteral("CmdPreviewEdit"))->click();
}

/// Esc, then Return, as a user would try; a window that stays after that is a trap.
void Monkey::leave(QWidget& modal) {
    if (!modal.isModal())
        modal.close();
    else if (m_modalInputs > inputsOfAModal + keysToLeave)
        m_trap = nameOf(modal);
    else if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else
        QTest::keyClick(&modal, m_modalInputs % 4 == 3 ? Qt::Key_Return : Qt::Key_Escape);
}

void Monkey::click(QWidget& target, QPoint place) {
    const auto modifiers = std::array{Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                      Qt::ControlModifier}[std::size_t(below(5))];
    const int kind = below(8);
    if (kind == 0)
        QTest::mouseDClick(&target, Qt::LeftButton, modifiers, place);
    else
        QTest::mouseClick(&target, kind == 1 ? Qt::RightButton : Qt::LeftButton, modifiers, place);
}

/// Small controls, which random places seldom meet.
void Monkey::clickControl(QWidget& top) {
    QList<QAbstractButton*> buttons = top.findChildren<QAbstractButton*>();
    buttons.removeIf(
        [](const QAbstractButton* button) { return !button->isVisible() || !button->isEnabled(); });
    if (!buttons.isEmpty()) {
        QAbstractButton& button = *oneOf(buttons);
        click(button, button.rect().center());
    }
}

/// As by its shortcut or menu entry. Those of a file dialog delete and rename files and folders.
void Monkey::triggerAction(QWidget& top) {
    if (qobject_cast<QFileDialog*>(&top))
        return;
    QList<QAction*> actions = top.findChildren<QAction*>();
    actions.removeIf(
        [](const QAction* action) { return !action->isVisible() || !action->isEnabled() || action->menu(); });
    if (!actions.isEmpty())
        oneOf(actions)->trigger();
}

void Monkey::drag(QWidget& target, QPoint place) {
    const QPointer<QWidget> held = &target;
    QTest::mousePress(&target, Qt::LeftButton, Qt::NoModifier, place);
    for (int i = 0; held && i < 4; ++i)
        QTest::mouseMove(held, place += QPoint(below(160) - 80, below(160) - 80));
    if (held)
        QTest::mouseRelease(held, Qt::LeftButton, Qt::NoModifier, place);
}

void Monkey::scroll(QWidget& target, QPoint place) {
    const auto modifiers = below(3) == 0 ? Qt::ControlModifier : Qt::NoModifier;
    QWheelEvent wheel(place, target.mapToGlobal(place), {}, {0, below(2) == 0 ? 120 : -120}, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &wheel);
}

void Monkey::type(QWidget& top) {
    QWidget* focus = QApplication::focusWidget();
    QWidget& target = focus && top.isAncestorOf(focus) ? *focus : top;
    const int kind = below(10);
    if (kind == 0)
        QTest::keyClicks(&target, QString::number(below(100000)));
    else if (kind == 1)
        QTest::keyClick(&target, Qt::Key(Qt::Key_A + below(26)), Qt::ControlModifier);
    else if (kind == 2)
        QTest::keyClick(&target, Qt::Key(Qt::Key_A + below(26)), Qt::AltModifier);
    else if (const Qt::Key key = keys[std::size_t(below(int(keys.size())))];
             key != Qt::Key_Delete || !qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
        QTest::keyClick(&target, key, below(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
}

void Monkey::rearrange() {
    if (below(3) == 0)
        changeTheme();
    else
        m_window->resize(700 + below(1300), 500 + below(700));
}

void Monkey::changeTheme() {
    const bool dark = below(2) == 0;
    QPalette palette(dark ? QColor(45, 45, 48) : QColor(239, 239, 239));
    palette.setColor(QPalette::Base, dark ? QColor(30, 30, 30) : Qt::white);
    QApplication::setPalette(palette);
    QFont font = QApplication::font();
    font.setPointSize(8 + below(10));
    QApplication::setFont(font);
}

} // namespace tarsel::test
