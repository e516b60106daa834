// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>

namespace tarsel::test {

/// Acts on dialogs as they come up: each step waits for the window of its name and then runs once. A modal
/// window that no step waits for is closed and noted, so that a test never hangs on it.
class DialogScript {
public:
    DialogScript();

    void on(const char* objectName, std::function<void(QWidget&)> action);
    /// A modal window that the test acts on without a step, however long that takes.
    void leave(const char* objectName) { m_left = QString::fromLatin1(objectName); }
    bool isDone() const { return m_steps.empty(); }
    /// Names of the windows that nobody expected.
    QStringList unexpected;

private:
    struct Step {
        QString name;
        std::function<void(QWidget&)> action;
    };
    void look();
    void closeUnexpected(QWidget& modal);

    std::deque<Step> m_steps;
    QString m_left;
    QTimer m_timer;
    int m_idleLooks = 0;
};

/// The named child of a window; the test fails and ends where there is none.
template <class Widget>
Widget& child(QWidget& window, const char* objectName) {
    auto* found = window.findChild<Widget*>(QString::fromLatin1(objectName));
    if (!found)
        throw std::runtime_error(std::string("no control ") + objectName);
    return *found;
}

/// Clicks a button as a user does.
void click(QWidget& window, const char* objectName);

} // namespace tarsel::test
