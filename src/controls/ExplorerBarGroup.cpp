// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ExplorerBarGroup.h"

#include "controls/ExplorerBarParts.h"

#include <QEvent>
#include <algorithm>
#include <cstdlib>

namespace tarsel {

namespace {

constexpr int padding = 6;
constexpr int stepDivisor = 4; ///< each step goes that part of the way that is left
constexpr int leastStep = 4;

/// What holds the contents of a group.
class Body final : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        paintBodyGround(painter, *this);
    }
};

QIcon iconAt(const std::vector<QIcon>& icons, int index) {
    return index >= 0 && index < int(icons.size()) ? icons[std::size_t(index)] : QIcon();
}

} // namespace

ExplorerBarGroup::ExplorerBarGroup(const ExplorerBarModel::Group& group, bool isHeavy,
                                   const std::vector<QIcon>& icons, QWidget* parent) :
    QWidget(parent),
    m_key(group.key), m_title(new ExplorerBarTitle(isHeavy, this)), m_body(new Body(this)),
    m_contents(new QWidget(m_body)) {
    m_title->setText(group.caption);
    m_title->setIcon(iconAt(icons, group.icon));
    m_title->setObjectName(group.key);
    connect(m_title, &QAbstractButton::clicked, this, &ExplorerBarGroup::titleClicked);
    connect(m_title, &ExplorerBarPart::leftByKey, this, [this](int key) { Q_EMIT leftByKey(m_title, key); });
    addItems(group, icons);
}

void ExplorerBarGroup::addItems(const ExplorerBarModel::Group& group, const std::vector<QIcon>& icons) {
    for (const ExplorerBarModel::Item& item : group.items) {
        auto* button = new ExplorerBarItem(m_contents);
        button->setObjectName(item.key);
        button->setText(item.text);
        button->setIcon(iconAt(icons, item.icon));
        button->setEnabled(item.enabled);
        connect(button, &QAbstractButton::clicked, this,
                [this, button] { Q_EMIT itemClicked(button->objectName()); });
        connect(button, &ExplorerBarPart::leftByKey, this,
                [this, button](int key) { Q_EMIT leftByKey(button, key); });
        m_items.push_back(button);
    }
    setChosenItem({});
}

void ExplorerBarGroup::setChosenItem(const QString& key) {
    for (ExplorerBarItem* item : m_items) {
        item->setChecked(item->objectName() == key);
        item->setFocusPolicy(item->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
    if (!m_items.empty() && std::ranges::none_of(m_items, &QAbstractButton::isChecked))
        m_items.front()->setFocusPolicy(Qt::StrongFocus);
}

void ExplorerBarGroup::setChild(QWidget* child) {
    m_child = child;
    child->setParent(m_contents);
    child->installEventFilter(this);
    child->show();
}

bool ExplorerBarGroup::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_child && event->type() == QEvent::LayoutRequest)
        Q_EMIT contentsChanged();
    return QWidget::eventFilter(watched, event);
}

// --- layout

/// The room that each item gets.
QSize ExplorerBarGroup::cell() const {
    QSize size;
    for (const ExplorerBarItem* item : m_items)
        size = size.expandedTo(item->sizeHint());
    return size;
}

int ExplorerBarGroup::widthFor(int columns) const {
    return columns * cell().width() + 2 * padding;
}

/// As many columns as have room for the widest item. Returns the height of all rows.
int ExplorerBarGroup::arrangeItems(int width) const {
    if (m_items.empty())
        return 0;
    const int count = int(m_items.size());
    const QSize room = cell();
    const int columns = std::clamp(width / std::max(1, room.width()), 1, count);
    const int rows = (count + columns - 1) / columns;
    for (int index = 0; index < count; ++index)
        m_items[std::size_t(index)]->setGeometry(padding + index % columns * width / columns,
                                                 padding + index / columns * room.height(), width / columns,
                                                 room.height());
    return rows * room.height();
}

int ExplorerBarGroup::contentsHeight(int width) const {
    const int inner = width - 2 * padding;
    if (!m_child)
        return arrangeItems(inner) + 2 * padding;
    const int height =
        m_child->hasHeightForWidth() ? m_child->heightForWidth(inner) : m_child->sizeHint().height();
    m_child->setGeometry(padding, padding, inner, std::max(height, m_child->minimumSizeHint().height()));
    return m_child->height() + 2 * padding;
}

void ExplorerBarGroup::arrange(int width) {
    const int titleHeight = m_title->sizeHint().height();
    const int height = contentsHeight(width);
    if (m_isSettled)
        m_openBy = m_title->isChecked() ? height : 0;
    m_openBy = std::min(m_openBy, height);
    m_title->setGeometry(0, 0, width, titleHeight);
    m_title->setOpened(double(m_openBy) / height);
    m_body->setGeometry(0, titleHeight, width, m_openBy);
    m_body->setVisible(m_openBy > 0);
    m_contents->setGeometry(0, m_openBy - height, width, height);
    setFixedHeight(titleHeight + m_openBy);
}

// --- opening and closing

bool ExplorerBarGroup::step(bool open) {
    m_title->setChecked(open);
    const int target = open ? m_contents->height() : 0;
    const int way = target - m_openBy;
    const int by = std::max(std::abs(way) / stepDivisor, leastStep);
    m_openBy = std::abs(way) <= by ? target : m_openBy + (way > 0 ? by : -by);
    m_isSettled = m_openBy == target;
    return m_isSettled;
}

void ExplorerBarGroup::setOpen(bool open) {
    m_title->setChecked(open);
    m_isSettled = true;
}

} // namespace tarsel
