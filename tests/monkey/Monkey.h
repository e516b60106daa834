// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/frmMain.h"
#include "base/RandomNumbers.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPointer>
#include <QTimer>

namespace tarsel::test {

/// Clicks, types, drags and scrolls at random in whatever window of the program is active, as long as the
/// program lives. The same seed makes the same inputs, as far as the program's windows come at the same time.
/// It stays in one folder and those below, and is led to what random inputs seldom reach: the editing of a
/// picture, and each window that an action opens, in turn. Every minute it prints the memory in use.
class Monkey final : public QObject {
public:
    /// Ends after so many inputs, or after so many minutes.
    struct Length {
        int inputs;
        int minutes;
    };

    Monkey(frmMain& window, QString folder, quint32 seed, Length length);

    int made() const { return m_made; }
    int longestBlock() const { return m_longestBlock; }           ///< of the event loop, in ms
    QString longestActivity() const { return m_longestActivity; } ///< what the program said it was doing
    /// The modal window that no key closes; empty when each can be left.
    QString trap() const { return m_trap; }
    int editingInputs() const { return m_editingInputs; } ///< while the panel of tasks was open
    int minutes() const { return int(m_sinceStart.elapsed() / 60'000); }
    QHash<QString, int> windows; ///< windows that were seen, and the inputs that each got

private:
    void act();
    void end();
    void stayInFolder();
    void edit();
    void visit();
    void fillBasket();
    void report();
    QWidget* topWindow() const;
    QWidget* visitedWindow() const;
    bool isInside(const QString& folder) const;
    void leave(QWidget& modal);
    void click(QWidget& target, QPoint place);
    void triggerAction(QWidget& top);
    void clickControl(QWidget& top);
    void drag(QWidget& target, QPoint place);
    void scroll(QWidget& target, QPoint place);
    void type(QWidget& target);
    void rearrange();
    void changeTheme();
    void measure();
    template <class Things>
    auto* oneOf(const Things& things) {
        return things[below(int(things.size()))];
    }
    int below(int limit) { return int(m_random.randomNumber() * limit); }

    QPointer<frmMain> m_window;
    const QString m_folder;
    SeededRandomNumbers m_random;
    QTimer m_timer;
    QTimer m_heartbeat;
    QTimer m_reports;
    QElapsedTimer m_sinceBeat;
    QElapsedTimer m_sinceStart;
    QPointer<QWidget> m_modal;
    int m_modalInputs = 0;
    Length m_wanted;
    int m_made = 0;
    int m_visits = 0;
    int m_longestOfMinute = 0;
    int m_editingInputs = 0;
    int m_longestBlock = 0;
    QString m_longestActivity;
    QString m_trap;
};

} // namespace tarsel::test
