// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Clock.h"
#include "base/EventLoop.h"
#include "base/Locale.h"
#include "base/RandomNumbers.h"
#include "cli/TerminalDialogs.h"

#include <QRandomGenerator>

namespace tarsel::cli {

/// One thread without events, and no pointer.
class NoEventLoop final : public EventLoop {
public:
    void yield() override {}
    void setBusyPointer(bool) override {}
};

/// What logic asks of the user and the system, answered on the terminal for as long as this lives. Nothing
/// that a command does opens or starts another program.
class TerminalDesktop {
public:
    explicit TerminalDesktop(Terminal& terminal) : m_dialogs(terminal) {
        m_randomNumbers.seed(QRandomGenerator::global()->generate());
    }

private:
    TerminalDialogs m_dialogs;
    NoEventLoop m_eventLoop;
    SystemClock m_clock;
    SeededRandomNumbers m_randomNumbers;
    SystemLocale m_locale;
    ServiceScope<Dialogs> m_dialogsInUse{m_dialogs};
    ServiceScope<EventLoop> m_eventLoopInUse{m_eventLoop};
    ServiceScope<Clock> m_clockInUse{m_clock};
    ServiceScope<RandomNumbers> m_randomNumbersInUse{m_randomNumbers};
    ServiceScope<Locale> m_localeInUse{m_locale};
};

} // namespace tarsel::cli
