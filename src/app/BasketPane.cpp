// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BasketPane.h"

#include "app/PaneParts.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

BasketPane::BasketPane(ListView& lvPages, QWidget* parent) :
    QWidget(parent), m_list(new ListControl(lvPages, this)) {
    m_list->setObjectName(QStringLiteral("lvPages"));
    m_list->setAccessibleName(QStringLiteral("Pictures and pages in the basket"));
    m_list->setRowsDraggable();
    m_list->setHint(QStringLiteral("Select pictures above and press \"Add to basket\", or drag them here."));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(makeBar());
    rows->addWidget(m_list, 1);
    connect(m_list, &ListControl::rowDoubleClicked, this, &BasketPane::addDescription);
    connect(m_list, &ListControl::deleteReleased, this, &BasketPane::cmdPagesDelete);
    makeMenu();
}

void BasketPane::setRunning(bool running) {
    for (QWidget* button : m_buttons)
        button->setEnabled(!running);
    m_list->setEnabled(!running);
}

QLayout* BasketPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(QStringLiteral("Image basket"), this));
    bar->addStretch(1);
    const auto add = [&](const char* name, const char* icon, const char* toolTip,
                         void (BasketPane::*told)()) {
        auto* button = makePaneButton(name, icon, {}, QLatin1String(toolTip), this);
        connect(button, &QToolButton::clicked, this, told);
        bar->addWidget(button);
        m_buttons << button;
    };
    add("cmdPagesNew", "new", "New basket", &BasketPane::cmdPagesNew);
    add("cmdPagesOpen", "open", "Open basket", &BasketPane::cmdPagesOpen);
    add("cmdPagesSave", "save", "Save basket", &BasketPane::cmdPagesSave);
    add("cmdPagesDelete", "remove", "Remove from basket", &BasketPane::cmdPagesDelete);
    addSaveAs(bar);
    return bar;
}

void BasketPane::addSaveAs(QHBoxLayout* bar) {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuSaveAsParent"));
    menu->addAction(lineIcon(QStringLiteral("saveAs")), QStringLiteral("JPEG files (batch mode)"), this,
                    &BasketPane::saveAsJpegFiles);
    auto* cmdSaveAs = makePaneButton("cmdSaveAs", "saveAs", QStringLiteral("Save as"),
                                     QStringLiteral("Save the pictures of the basket"), this);
    cmdSaveAs->setMenu(menu);
    cmdSaveAs->setPopupMode(QToolButton::InstantPopup);
    bar->addWidget(cmdSaveAs);
    m_buttons << cmdSaveAs;
}

void BasketPane::makeMenu() {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuContext"));
    menu->addAction(QStringLiteral("Add description"), this, &BasketPane::addDescription);
    menu->addAction(QStringLiteral("Rename title"), this, &BasketPane::renameTitle);
    menu->addAction(lineIcon(QStringLiteral("remove")), QStringLiteral("Remove from basket"), this,
                    &BasketPane::cmdPagesDelete);
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
}

} // namespace tarsel
