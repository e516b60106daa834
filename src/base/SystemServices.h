// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Service.h"

#include <QString>
#include <QStringList>

namespace tarsel {

/// Other programs and the state of the system.
class SystemServices {
public:
    virtual ~SystemServices() = default;
    /// Opens a file or an address with the program that the system has for it.
    virtual bool shellOpen(const QString& target) = 0;
    /// Path of the system's registered browser, or empty when there is no such registration.
    virtual QString browserPath() = 0;
    virtual bool startHidden(const QString& program, const QStringList& arguments) = 0;
    virtual bool isOnline() = 0;
    /// Posts a close message to the top-level window of exactly this title; false when there is none.
    virtual bool closeWindowTitled(const QString& title) = 0;
};

} // namespace tarsel
