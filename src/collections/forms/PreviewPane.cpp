// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/PreviewPane.h"

#include "collections/forms/ImageBoxView.h"
#include "controls/ActionTable.h"
#include "controls/PaneCaption.h"
#include "controls/ShortenedButtons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <algorithm>

namespace tarsel {

const PreviewPane::Choice PreviewPane::typeChoice = {
    "cmdPreviewType", "mnuPreviewType", {"mnuPreviewOriginal", "mnuPreviewOptimized"}, " "};
const PreviewPane::Choice PreviewPane::fitChoice = {
    "cmdPreviewView", "mnuPreviewFit", {"mnuPreviewBestFit", "mnuPreviewActualSize"}, "  "};

PreviewPane::PreviewPane(ImageBox& ibMain, const ActionTable& actions, QWidget* parent) :
    QWidget(parent), m_box(ibMain), m_actions(actions), m_view(new ImageBoxView(ibMain, this)),
    m_bar(new QHBoxLayout), m_shortened(new ShortenedButtons(*m_bar, *this)) {
    setObjectName(QStringLiteral("picView"));
    m_view->setObjectName(QStringLiteral("PicViewImage"));
    layOutPane(this, m_bar, m_view);
    fillBar();
    connectActions();
    connectView();
    setPreviewType(0);
    setPreviewFit(0);
    pictureChanged({});
}

void PreviewPane::pictureChanged(const PreviewPicture& shown) {
    m_actions.setEnabled({"CmdPreviewEdit", "mnuPreviewEdit"}, m_box.HasImage());
    enableSaving();
    m_view->pictureChanged(shown);
}

void PreviewPane::offerSaving(bool offered) {
    m_offersSaving = offered;
    enableSaving();
}

void PreviewPane::enableSaving() {
    m_actions.setEnabled(
        {"mnuPreviewSaveImage", "mnuPreviewSaveInteractive", "mnuPreviewSaveGreeting", "cmdPreviewPrint"},
        m_box.HasImage() && m_offersSaving);
}

// --- the choices

int PreviewPane::checkedItem(const Choice& choice) const {
    return m_actions.action(choice.items[1]).isChecked() ? 1 : 0;
}

void PreviewPane::check(const Choice& choice, int item) {
    QAction& chosen = m_actions.action(choice.items[item]);
    chosen.setChecked(true);
    QAction& button = m_actions.action(choice.button);
    button.setIconText(withMnemonic(button, chosen.text()) + QLatin1String(choice.blanks));
    button.setIcon(chosen.icon());
    const QString meaning = button.data().toString();
    button.setToolTip(tr("%1: %2").arg(chosen.text().remove(QLatin1Char('&')), meaning));
    m_shortened->update();
}

/// A button's key stays the same with each of its captions.
QString PreviewPane::withMnemonic(const QAction& button, QString caption) const {
    const QLatin1Char mark('&');
    const QString marked = button.text();
    caption.remove(mark);
    if (!m_offersMnemonics)
        return caption;
    const qsizetype place = caption.indexOf(marked.at(marked.indexOf(mark) + 1), 0, Qt::CaseInsensitive);
    return caption.insert(std::max<qsizetype>(place, 0), mark);
}

void PreviewPane::offerMnemonics(bool offered) {
    m_offersMnemonics = offered;
    check(typeChoice, m_shownType);
    check(fitChoice, m_shownFit);
    QAction& save = m_actions.action("cmdPreviewSave");
    save.setIconText(withMnemonic(save, save.text()));
}

void PreviewPane::setPreviewType(int type) {
    m_shownType = type == 0 ? 0 : 1;
    check(typeChoice, m_shownType);
}

void PreviewPane::setPreviewFit(int fit) {
    m_shownFit = fit == 0 ? 0 : 1;
    check(fitChoice, m_shownFit);
    m_view->subFixedSizeTiff(m_shownFit == 0);
}

/// Picking the item that is checked already does nothing, here and below.
void PreviewPane::chooseType() {
    if (checkedItem(typeChoice) == m_shownType)
        return;
    setPreviewType(checkedItem(typeChoice));
    Q_EMIT previewTypeChosen(m_shownType);
}

void PreviewPane::chooseFit() {
    if (checkedItem(fitChoice) == m_shownFit)
        return;
    setPreviewFit(checkedItem(fitChoice));
    Q_EMIT previewFitChosen();
}

// --- the parts

void PreviewPane::addMenuButton(const char* name, const char* menu,
                                std::initializer_list<const char*> items) {
    addTextButton(m_actions.makeMenuButton(name, menu, items, this));
}

void PreviewPane::addTextButton(QToolButton* button) {
    m_bar->addWidget(button);
    m_shortened->add(button);
}

/// The texts of the choices give way last.
void PreviewPane::fillBar() {
    m_bar->setSpacing(2);
    m_bar->addWidget(makePaneCaption(tr("Preview"), this));
    m_bar->addStretch(1);
    for (const Choice& choice : {fitChoice, typeChoice})
        addMenuButton(choice.button, choice.menu, {choice.items[0], choice.items[1]});
    addTextButton(m_actions.makeButton("CmdPreviewEdit", this, Qt::ToolButtonTextBesideIcon));
    addMenuButton("cmdPreviewSave", "mnuSavePreviewAsParent",
                  {"mnuPreviewSaveImage", "mnuPreviewSaveInteractive", "mnuPreviewSaveGreeting"});
    for (const char* name : {"cmdPreviewPrint", "cmdPreviewPrevious", "cmdPreviewNext"})
        m_bar->addWidget(m_actions.makeButton(name, this));
}

void PreviewPane::connectChoice(const Choice& choice, void (PreviewPane::*choose)()) {
    QAction& button = m_actions.action(choice.button);
    button.setData(button.toolTip()); // to which each choice adds its name
    for (const char* name : choice.items) {
        m_actions.action(name).setIconVisibleInMenu(false); // its place is for the mark of the checked item
        connect(&m_actions.action(name), &QAction::triggered, this, choose);
    }
}

void PreviewPane::connectActions() {
    connectChoice(typeChoice, &PreviewPane::chooseType);
    connectChoice(fitChoice, &PreviewPane::chooseFit);
    connect(&m_actions.action("cmdPreviewPrevious"), &QAction::triggered, this,
            &PreviewPane::cmdPreviewPrevious);
    connect(&m_actions.action("cmdPreviewNext"), &QAction::triggered, this, &PreviewPane::cmdPreviewNext);
    connect(&m_actions.action("mnuPreviewSaveImage"), &QAction::triggered, this,
            &PreviewPane::saveImageDocument);
    connect(&m_actions.action("mnuPreviewSaveInteractive"), &QAction::triggered, this,
            &PreviewPane::saveInteractively);
    connect(&m_actions.action("mnuPreviewSaveGreeting"), &QAction::triggered, this,
            &PreviewPane::saveGreeting);
}

void PreviewPane::connectView() {
    connect(m_view, &ImageBoxView::zoomModeWanted, this,
            [this](bool bestFit) { m_actions.action(fitChoice.items[bestFit ? 0 : 1]).trigger(); });
    connect(m_view, &ImageBoxView::neighbourWanted, this, [this](int step) {
        m_actions.action(step < 0 ? "cmdPreviewPrevious" : "cmdPreviewNext").trigger();
        m_view->setFocus();
    });
    QMenu* menu = m_actions.makeMenu("mnuPreview",
                                     {"mnuPreviewEdit", "cmdBefore", "cmdCompare", "cmdPreviewPrevious",
                                      "cmdPreviewNext", "cmdPreviewPrint"},
                                     this);
    menu->insertSeparator(&m_actions.action("cmdPreviewPrevious"));
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_view, &QWidget::customContextMenuRequested, menu,
            [this, menu](const QPoint& place) { menu->popup(m_view->mapToGlobal(place)); });
}

} // namespace tarsel
