// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/isExplorerBar.h"

#include "base/Dialogs.h"
#include "base/SystemServices.h"
#include "base/TrappedError.h"
#include "controls/ExplorerBarGroup.h"
#include "controls/ExplorerBarParts.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tarsel {

namespace {
constexpr int spacing = 8;
constexpr int tick = 10; // milliseconds
} // namespace

isExplorerBar::isExplorerBar(QWidget* parent) : QScrollArea(parent), m_column(new QWidget) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    verticalScrollBar()->setObjectName(QStringLiteral("m_ScrollBar"));
    setWidget(m_column);
    m_column->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    timUpdate.setInterval(tick);
    connect(&timUpdate, &QTimer::timeout, this, &isExplorerBar::step);
}

// --- changes of the model

/// Refused changes are shown, not raised.
bool isExplorerBar::guarded(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const TrappedError& error) {
        service<Dialogs>().messageBox(tr("An Error has ocurred!\n%1").arg(error.description),
                                      MessageIcon::Exclamation, MessageButtons::Ok,
                                      QStringLiteral("isExplorerBar"));
        return false;
    }
}

void isExplorerBar::change(const std::function<void()>& apply) {
    if (guarded(apply))
        Refresh();
}

void isExplorerBar::AddGroup(const QString& key, const QString& caption, const QVariant& icon) {
    change([&] { m_model.addGroup(key, caption, icon); });
}

void isExplorerBar::AddItem(const QVariant& group, const QString& key, const QString& text,
                            const QVariant& icon) {
    change([&] { m_model.addItem(group, key, text, icon); });
}

void isExplorerBar::SetImageList(const std::vector<NamedIcon>& list) {
    QStringList keys;
    m_icons.clear();
    for (const NamedIcon& named : list) {
        keys << named.key;
        m_icons.push_back(named.icon);
    }
    change([&] { m_model.setIcons(keys); });
}

void isExplorerBar::AddSpecialGroup(const QString& caption, const QPixmap& picture, bool open) {
    m_specialPicture = picture;
    change([&] { m_model.addSpecialGroup(caption, open); });
}

void isExplorerBar::HideSpecialGroup() {
    change([&] { m_model.hideSpecialGroup(); });
}

void isExplorerBar::AddDetailsGroup(const QString& caption, const QString& text, bool open) {
    change([&] { m_model.addDetailsGroup(caption, text, open); });
}

void isExplorerBar::SetDetailsText(const QString& text) {
    change([&] { m_model.detailsGroup().text = text; });
}

void isExplorerBar::SetDetailsImage(const QPixmap& picture) {
    m_detailsPicture = picture;
    change([&] { m_model.detailsGroup(); });
}

void isExplorerBar::HideDetailsGroup() {
    change([&] { m_model.hideDetailsGroup(); });
}

void isExplorerBar::OpenLink(const QString& url) {
    service<SystemServices>().shellOpen(url);
}

void isExplorerBar::ClearStructure() {
    takeChildren();
    m_children.clear();
    m_chosen.clear();
    change([&] { m_model.clear(); });
}

void isExplorerBar::ClearGroup(const QVariant& group) {
    change([&] { m_model.clearGroup(group); });
}

void isExplorerBar::SetGroupChild(const QVariant& group, QWidget* control, bool bExpand) {
    change([&] {
        ExplorerBarModel::Group& holder = m_model.group(group);
        holder.open = bExpand;
        m_children[holder.key] = control;
    });
}

void isExplorerBar::SetGroupCaption(const QVariant& group, const QString& text) {
    guarded([&] {
        ExplorerBarModel::Group& changed = m_model.group(group);
        changed.caption = text;
        if (ExplorerBarGroup* box = shown(changed.key))
            box->title().setText(text);
    });
}

void isExplorerBar::SetItemIcon(const QVariant& group, const QVariant& item, const QVariant& icon) {
    change([&] { m_model.item(group, item).icon = m_model.iconIndex(icon); });
}

void isExplorerBar::SetItemText(const QVariant& group, const QVariant& item, const QString& text) {
    change([&] { m_model.item(group, item).text = text; });
}

void isExplorerBar::setItemEnabled(const QVariant& group, const QVariant& item, bool enabled) {
    change([&] { m_model.item(group, item).enabled = enabled; });
}

void isExplorerBar::setChosenItem(const QVariant& group, const QString& item) {
    guarded([&] {
        const QString key = m_model.group(group).key;
        m_chosen[key] = item;
        if (ExplorerBarGroup* box = shown(key))
            box->setChosenItem(item);
    });
}

void isExplorerBar::DisableUpdates(bool flag) {
    m_updatesDisabled = flag;
    if (!flag)
        Refresh();
}

// --- the groups on the screen

/// The controls in groups survive the widgets of the groups.
void isExplorerBar::takeChildren() {
    for (QWidget* child : std::as_const(m_children))
        if (child)
            child->setParent(this);
}

void isExplorerBar::Refresh() {
    if (m_updatesDisabled)
        return;
    takeChildren();
    for (ExplorerBarGroup* box : m_shown) { // perhaps one of them is handling a click
        box->setParent(nullptr);
        box->deleteLater();
    }
    m_shown.clear();
    if (m_model.special())
        addToColumn(*m_model.special(), true)->title().setIcon(m_specialPicture);
    for (const ExplorerBarModel::Group& group : m_model.groups())
        addToColumn(group);
    if (m_model.details())
        addToColumn(*m_model.details())->setChild(makeDetails(m_model.details()->text));
    arrange();
    orderTabs();
}

QWidget* isExplorerBar::makeDetails(const QString& text) const {
    auto* details = new QWidget;
    auto* rows = new QVBoxLayout(details);
    rows->setContentsMargins(0, 0, 0, 0);
    auto* picture = new QLabel(details);
    picture->setPixmap(m_detailsPicture);
    picture->setAlignment(Qt::AlignCenter);
    rows->addWidget(picture);
    auto* words = new QLabel(text, details);
    words->setWordWrap(true);
    rows->addWidget(words);
    return details;
}

ExplorerBarGroup* isExplorerBar::addToColumn(const ExplorerBarModel::Group& group, bool isHeavy) {
    auto* box = new ExplorerBarGroup(group, isHeavy, m_icons, m_column);
    if (QWidget* child = m_children.value(group.key))
        box->setChild(child);
    box->setChosenItem(m_chosen.value(group.key));
    box->setOpen(group.open);
    connect(box, &ExplorerBarGroup::titleClicked, this, [this, key = group.key] {
        ExplorerBarModel::Group& clicked = m_model.group(key);
        setOpen(clicked, !clicked.open);
        Q_EMIT groupChanged(key, clicked.open);
    });
    connect(box, &ExplorerBarGroup::itemClicked, this,
            [this, key = group.key](const QString& item) { Q_EMIT itemClicked(key, item); });
    connect(box, &ExplorerBarGroup::leftByKey, this, &isExplorerBar::moveFocus);
    connect(box, &ExplorerBarGroup::contentsChanged, this, &isExplorerBar::arrange);
    box->show();
    m_shown.push_back(box);
    return box;
}

ExplorerBarGroup* isExplorerBar::shown(const QString& key) const {
    const auto box = std::ranges::find(m_shown, key, &ExplorerBarGroup::key);
    return box == m_shown.end() ? nullptr : *box;
}

void isExplorerBar::arrange() {
    const int width = std::max(0, viewport()->width() - 2 * spacing);
    int y = spacing;
    for (ExplorerBarGroup* box : m_shown) {
        box->arrange(width);
        box->setGeometry(spacing, y, width, box->height());
        y += box->height() + spacing;
    }
    m_column->resize(viewport()->width(), y);
}

void isExplorerBar::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    arrange();
}

void isExplorerBar::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Refresh();
}

/// Wide enough for two columns of items.
QSize isExplorerBar::sizeHint() const {
    int width = fontMetrics().averageCharWidth() * 40;
    for (const ExplorerBarGroup* box : m_shown)
        width = std::max(width, box->widthFor(2));
    return {width + 2 * spacing + verticalScrollBar()->sizeHint().width(), fontMetrics().height() * 30};
}

// --- opening and closing

void isExplorerBar::ExpandGroup(const QVariant& group, bool open) {
    guarded([&] { setOpen(m_model.group(group), open); });
}

bool isExplorerBar::isOpen(const QVariant& group) {
    bool open = false;
    guarded([&] { open = m_model.group(group).open; });
    return open;
}

/// Where the desktop asks for no animations the group is open or closed at once.
void isExplorerBar::setOpen(ExplorerBarModel::Group& group, bool open) {
    group.open = open;
    ExplorerBarGroup* box = shown(group.key);
    if (!box)
        return;
    const bool animated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (animated && isVisible()) {
        timUpdate.start();
    } else {
        box->setOpen(open);
        arrange();
    }
}

void isExplorerBar::step() {
    bool done = true;
    for (ExplorerBarGroup* box : m_shown)
        done = box->step(m_model.group(box->key()).open) && done;
    if (done)
        timUpdate.stop();
    arrange();
}

// --- keys

/// The order among the controls of a child stays. Labels and frames are left out: Qt refuses an order with
/// one of them, and the chain would break there.
QWidget* isExplorerBar::orderTabs() {
    std::vector<QWidget*> stops;
    for (const ExplorerBarGroup* box : m_shown) {
        stops.push_back(&box->title());
        stops.insert(stops.end(), box->items().begin(), box->items().end());
        const QWidget* child = m_children.value(box->key());
        for (QWidget* next = child ? child->nextInFocusChain() : nullptr; next && next != child;
             next = next->nextInFocusChain())
            if (child->isAncestorOf(next) && next->focusPolicy() != Qt::NoFocus && !next->focusProxy())
                stops.push_back(next);
    }
    for (std::size_t index = 1; index < stops.size(); ++index)
        setTabOrder(stops[index - 1], stops[index]);
    return stops.empty() ? this : stops.back();
}

/// Titles and items that can be seen, from top to bottom.
std::vector<QWidget*> isExplorerBar::focusStops() const {
    std::vector<QWidget*> stops;
    for (const ExplorerBarGroup* box : m_shown) {
        stops.push_back(&box->title());
        if (box->title().isChecked())
            for (ExplorerBarItem* item : box->items())
                if (item->isEnabled())
                    stops.push_back(item);
    }
    return stops;
}

void isExplorerBar::focusInEvent(QFocusEvent*) {
    for (QWidget* part : focusStops())
        if (qobject_cast<ExplorerBarItem*>(part) && part->focusPolicy() == Qt::StrongFocus)
            return part->setFocus(Qt::TabFocusReason);
}

/// Left and right go along a row of items, up and down to the nearest part above and below.
void isExplorerBar::moveFocus(QWidget* from, int key) {
    const std::vector<QWidget*> stops = focusStops();
    const auto place = [this](QWidget* part) { return part->mapTo(m_column, QPoint(0, 0)); };
    const QPoint start = place(from);
    QWidget* nearest = nullptr;
    long best = 0;
    const bool alongRow = key == Qt::Key_Left || key == Qt::Key_Right;
    const int sign = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    for (QWidget* part : stops) {
        const QPoint way = sign * (place(part) - start);
        const int forward = alongRow ? way.x() : way.y();
        const int aside = std::abs(alongRow ? way.y() : way.x());
        if (forward <= 0 || (alongRow && aside > 0))
            continue;
        const long distance = long(forward) * 10000 + aside;
        if (!nearest || distance < best) {
            nearest = part;
            best = distance;
        }
    }
    if (key == Qt::Key_Home)
        nearest = stops.front();
    if (key == Qt::Key_End)
        nearest = stops.back();
    if (!nearest)
        return;
    nearest->setFocus(Qt::TabFocusReason);
    ensureWidgetVisible(nearest, 0, spacing);
}

} // namespace tarsel
