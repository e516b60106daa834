// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/fCaptureRectangle.h"

#include "acquisition/forms/CapturePane.h"
#include "controls/BarButton.h"
#include "controls/LineIcon.h"

#include <QCursor>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
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

bool isAlmost(const QRect& one, const QRect& other) {
    constexpr int rounding = 2; // of sizes in units of Qt
    return (one.topLeft() - other.topLeft()).manhattanLength() <= rounding &&
           (one.bottomRight() - other.bottomRight()).manhattanLength() <= 2 * rounding;
}

/// What Qt's screen shows: the monitor of its name, else that at its place. Where the server divides a
/// screen into monitors that Qt doesn't know, it is all of them.
QRect areaOf(const QScreen& screen, const ScreenPicture& picture) {
    const auto named = std::ranges::find(picture.monitors, screen.name(), &Monitor::name);
    if (named != picture.monitors.end())
        return named->area;
    const QRect place = pixelsOf(screen).translated(-pixelsOfAll().topLeft());
    for (const Monitor& monitor : picture.monitors)
        if (isAlmost(monitor.area, place))
            return monitor.area;
    const QRect all(0, 0, picture.picture.width(), picture.picture.height());
    const QRect shown = place & all;
    return shown.isEmpty() ? all : shown;
}

QString keyTable() {
    const QString rows[][2] = {
        {fCaptureRectangle::tr("Drag"), fCaptureRectangle::tr("A new rectangle; with Shift a square")},
        {fCaptureRectangle::tr("Arrows"), fCaptureRectangle::tr("Move it by a pixel, with Ctrl by ten")},
        {fCaptureRectangle::tr("Shift+arrows"), fCaptureRectangle::tr("Move its lower right corner")},
        {fCaptureRectangle::tr("Return"), fCaptureRectangle::tr("Take it, or the monitor without one")},
        {fCaptureRectangle::tr("Esc"), fCaptureRectangle::tr("Take back the rectangle, then leave")},
        {QStringLiteral("M"), fCaptureRectangle::tr("Show or hide the magnifier")},
        {QStringLiteral("V"), fCaptureRectangle::tr("Move this bar to the other edge")},
        {QStringLiteral("F1"), fCaptureRectangle::tr("Show or hide this list")},
    };
    QString table;
    for (const auto& [key, effect] : rows)
        table += QStringLiteral("<tr><td style='padding-right: 1em'><b>%1</b></td><td>%2</td></tr>")
                     .arg(key.toHtmlEscaped(), effect.toHtmlEscaped());
    return QStringLiteral("<table>%1</table>").arg(table);
}

} // namespace

fCaptureRectangle::fCaptureRectangle() {
    const auto* application = static_cast<QGuiApplication*>(QCoreApplication::instance());
    connect(application, &QGuiApplication::screenAdded, this, &fCaptureRectangle::leaveOldMonitors);
    connect(application, &QGuiApplication::screenRemoved, this, &fCaptureRectangle::leaveOldMonitors);
}

fCaptureRectangle::~fCaptureRectangle() = default;

void fCaptureRectangle::ShowPicture(ScreenPicture screen) {
    hide();
    m_frozen = std::make_unique<FrozenScreen>(std::move(screen));
    coverMonitors();
}

void fCaptureRectangle::coverMonitors() {
    for (QScreen* screen : QGuiApplication::screens()) {
        const QRect area = areaOf(*screen, m_frozen->screen());
        if (std::ranges::any_of(m_panes, [&](const auto& pane) { return pane->area() == area; }))
            continue; // a monitor that mirrors another
        m_panes.push_back(std::make_unique<CapturePane>(*m_frozen, area, screen));
        CapturePane& pane = *m_panes.back();
        connect(&pane, &CapturePane::accepted, this, &fCaptureRectangle::take);
        connect(&pane, &CapturePane::barMoved, this, &fCaptureRectangle::moveBar);
        connect(&pane, &CapturePane::keysWanted, this, &fCaptureRectangle::toggleKeys);
        connect(&pane, &CapturePane::left, this, &fCaptureRectangle::left);
        connect(screen, &QScreen::geometryChanged, &pane, [this] { leaveOldMonitors(); });
        if (m_panes.size() == 1)
            addBar(pane);
        pane.cover();
        if (!m_frozen->screen().pointer)
            pane.pointTo(QCursor::pos(screen)); // in whole units, which may be beside the pixel
    }
    m_panes.front()->activateWindow();
    m_panes.front()->setFocus();
}

/// Panes don't fit monitors that have changed.
void fCaptureRectangle::leaveOldMonitors() {
    if (!m_panes.empty())
        Q_EMIT left();
}

void fCaptureRectangle::addBar(CapturePane& pane) {
    m_bar = new QFrame(&pane);
    m_bar->setObjectName(QStringLiteral("Toolbar1"));
    m_bar->setFrameShape(QFrame::StyledPanel);
    m_bar->setAutoFillBackground(true);
    m_bar->setCursor(Qt::ArrowCursor);
    auto* rows = new QVBoxLayout(m_bar);
    auto* buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    addButtons(*buttons);
    m_keys = new QLabel(keyTable(), m_bar);
    m_keys->setObjectName(QStringLiteral("lblKeys"));
    m_keys->hide();
    rows->addWidget(m_keys);
    m_barIsBelow = false;
    placeBar();
}

void fCaptureRectangle::addButtons(QLayout& row) {
    const struct {
        const char* name;
        QString text, toolTip;
        const char* icon;
        std::function<void()> run;
    } commands[] = {
        {"cmdBar_0", tr("&Take"), tr("Take the rectangle, or the monitor without one (Return)"), "confirm",
         [this] { take(); }},
        {"cmdBar_1", tr("&Magnifier"), tr("Show or hide the magnifier (M)"), "zoom",
         [this] { m_frozen->toggleMagnifier(); }},
        {"cmdBar_2", tr("Mo&ve bar"), tr("Move this bar to the other edge (V)"), "moveDown",
         [this] { moveBar(); }},
        {"cmdKeys", tr("&Keys"), tr("Show or hide the list of keys (F1)"), "help", [this] { toggleKeys(); }},
        {"cmdBar_3", tr("&Cancel"), tr("Leave without a picture (Esc)"), "remove", [this] { Q_EMIT left(); }},
    };
    for (const auto& command : commands) {
        auto* button = new BarButton(m_bar);
        button->setObjectName(QLatin1String(command.name));
        button->setText(command.text);
        button->setToolTip(command.toolTip);
        button->setIcon(lineIcon(QLatin1String(command.icon)));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, command.run);
        row.addWidget(button);
    }
    auto* magnifier = m_bar->findChild<BarButton*>(QStringLiteral("cmdBar_1"));
    magnifier->setCheckable(true);
    magnifier->setChecked(m_frozen->hasMagnifier());
    connect(m_frozen.get(), &FrozenScreen::changed, magnifier,
            [this, magnifier] { magnifier->setChecked(m_frozen->hasMagnifier()); });
    m_bar->findChild<BarButton*>(QStringLiteral("cmdKeys"))->setCheckable(true);
}

void fCaptureRectangle::moveBar() {
    m_barIsBelow = !m_barIsBelow;
    placeBar();
}

void fCaptureRectangle::placeBar() {
    m_bar->adjustSize();
    const QSize room = m_bar->parentWidget()->size();
    m_bar->move((room.width() - m_bar->width()) / 2,
                m_barIsBelow ? room.height() - m_bar->height() - barMargin : barMargin);
}

void fCaptureRectangle::toggleKeys() {
    const bool shown = m_keys->isHidden();
    m_keys->setVisible(shown);
    m_bar->findChild<BarButton*>(QStringLiteral("cmdKeys"))->setChecked(shown);
    placeBar();
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
    m_keys = nullptr;
    if (m_frozen)
        m_frozen.release()->deleteLater();
}

} // namespace tarsel
