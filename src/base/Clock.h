// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Service.h"

#include <QDateTime>

namespace tarsel {

class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() = 0;
};

/// The computer's own clock.
class SystemClock final : public Clock {
public:
    QDateTime now() override { return QDateTime::currentDateTime(); }
};

} // namespace tarsel
