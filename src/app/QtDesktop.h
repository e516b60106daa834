// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/QtDialogs.h"
#include "app/QtEventLoop.h"
#include "app/QtSystemServices.h"
#include "base/Clock.h"
#include "base/Locale.h"
#include "base/RandomNumbers.h"

namespace tarsel {

/// What logic asks of the user and the system, answered by Qt for as long as this lives.
struct QtDesktop {
    QtDialogs dialogs;
    QtEventLoop eventLoop;
    QtSystemServices system;
    SystemClock clock;
    SeededRandomNumbers randomNumbers;
    SystemLocale locale;

private:
    ServiceScope<Dialogs> m_dialogs{dialogs};
    ServiceScope<EventLoop> m_eventLoop{eventLoop};
    ServiceScope<SystemServices> m_system{system};
    ServiceScope<Clock> m_clock{clock};
    ServiceScope<RandomNumbers> m_randomNumbers{randomNumbers};
    ServiceScope<Locale> m_locale{locale};
};

} // namespace tarsel
