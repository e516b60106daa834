// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Terminal.h"

#include "base/ProgressText.h"
#include "cli/RawNameLinks.h"
#include "cli/RawNames.h"

#include <QCoreApplication>
#include <algorithm>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tarsel::cli {

namespace {

constexpr char eraseLine[] = "\r\033[K";

double steadySeconds() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

int terminalColumns() {
    constexpr int usual = 80;
    winsize size = {};
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

/// Control characters out of file names and metadata would command the terminal, or begin a line that looks
/// like a result: they are written as "\x1b".
QString withoutControls(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (const QChar character : text) {
        if (character.category() == QChar::Other_Control)
            out += QStringLiteral("\\x%1").arg(character.unicode(), 2, 16, QLatin1Char('0'));
        else
            out += character;
    }
    return out;
}

QString printable(const QString& line) {
    return withoutControls(writtenOut(RawNameLinks::withOwnNames(line), QLatin1String("\\x")));
}

} // namespace

QString barLine(int value, int maximum, double secondsSinceStart, int columns) {
    constexpr int widest = 40;
    const QString progress = progressText(value, maximum, secondsSinceStart);
    const int room = std::min<int>(widest, columns - int(progress.size()) - 3);
    if (room < 1)
        return progress.left(columns);
    const int filled = maximum > 0 ? int(qint64(room) * value / maximum) : 0;
    return QLatin1Char('[') + QString(filled, QLatin1Char('#')) + QString(room - filled, QLatin1Char('.')) +
           QStringLiteral("] ") + progress;
}

Terminal::Terminal(std::FILE* results, std::FILE* messages, bool showsBar) :
    m_results(results), m_messages(messages), m_showsBar(showsBar) {}

void Terminal::print(std::FILE* file, const QString& line) {
    const QString bar = m_bar;
    removeBar();
    const QByteArray bytes = printable(line).toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), file);
    // At once: whoever reads a pipe wants to see each row when it is done.
    if (std::fflush(file) != 0 && file == m_results)
        m_failed = true;
    if (!bar.isEmpty())
        drawBar(bar);
}

void Terminal::result(const QString& line) {
    print(m_results, line);
}

void Terminal::results(const QStringList& lines) {
    for (const QString& line : lines)
        result(line);
}

void Terminal::message(const QString& line) {
    print(m_messages, line);
}

bool Terminal::finish() {
    if (m_failed)
        message(QCoreApplication::translate("CommandLine", "tarsel: standard output can't be written"));
    return !m_failed;
}

void Terminal::drawBar(const QString& line) {
    if (!m_showsBar)
        return;
    m_bar = line;
    std::fputs(eraseLine, m_messages);
    std::fputs(line.toUtf8().constData(), m_messages);
    std::fflush(m_messages);
}

void Terminal::removeBar() {
    if (m_bar.isEmpty())
        return;
    m_bar.clear();
    std::fputs(eraseLine, m_messages);
    std::fflush(m_messages);
}

TerminalProgress::TerminalProgress(Terminal& terminal, SecondsClock clock) :
    m_terminal(terminal), m_clock(clock ? std::move(clock) : SecondsClock(steadySeconds)) {}

void TerminalProgress::start(int maximum, int value) {
    m_started = m_clock();
    m_maximum = maximum;
    setValue(value);
}

void TerminalProgress::setValue(int value) {
    if (m_terminal.showsBar())
        m_terminal.drawBar(barLine(value, m_maximum, m_clock() - m_started, terminalColumns() - 1));
}

void TerminalProgress::hide() {
    m_terminal.removeBar();
}

} // namespace tarsel::cli
