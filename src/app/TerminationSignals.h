// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QSocketNotifier;

namespace tarsel {

/// Turns SIGTERM, SIGHUP and SIGINT into a signal of its own, on the thread that made it. A SIGHUP that is
/// ignored from the start, as nohup does, stays ignored. One object at a time.
class TerminationSignals final : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

Q_SIGNALS:
    void terminationRequested();

private:
    void takeSignals();

    int m_readEnd = -1;
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace tarsel
