// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PictureSelector.h"

#include "app/TaskPane.h"
#include "collections/forms/ImageBoxView.h"
#include "tasks/DisplayScale.h"
#include "tasks/TaskWorkflow.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace tarsel {

using Tool = SelectionOverlay::Tool;

namespace {

Tool toolOf(PictureSelection selection) {
    switch (selection) {
    case PictureSelection::Region:
        return Tool::Rectangle;
    case PictureSelection::Eye:
        return Tool::Ellipse;
    case PictureSelection::Location:
        return Tool::Location;
    case PictureSelection::BackColor:
        return Tool::ColorPick;
    }
    return Tool::None;
}

} // namespace

PictureSelector::PictureSelector(TaskPane& pane, ImageBoxView& view, ImageBox& box, TaskWorkflow& workflow,
                                 QObject* parent) :
    QObject(parent),
    m_pane(pane), m_view(view), m_overlay(view.selection()), m_box(box), m_workflow(workflow) {
    connect(&pane, &TaskPane::selectionWanted, this, &PictureSelector::take);
    connect(&pane, &TaskPane::pageOpened, this, &PictureSelector::pageOpened);
    connect(&pane, &TaskPane::previewBegun, this, &PictureSelector::drop);
    connect(&workflow, &TaskWorkflow::stateChanged, this, [this] {
        if (!m_workflow.isOpen())
            drop();
    });
    connect(&workflow, &TaskWorkflow::listShown, this, &PictureSelector::forget);
    connectOverlay();
}

void PictureSelector::connectOverlay() {
    connect(&m_overlay, &SelectionOverlay::regionChanged, this,
            [this](QPoint start, QPoint end) { m_pane.page()->showRegion(start, end); });
    connect(&m_overlay, &SelectionOverlay::regionSelected, &m_workflow, &TaskWorkflow::optionsChanged);
    connect(&m_overlay, &SelectionOverlay::locationSelected, this,
            [this](QPoint place) { m_pane.page()->setLocation(place); });
    connect(&m_overlay, &SelectionOverlay::colorHovered, this,
            [this](QPoint place) { m_pane.page()->hoverBackColor(colorAt(place)); });
    connect(&m_overlay, &SelectionOverlay::colorSelected, this, [this](QPoint place) {
        m_box.BackColor = colorAt(place);
        m_pane.page()->setBackColor(m_box.BackColor);
    });
    connect(&m_overlay, &SelectionOverlay::ended, this, [this] { raiseButtons(); });
    connect(&m_overlay, &SelectionOverlay::cancelled, this, &PictureSelector::cancel);
}

/// Rounding may leave the picture at its last pixels.
Color PictureSelector::colorAt(QPoint display) const {
    if (!m_box.HasImage())
        return m_box.BackColor;
    const int x = roundToInt(horizontalScale(m_box) * display.x());
    const int y = roundToInt(verticalScale(m_box) * display.y());
    return m_box.PixelColor(std::clamp(x, 0, m_box.Width() - 1), std::clamp(y, 0, m_box.Height() - 1));
}

void PictureSelector::take(PictureSelection selection, bool wanted) {
    if (wanted)
        begin(selection);
    else if (!m_raises)
        cancel();
}

void PictureSelector::begin(PictureSelection selection) {
    const bool isRegion = selection == PictureSelection::Region || selection == PictureSelection::Eye;
    endHover();
    m_asking = m_pane.page();
    m_isEye = selection == PictureSelection::Eye;
    raiseButtons(selection);
    if (isRegion) {
        m_asking->showRegion({}, {});
        m_workflow.regionWanted();
    }
    m_overlay.arm(toolOf(selection));
    m_view.setFocus();
}

/// The user wants no selection.
void PictureSelector::cancel() {
    forget();
    m_workflow.regionLeft();
}

/// The page has no region any more either.
void PictureSelector::forget() {
    if (m_pane.page())
        m_pane.page()->showRegion({}, {});
    drop();
}

/// Nothing is selected on the picture any more, and nothing is to be.
void PictureSelector::drop() {
    endHover();
    m_overlay.clear();
    raiseButtons();
    m_asking = nullptr;
    m_isEye = false;
}

/// Asking for an eye opens its page again.
void PictureSelector::pageOpened() {
    if (!m_isEye || m_pane.page() != m_asking)
        drop();
}

void PictureSelector::raiseButtons(std::optional<PictureSelection> but) {
    if (!m_asking)
        return;
    const QScopedValueRollback raising(m_raises, true);
    for (const PictureSelection selection : {PictureSelection::Region, PictureSelection::Location,
                                             PictureSelection::BackColor, PictureSelection::Eye})
        if (selection != but)
            m_asking->endSelection(selection);
}

void PictureSelector::endHover() {
    if (m_asking)
        m_asking->hoverBackColor({});
}

} // namespace tarsel
