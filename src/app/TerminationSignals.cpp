// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TerminationSignals.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr int handledSignals[] = {SIGTERM, SIGHUP, SIGINT};

/// Where the handler writes: all that a signal handler may do is to wake up the event loop.
volatile sig_atomic_t writeEnd = -1;

void noteSignal(int) {
    const int savedErrno = errno;
    const char byte = 0;
    // A full pipe already holds a request.
    [[maybe_unused]] const ssize_t written = ::write(writeEnd, &byte, 1);
    errno = savedErrno;
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction old = {};
    if (::sigaction(signal, nullptr, &old) != 0 || old.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_readEnd = ends[0];
    writeEnd = ends[1];
    m_notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::takeSignals);
    for (const int signal : handledSignals)
        handle(signal, noteSignal);
}

TerminationSignals::~TerminationSignals() {
    if (m_readEnd < 0)
        return;
    for (const int signal : handledSignals)
        handle(signal, SIG_DFL);
    delete m_notifier;
    ::close(writeEnd);
    ::close(m_readEnd);
    writeEnd = -1;
}

void TerminationSignals::takeSignals() {
    char bytes[16];
    while (::read(m_readEnd, bytes, sizeof bytes) > 0) {
    }
    Q_EMIT terminationRequested();
}

} // namespace tarsel
