// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/Terminal.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <utility>

namespace tarsel::cli {

constexpr OptionSpec jsonOption = {
    "json", nullptr, QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line for each picture")};
constexpr OptionSpec dryRunOption = {
    "dry-run", nullptr, QT_TRANSLATE_NOOP("CommandLine", "try it and say what would be done; write nothing")};

/// Files as they are given; of a folder, the pictures in it whose metadata can be written, by name.
/// UsageError for no operands.
QStringList editablePictures(const QStringList& operands);

/// What became of a picture.
struct MetadataOutcome {
    const char* state;
    QString reason; ///< of a failure
    QString remark = {};
    QList<std::pair<const char*, QString>> files = {}; ///< that were made of it, by the key that JSON gets
};

/// What became of each picture, as lines or as JSON.
class MetadataReport {
public:
    MetadataReport(const Arguments& arguments, Terminal& terminal);

    void addNone(bool isEmpty);
    void add(const QString& path, const MetadataOutcome& outcome);

    bool isDry() const { return m_isDry; }
    int status() const { return exitStatus(!m_failed); }

private:
    void addJson(const QString& path, const MetadataOutcome& outcome);

    Terminal& m_terminal;
    bool m_json;
    bool m_isDry;
    bool m_failed = false;
};

/// Until the user interrupts.
template <class Items, class Step>
int forEach(const Items& items, const Arguments& arguments, Terminal& terminal, Step&& step) {
    const InterruptScope interruptible;
    MetadataReport report(arguments, terminal);
    report.addNone(items.isEmpty());
    for (const auto& item : items) {
        if (wasInterrupted())
            break;
        step(item, report);
    }
    return report.status();
}

} // namespace tarsel::cli
