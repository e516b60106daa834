// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/MetadataPane.h"

#include "controls/ActionTable.h"
#include "controls/FocusTabBar.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"
#include "metadata/modMetadata.h"

#include <QHBoxLayout>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tarsel {

namespace {

constexpr QSize iconSize(16, 16);
constexpr const char* exifButtons[] = {"cmdEXIFBar_0", "cmdEXIFBar_1", "cmdEXIFBar_2",
                                       "cmdEXIFBar_3", "cmdEXIFBar_4", "cmdEXIFBar_5"};
constexpr const char* iptcButtons[] = {"cmdIPTCBar_0", "cmdIPTCBar_1", "cmdIPTCBar_2", "cmdIPTCBar_3",
                                       "cmdIPTCBar_4"};

} // namespace

MetadataPane::MetadataPane(ListView& lvExif, ListView& lvIPTC, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_actions(actions), m_exif(addList(lvExif, "lvExif", tr("EXIF attributes"))),
    m_iptc(addList(lvIPTC, "lvIPTC", tr("IPTC attributes"))), m_tabs(new FocusTabBar(this)),
    m_pages(new QStackedWidget(this)) {
    setObjectName(QStringLiteral("PicMetadata"));
    lvIPTC.setShownText(&modMetadata::IptcLabelInWords);
    m_tabs->setObjectName(QStringLiteral("tbsMetadata"));
    m_tabs->setDocumentMode(true);
    m_tabs->setExpanding(false);
    m_tabs->addTab(tr("EXIF"));
    m_tabs->addTab(tr("IPTC"));
    m_pages->addWidget(makePage(exifButtons, "picEXIFBar", m_exif, &MetadataPane::cmdEXIFBar));
    m_pages->addWidget(makePage(iptcButtons, "picIPTCBar", m_iptc, &MetadataPane::cmdIPTCBar));
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int tab) {
        m_pages->setCurrentIndex(tab);
        Q_EMIT tabShown(tab);
    });
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addWidget(m_tabs);
    rows->addWidget(m_pages, 1);
    offerCommands();
}

void MetadataPane::showTab(int tab) {
    m_tabs->setCurrentIndex(tab);
}

void MetadataPane::focusList(int tab) {
    showTab(tab);
    ListControl* control = tab == 0 ? m_exif : m_iptc;
    ListView& list = control->list();
    if (list.selectedIndex() < 0 && !list.isEmpty())
        list.selectOnly(0);
    control->setFocus(Qt::ShortcutFocusReason);
}

int MetadataPane::tab() const {
    return m_tabs->currentIndex();
}

void MetadataPane::setBusy(bool isBusy) {
    QWidget* const focused = window()->focusWidget();
    m_isBusy = isBusy;
    offerCommands();
    if (isBusy)
        m_focus = {focused, window()->focusWidget()};
    else if (m_focus.before && focused == m_focus.meanwhile)
        m_focus.before->setFocus();
}

void MetadataPane::offerCommands() {
    const bool offered = !isHidden() && !m_isBusy;
    using Buttons = std::span<const char* const>;
    for (const Buttons buttons : {Buttons(exifButtons), Buttons(iptcButtons)})
        for (const char* name : buttons)
            m_actions.action(name).setEnabled(offered);
}

/// From the other tab a key shows its list, and what works on the selected row waits until that is seen.
void MetadataPane::run(int tab, int index, Clicked clicked) {
    constexpr int editing = 0, removing[] = {2, 3}; // by tab
    const bool isSeen = this->tab() == tab;
    if (!isSeen)
        focusList(tab);
    if (isSeen || (index != editing && index != removing[tab]))
        (this->*clicked)(index);
}

void MetadataPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    offerCommands();
}

void MetadataPane::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    offerCommands();
}

/// A double click on a row, or Return, does what the first button does.
QWidget* MetadataPane::makePage(std::span<const char* const> buttons, const char* barName, ListControl* list,
                                Clicked clicked) {
    auto* page = new QWidget(this);
    auto* bar = new QWidget(page);
    bar->setObjectName(QLatin1String(barName));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    const int tab = list == m_exif ? 0 : 1;
    int index = 0;
    for (const char* name : buttons) {
        row->addWidget(m_actions.makeButton(name, bar));
        addAction(&m_actions.action(name)); // for its key while the other tab is on show
        connect(&m_actions.action(name), &QAction::triggered, this,
                [this, clicked, tab, index] { run(tab, index, clicked); });
        ++index;
    }
    row->addStretch(1);
    for (auto opened : {&ListControl::rowDoubleClicked, &ListControl::enterPressed})
        connect(list, opened, this, [this, clicked] { (this->*clicked)(0); });
    auto* rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addWidget(bar);
    rows->addWidget(list, 1);
    return page;
}

ListControl* MetadataPane::addList(ListView& list, const char* name, const QString& meaning) {
    if (m_icons.count() == 0)
        m_icons.add(lineIcon(QStringLiteral("edit")));
    list.attachImages(&m_icons);
    auto* control = new ListControl(list, this);
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(meaning);
    control->setFullRowSelect(true);
    control->setTableIconSize(iconSize);
    control->setWideColumn(1, true);
    return control;
}

} // namespace tarsel
