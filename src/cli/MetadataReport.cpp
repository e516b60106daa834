// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/MetadataReport.h"

#include "base/ErrorSubject.h"
#include "cli/FilePaths.h"
#include "cli/JsonLine.h"
#include "metadata/modMetadata.h"

#include <QDir>
#include <QFileInfo>

namespace tarsel::cli {

QStringList editablePictures(const QStringList& operands) {
    if (operands.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "no picture given")};
    QStringList paths;
    for (const QString& operand : operands) {
        const QString path = filePath(operand);
        if (!QFileInfo(path).isDir()) {
            paths << path;
            continue;
        }
        for (const QString& name : QDir(path).entryList(QDir::Files, QDir::Name))
            if (modMetadata::listedMetadata(QFileInfo(name).suffix()) != modMetadata::ListedMetadata::None)
                paths << QDir(path).filePath(name);
    }
    return paths;
}

MetadataReport::MetadataReport(const Arguments& arguments, Terminal& terminal) :
    m_terminal(terminal), m_json(arguments.has("json")), m_isDry(arguments.has("dry-run")) {}

void MetadataReport::addNone(bool isEmpty) {
    if (isEmpty)
        m_terminal.message(QCoreApplication::translate("CommandLine", "no files"));
}

void MetadataReport::add(const QString& path, const MetadataOutcome& outcome) {
    m_failed = m_failed || !outcome.reason.isEmpty();
    if (m_json)
        return addJson(path, outcome);
    const QString state = QLatin1String(outcome.state) + QStringLiteral(": ");
    QStringList files;
    for (const auto& [key, file] : outcome.files)
        files << file;
    const QString made =
        files.isEmpty() ? QString() : QStringLiteral(" -> ") + files.join(QStringLiteral(", "));
    if (outcome.reason.isEmpty())
        m_terminal.result(state + path + made);
    else
        m_terminal.message(state + namingPath(path, outcome.reason));
    if (!outcome.remark.isEmpty())
        m_terminal.message(path + QStringLiteral(": ") + outcome.remark);
}

void MetadataReport::addJson(const QString& path, const MetadataOutcome& outcome) {
    JsonLine line;
    line.add("path", path)
        .add("state", QLatin1String(outcome.state))
        .add("reason", outcome.reason)
        .add("remark", outcome.remark);
    for (const auto& [key, file] : outcome.files)
        line.add(key, file);
    m_terminal.result(line.text());
}

} // namespace tarsel::cli
