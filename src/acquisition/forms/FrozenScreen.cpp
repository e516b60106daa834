// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/FrozenScreen.h"

#include "collections/forms/PictureImage.h"
#include "imaging/PictureParts.h"

#include <algorithm>
#include <utility>

namespace tarsel {

FrozenScreen::FrozenScreen(ScreenPicture screen) :
    m_screen(std::move(screen)), m_image(imageOf(m_screen.picture)), m_selection(m_image.rect()),
    m_pointer(m_screen.pointer.value_or(m_screen.monitors.front().area.center())), m_magnified(m_pointer) {}

QRect FrozenScreen::monitorOfPointer() const {
    const auto found = std::ranges::find_if(
        m_screen.monitors, [this](const Monitor& monitor) { return monitor.area.contains(m_pointer); });
    return found == m_screen.monitors.end() ? m_screen.monitors.front().area : found->area;
}

Picture FrozenScreen::chosen() const {
    const QRect area = m_selection.rect().isEmpty() ? monitorOfPointer() : m_selection.rect();
    return partOf(m_screen.picture, area.x(), area.y(), {area.width(), area.height()});
}

void FrozenScreen::press(QPoint pixel, int reach) {
    m_pointer = m_magnified = pixel;
    m_selection.press(pixel, reach);
    Q_EMIT changed();
}

void FrozenScreen::pointTo(QPoint pixel, bool square) {
    m_pointer = m_magnified = pixel;
    m_selection.drag(pixel, square);
    Q_EMIT changed();
}

void FrozenScreen::release() {
    m_selection.release();
    Q_EMIT changed();
}

void FrozenScreen::selectMonitor() {
    m_selection.select(monitorOfPointer());
    Q_EMIT changed();
}

void FrozenScreen::requireSelection() {
    if (m_selection.rect().isEmpty())
        m_selection.select(monitorOfPointer());
}

void FrozenScreen::move(QPoint by) {
    requireSelection();
    m_selection.move(by);
    m_magnified = m_selection.rect().topLeft();
    Q_EMIT changed();
}

void FrozenScreen::resize(QPoint by) {
    requireSelection();
    m_selection.resize(by);
    m_magnified = m_selection.rect().bottomRight();
    Q_EMIT changed();
}

void FrozenScreen::toggleMagnifier() {
    m_hasMagnifier = !m_hasMagnifier;
    Q_EMIT changed();
}

bool FrozenScreen::takeBack() {
    const bool isHeld = m_selection.isHeld();
    if (!isHeld && m_selection.rect().isEmpty())
        return false;
    m_selection.cancel();
    if (!isHeld)
        m_selection.select({});
    Q_EMIT changed();
    return true;
}

} // namespace tarsel
