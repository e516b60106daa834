// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/fCaptureRectangle.h"

#include "acquisition/forms/CapturePane.h"
#include "controls/BarButton.h"
#include "controls/LineIcon.h"

#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tarsel {

namespace {

constexpr int barMargin = 16; ///< logical pixels to the edge of the monitor

/// The monitor's pixels: origins of Qt's screens are not scaled, sizes are.
QRect pixelsOf(const QScreen& screen) {
    const double ratio = screen.devicePixelRatio();
    const QRect place = screen.geometry();
    return {place.topLeft(),
            QSize(int(std::lround(place.width() * ratio)), int(std::lround(place.height() * ratio)))};
}

QRect pixelsOfAll() {
    QRect all;
    for (const QScreen* screen : QGuiApplication::screens())
        all |= pixelsOf(*screen);
    return all;
}

/// The monitor that Qt's screen is, by its name, else by its place.
QRect areaOf(const QScreen& screen, const std::vector<Monitor>& monitors) {
    const auto named = std::ranges::find(monitors, screen.name(), &Monitor::name);
    if (named != monitors.end())
        return named->area;
    const QRect place = pixelsOf(screen).translated(-pixelsOfAll().topLeft());
    const auto overlap = [&](const Monitor& monitor) {
        const QRect common = monitor.area & place;
        return common.width() * common.height();
    };
    return std::ranges::max_element(monitors, {}, overlap)->area;
}

} // namespace

fCaptureRectangle::fCaptureRectangle() = default;
fCaptureRectangle::~fCaptureRectangle() = default;

void fCaptureRectangle::ShowPicture(ScreenPicture screen) {
    hide();
    m_frozen = std::make_unique<FrozenScreen>(std::move(screen));
    coverMonitors();
}

void fCaptureRectangle::coverMonitors() {
    for (QScreen* screen : QGuiApplication::screens()) {
        const QRect area = areaOf(*screen, m_frozen->screen().monitors);
        if (std::ranges::any_of(m_panes, [&](const auto& pane) { return pane->area() == area; }))
            continue; // a monitor that mirrors another
        m_panes.push_back(std::make_unique<CapturePane>(*m_frozen, area, screen));
        CapturePane& pane = *m_panes.back();
        connect(&pane, &CapturePane::accepted, this, &fCaptureRectangle::take);
        connect(&pane, &CapturePane::left, this, &fCaptureRectangle::left);
        if (m_panes.size() == 1)
            addBar(pane);
        pane.cover();
    }
    m_panes.front()->activateWindow();
    m_panes.front()->setFocus();
}

void fCaptureRectangle::addBar(CapturePane& pane) {
    m_bar = new QFrame(&pane);
    m_bar->setObjectName(QStringLiteral("Toolbar1"));
    m_bar->setFrameShape(QFrame::StyledPanel);
    m_bar->setAutoFillBackground(true);
    m_bar->setCursor(Qt::ArrowCursor);
    auto* buttons = new QHBoxLayout(m_bar);
    const struct {
        QString text, toolTip;
        const char* icon;
        QKeySequence keys;
        std::function<void()> run;
    } commands[] = {
        {tr("&Take"),
         tr("Take the rectangle, or the monitor without one (Return)"),
         "confirm",
         {},
         [this] { take(); }},
        {tr("&Magnifier"), tr("Show or hide the magnifier"), "zoom", Qt::Key_M,
         [this] { m_frozen->toggleMagnifier(); }},
        {tr("Mo&ve bar"), tr("Move this bar to the other edge"), "moveDown", Qt::Key_V,
         [this] { moveBar(); }},
        {tr("&Cancel"), tr("Leave without a picture (Esc)"), "remove", {}, [this] { Q_EMIT left(); }},
    };
    int index = 0;
    for (const auto& command : commands) {
        auto* button = new BarButton(m_bar);
        button->setObjectName(QStringLiteral("cmdBar_%1").arg(index++));
        button->setText(command.text);
        button->setToolTip(command.toolTip);
        button->setIcon(lineIcon(QLatin1String(command.icon)));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setShortcut(command.keys);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, command.run);
        buttons->addWidget(button);
    }
    m_barIsBelow = true;
    moveBar();
}

void fCaptureRectangle::moveBar() {
    m_barIsBelow = !m_barIsBelow;
    m_bar->adjustSize();
    const QSize room = m_bar->parentWidget()->size();
    m_bar->move((room.width() - m_bar->width()) / 2,
                m_barIsBelow ? room.height() - m_bar->height() - barMargin : barMargin);
}

void fCaptureRectangle::take() {
    Q_EMIT taken(m_frozen->chosen());
}

/// Not deleted at once: one of them may be handling the event that ended it.
void fCaptureRectangle::hide() {
    for (auto& pane : m_panes) {
        pane->disconnect(this);
        m_frozen->disconnect(pane.get());
        pane->hide();
        pane.release()->deleteLater();
    }
    m_panes.clear();
    m_bar = nullptr;
    if (m_frozen)
        m_frozen.release()->deleteLater();
}

} // namespace tarsel
