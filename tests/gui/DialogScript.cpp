// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/DialogScript.h"

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <utility>

namespace tarsel::test {

namespace {

QWidget* visibleWindow(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == name)
            return window;
    return nullptr;
}

/// Looks at a modal window that nobody acts on before it counts as unexpected.
constexpr int patience = 200;

} // namespace

DialogScript::DialogScript() {
    m_timer.setInterval(5);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start();
}

void DialogScript::on(const char* objectName, std::function<void(QWidget&)> action) {
    m_steps.push_back({QString::fromLatin1(objectName), std::move(action)});
}

void DialogScript::look() {
    QWidget* window = m_steps.empty() ? nullptr : visibleWindow(m_steps.front().name);
    if (window) {
        m_idleLooks = 0;
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        step.action(*window);
        return;
    }
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal->objectName() == m_left)
        m_idleLooks = 0;
    else if (++m_idleLooks > patience)
        closeUnexpected(*modal);
}

void DialogScript::closeUnexpected(QWidget& modal) {
    QStringList words{modal.objectName(), modal.windowTitle()};
    for (const QLabel* label : modal.findChildren<QLabel*>())
        words << label->text();
    unexpected << words.join(QLatin1Char(' '));
    m_idleLooks = 0;
    modal.close();
}

void click(QWidget& window, const char* objectName) {
    QTest::mouseClick(&child<QWidget>(window, objectName), Qt::LeftButton);
}

} // namespace tarsel::test
