// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TaskPane.h"

#include "controls/ActionTable.h"
#include "controls/ColorWell.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"
#include "controls/PaneCaption.h"
#include "controls/isExplorerBar.h"
#include "help/forms/HelpDesk.h"
#include "tasks/TaskWorkflow.h"

#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

const QString optionsGroup = QStringLiteral("Dialog");
const QString confirmedGroup = QStringLiteral("Editing");

/// The order of the tasks in the panel, by their keys.
constexpr const char* shownTasks[] = {"Resize",   "Canvas",  "Crop",  "Rotate",     "Flip", "Invert",
                                      "Contrast", "Sharpen", "Blur",  "Brightness", "Text", "Watermark",
                                      "Mask",     "Shadow",  "Frame", "RedEye"};

/// Below the groups, in their order.
constexpr const char* buttonsInOrder[] = {"cmdBefore", "cmdCompare", "cmdApply",
                                          "cmdOK",     "cmdReset",   "cmdOriginalImage"};

const TaskKind& kindOfKey(QLatin1String key) {
    for (const TaskKind& kind : taskKinds())
        if (key == QLatin1String(kind.panelKey))
            return kind;
    qFatal("No task has the key %s", key.data());
}

} // namespace

TaskPane::TaskPane(TaskList& tasks, TaskDefaults& defaults, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_defaults(defaults), m_actions(actions), m_bar(new isExplorerBar(this)),
    m_confirmed(new ListControl(tasks.lvEditPreview, this)), m_title(makePaneCaption({}, this)),
    m_live(new QCheckBox(tr("Live &preview"), this)), m_options(new QWidget(this)) {
    setObjectName(QStringLiteral("picTask"));
    m_bar->setObjectName(QStringLiteral("eb"));
    setFocusProxy(m_bar);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_bar, 1);
    QWidget* buttons = makeButtons();
    rows->addWidget(buttons);
    m_bar->DisableUpdates(true);
    addTasks();
    m_bar->AddGroup(optionsGroup, tr(" Task Options"));
    layOutOptions();
    m_bar->SetGroupChild(optionsGroup, m_options, true);
    m_bar->AddGroup(confirmedGroup, tr("Task Basket"));
    m_bar->SetGroupChild(confirmedGroup, makeConfirmed(), true);
    m_bar->DisableUpdates(false);
    connect(m_bar, &isExplorerBar::itemClicked, this, &TaskPane::taskChosen);
    const int share = std::min(m_bar->sizeHint().width(), screen()->availableGeometry().width() * 3 / 10);
    setFixedWidth(std::max(share, buttons->minimumSizeHint().width())); // their texts can't be shortened
    hide();
}

void TaskPane::addTasks() {
    std::vector<isExplorerBar::NamedIcon> icons;
    for (const TaskKind& kind : taskKinds())
        icons.push_back(
            {QString::fromLatin1(kind.panelKey), lineIcon(QString::fromLatin1(kind.panelKey).toLower())});
    m_bar->SetImageList(icons);
    m_bar->AddGroup(TaskWorkflow::tasksGroup, tr("Tasks Chart"));
    for (const char* shown : shownTasks) {
        const QString key = QString::fromLatin1(shown);
        const QString caption =
            QCoreApplication::translate("TaskKinds", kindOfKey(QLatin1String(shown)).panelCaption);
        m_bar->AddItem(TaskWorkflow::tasksGroup, key, caption, key);
    }
}

void TaskPane::layOutOptions() {
    auto* rows = new QVBoxLayout(m_options);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_title);
}

QWidget* TaskPane::makeConfirmed() {
    auto* confirmed = new QWidget(this);
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    for (const char* name : {"cmdEditBar_0", "cmdEditBar_1", "cmdEditBar_2", "cmdEditBar_3"}) {
        QToolButton* button = m_actions.makeButton(name, confirmed);
        button->setObjectName(button->objectName() + QStringLiteral("_Preview"));
        bar->addWidget(button);
        addAction(&m_actions.action(name));
    }
    bar->addStretch(1);
    m_confirmed->setObjectName(QStringLiteral("lvEditPreview"));
    m_confirmed->setAccessibleName(tr("Confirmed tasks"));
    m_confirmed->setFullRowSelect(true);
    m_confirmed->setSortable(false); // the order is that of the tasks
    m_confirmed->setSingleSelection();
    m_confirmed->setHint(tr("Confirmed tasks are listed here."));
    m_confirmed->setFixedHeight(fontMetrics().height() * 10);
    layOutPane(confirmed, bar, m_confirmed);
    return confirmed;
}

QWidget* TaskPane::makeButtons() {
    auto* buttons = new QWidget(this);
    auto* grid = new QGridLayout(buttons);
    grid->setContentsMargins(8, 0, 8, 0);
    m_live->setObjectName(QStringLiteral("chkLivePreview"));
    m_live->setToolTip(tr("Show what the task does while its options change"));
    connect(m_live, &QCheckBox::toggled, this, [this](bool live) {
        for (const auto& [kind, page] : m_pages)
            page->setLive(live);
        Q_EMIT liveToggled(live);
    });
    auto* compare = new QHBoxLayout;
    compare->addWidget(m_live, 1);
    for (const char* name : {"cmdBefore", "cmdCompare"})
        compare->addWidget(m_actions.makeButton(name, buttons));
    grid->addLayout(compare, 0, 0, 1, 2);
    for (int place = 2; const char* name : {"cmdApply", "cmdOK", "cmdReset", "cmdOriginalImage"}) {
        grid->addWidget(makeButton(name), place / 2, place % 2);
        ++place;
    }
    button("cmdOK").installEventFilter(this);
    m_actions.action("cmdOK").setAutoRepeat(false);
    return buttons;
}

/// The second click of a double click on Confirm would be Finish.
bool TaskPane::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::MouseButtonDblClick || QWidget::eventFilter(watched, event);
}

/// A push button that follows its action.
QPushButton* TaskPane::makeButton(const char* name) {
    auto* button = new QPushButton(this);
    QAction& action = m_actions.action(name);
    button->setObjectName(QLatin1String(name));
    button->setIcon(action.icon());
    const auto follow = [button, &action] {
        button->setText(action.text());
        button->setToolTip(action.toolTip());
        button->setEnabled(action.isEnabled());
    };
    follow();
    connect(&action, &QAction::changed, button, follow);
    connect(button, &QPushButton::clicked, &action, &QAction::trigger);
    addAction(&action);
    return button;
}

QPushButton& TaskPane::button(const char* name) const {
    return *findChild<QPushButton*>(QLatin1String(name));
}

/// The buttons come after the groups.
void TaskPane::orderTabs() {
    QWidget* last = m_bar->orderTabs();
    setTabOrder(last, m_live);
    last = m_live;
    for (const char* name : buttonsInOrder) {
        auto* button = findChild<QAbstractButton*>(QLatin1String(name));
        setTabOrder(last, button);
        last = button;
    }
}

void TaskPane::showState(const TaskPanelState& state) {
    m_title->setText(state.title);
    const auto* kind = taskKind(state.kind);
    m_bar->setChosenItem(TaskWorkflow::tasksGroup, kind ? QString::fromLatin1(kind->panelKey) : QString());
    m_actions.action("cmdOK").setText(state.okButton);
    const std::pair<const char*, bool> buttons[] = {
        {"cmdReset", state.cmdReset}, {"cmdApply", state.cmdApply},
        {"cmdOK", state.cmdOK},       {"cmdOriginalImage", state.cmdOriginalImage},
        {"cmdBefore", state.isOpen},  {"cmdCompare", state.isOpen}};
    const QWidget* focused = QApplication::focusWidget();
    for (const auto& [name, enabled] : buttons)
        m_actions.action(name).setEnabled(enabled);
    moveFocus(focused, state);
}

/// To Reset after a preview, and from a button that was switched off: Qt would go to the next one, which may
/// remove all tasks.
void TaskPane::moveFocus(const QWidget* focused, const TaskPanelState& state) {
    if (std::exchange(m_previewBegun, false) && state.cmdReset)
        button("cmdReset").setFocus();
    else if (focused && isAncestorOf(focused) && !focused->isEnabled() && state.isOpen) {
        if (state.cmdApply && focused == &button("cmdReset"))
            button("cmdApply").setFocus();
        else
            m_bar->setFocus();
    }
}

void TaskPane::setLive(bool live) {
    m_live->setChecked(live);
}

bool TaskPane::isLive() const {
    return m_live->isChecked();
}

// --- options

TaskOptionPage* TaskPane::pageOf(int kind) {
    TaskOptionPage*& page = m_pages[kind];
    if (!page) {
        page = makeTaskOptionPage(kind, m_defaults, m_options);
        m_options->layout()->addWidget(page);
        page->setLive(isLive());
        connect(page, &TaskOptionPage::changed, this, &TaskPane::optionsChanged);
        connect(page, &TaskOptionPage::selectionWanted, this, &TaskPane::selectionWanted);
        orderTabs();
    }
    return page;
}

void TaskPane::setBaseSize(int width, int height) {
    m_base = {width, height};
}

ColorWell* TaskPane::backColorWell() const {
    return m_page ? m_page->findChild<ColorWell*>(QStringLiteral("picCropBackColor")) : nullptr;
}

/// The pages share the back colour. Only a crop opens with it, since the others have defaults of their own.
void TaskPane::changePage(int kind) {
    if (const ColorWell* last = backColorWell())
        m_backColor = last->value();
    TaskOptionPage* const page = pageOf(kind);
    if (m_page && m_page != page) // or it would lose the focus
        m_page->hide();
    m_page = page;
    const QSignalBlocker silent(m_page);
    if (ColorWell* well = backColorWell(); well && m_backColor.isValid())
        well->setValue(m_backColor);
}

void TaskPane::open(int kind, const ImageBox& box) {
    if (kind == 0 && m_kind != 0 && isAncestorOf(QApplication::focusWidget()))
        m_bar->setFocus(); // the next task is chosen there
    changePage(kind);
    const TaskKind* task = taskKind(kind);
    setProperty(helpTopicProperty, task ? QString::fromLatin1(task->panelKey) : QString());
    if (kind != 0 && !m_bar->isOpen(optionsGroup))
        m_bar->ExpandGroup(optionsGroup, true);
    setPicture(box);
    m_page->showRow(defaultRow(kind, m_defaults));
    m_page->show();
    if (std::exchange(m_kind, kind) != kind && kind)
        QTimer::singleShot(0, this, &TaskPane::scrollToOptions); // once they have their place
    Q_EMIT pageOpened();
}

/// On a low screen the tasks alone fill the bar. The beginning comes before the end where not all has room.
void TaskPane::scrollToOptions() {
    constexpr int margin = 4;
    const QWidget* group = m_options;
    while (group->parentWidget() && group->parentWidget() != m_bar->widget())
        group = group->parentWidget();
    for (const int y : {group->geometry().bottom(), group->y()})
        m_bar->ensureVisible(0, y, 0, margin);
}

void TaskPane::setPicture(const ImageBox& box) {
    m_page->setPicture({box.Width(), box.Height()}, m_base);
}

void TaskPane::previewed(const TaskRow& row) {
    m_page->keepLocation(row);
    m_previewBegun = true;
    Q_EMIT previewBegun();
}

TaskRow TaskPane::row() const {
    return m_page->row();
}

std::function<void()> TaskPane::shownDefaults() {
    return [this, shown = m_page->shownDefaults()] { m_defaults = shown; };
}

} // namespace tarsel
