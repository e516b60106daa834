// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FolderPane.h"

#include "app/PaneParts.h"
#include "controls/LineIcon.h"
#include "controls/ListControl.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace tarsel {

FolderPane::FolderPane(ListView& lvFolder, QWidget* parent) :
    QWidget(parent), m_list(new ListControl(lvFolder, this)) {
    m_list->setObjectName(QStringLiteral("lvFolder"));
    m_list->setAccessibleName(QStringLiteral("Pictures of the folder"));
    m_list->setRowsDraggable();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(makeBar());
    rows->addWidget(m_list, 1);
    connect(m_list, &ListControl::rowDoubleClicked, this, &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::enterPressed, this, &FolderPane::cmdAddToQueue);
    makeMenu();
}

QLayout* FolderPane::makeBar() {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    bar->addWidget(makePaneCaption(QStringLiteral("Folder"), this));
    bar->addStretch(1);
    const auto add = [&](const char* name, const char* icon, const char* caption, const char* toolTip,
                         void (FolderPane::*told)()) {
        auto* button = makePaneButton(name, icon, QLatin1String(caption), QLatin1String(toolTip), this);
        connect(button, &QToolButton::clicked, this, told);
        bar->addWidget(button);
        return button;
    };
    add("cmdAddToQueue", "add", "Add to basket", "Add the selected files to the basket",
        &FolderPane::cmdAddToQueue);
    add("cmdThumbnailFolder", "thumbnails", "", "Show thumbnails", &FolderPane::cmdThumbnailFolder);
    add("cmdDetailFolder", "details", "", "Show details", &FolderPane::cmdDetailFolder);
    add("cmdRefreshFolder", "refresh", "", "List the folder anew (F5)", &FolderPane::cmdRefreshFolder)
        ->setShortcut(QKeySequence(Qt::Key_F5));
    return bar;
}

void FolderPane::makeMenu() {
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("mnuContextFolderParent"));
    menu->addAction(lineIcon(QStringLiteral("add")), QStringLiteral("Add to basket"), this,
                    &FolderPane::cmdAddToQueue);
    connect(m_list, &ListControl::menuWanted, menu,
            [menu](const QPoint& position) { menu->popup(position); });
}

} // namespace tarsel
