// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/SystemServices.h"

namespace tarsel {

/// What a Linux desktop offers.
class QtSystemServices final : public SystemServices {
public:
    /// `networkFolder` is where the system lists its network interfaces.
    explicit QtSystemServices(QString networkFolder = QStringLiteral("/sys/class/net"));

    bool shellOpen(const QString& target) override;
    QString browserPath() override;
    bool startHidden(const QString& program, const QStringList& arguments) override;
    bool isOnline() override;
    bool closeWindowTitled(const QString& title) override;

private:
    QString m_networkFolder;
};

} // namespace tarsel
