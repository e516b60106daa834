// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/NoticeBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace tarsel {

NoticeBar::NoticeBar(QWidget* parent) :
    QFrame(parent), m_label(new QLabel(this)), m_button(new QPushButton(tr("Got it"), this)) {
    setObjectName(QStringLiteral("noticeBar"));
    setFrameShape(QFrame::StyledPanel);
    auto* icon = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size, size));
    m_label->setObjectName(QStringLiteral("lblNotice"));
    m_label->setTextFormat(Qt::PlainText); // it may hold the name of a file
    m_label->setWordWrap(true);
    m_button->setObjectName(QStringLiteral("cmdNotice"));
    m_button->setAccessibleName(tr("Close the notice"));
    // Every letter belongs to some task; the panes have the other digits.
    m_button->setShortcut(QKeySequence(Qt::ALT | Qt::Key_0));
    m_button->setToolTip(
        tr("Close the notice (%1)").arg(m_button->shortcut().toString(QKeySequence::NativeText)));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 2, 4, 2);
    row->addWidget(icon);
    row->addWidget(m_label, 1);
    row->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, &NoticeBar::dismiss);
    hide();
}

void NoticeBar::say(const QString& text) {
    if (text.isEmpty() || m_texts.contains(text))
        return;
    m_texts << text;
    showFirst();
}

void NoticeBar::sayFirst(const QString& text) {
    m_texts.removeAll(text);
    m_texts.prepend(text);
    showFirst();
}

void NoticeBar::withdraw(const QString& text) {
    m_texts.removeAll(text);
    showFirst();
}

void NoticeBar::showFirst() {
    if (m_label->text() == text() && isVisibleTo(parentWidget()) == !m_texts.isEmpty())
        return;
    m_label->setText(text());
    setVisible(!m_texts.isEmpty());
    if (m_texts.isEmpty())
        return;
    QAccessibleEvent spoken(m_label, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}

void NoticeBar::dismiss() {
    const QString text = m_texts.takeFirst();
    showFirst();
    Q_EMIT dismissed(text);
}

void NoticeBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else
        QFrame::keyPressEvent(event);
}

} // namespace tarsel
