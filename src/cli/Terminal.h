// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <QString>
#include <QStringList>
#include <chrono>
#include <cstdio>
#include <functional>

namespace tarsel::cli {

/// Seconds of a clock that only goes forward.
using SecondsClock = std::function<double()>;

/// The line of a progress bar: "[#####.....]  50 of 100, 1:05 left". The time left appears with the first
/// finished item. Never longer than `columns`.
QString barLine(int value, int maximum, double secondsSinceStart, int columns);

/// Standard output for results, standard error for messages and for a bar, which is drawn only where standard
/// error is a terminal.
class Terminal {
public:
    Terminal(std::FILE* results, std::FILE* messages, bool showsBar);

    /// One line: a line feed in it is written as "\x0a".
    void result(const QString& line);
    void results(const QStringList& lines);
    void message(const QString& line);
    /// False when results could not be written, which is reported as a message.
    bool finish();

    bool showsBar() const { return m_showsBar; }
    void drawBar(const QString& line);
    void removeBar();

private:
    void print(std::FILE* file, const QString& line);

    std::FILE* m_results;
    std::FILE* m_messages;
    bool m_showsBar;
    bool m_failed = false;
    QString m_bar;
};

/// The bar of a batch, with the time left.
class TerminalProgress final : public Progress {
public:
    explicit TerminalProgress(Terminal& terminal, SecondsClock clock = {});
    ~TerminalProgress() override { TerminalProgress::hide(); }
    TerminalProgress(const TerminalProgress&) = delete;
    TerminalProgress& operator=(const TerminalProgress&) = delete;

    void start(int maximum, int value = 0) override;
    void setValue(int value) override;
    void hide() override;

private:
    Terminal& m_terminal;
    SecondsClock m_clock;
    double m_started = 0;
    int m_maximum = 0;
};

} // namespace tarsel::cli
