// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/NamePlan.h"

#include "base/ErrorTrap.h"
#include "codecs/PictureFile.h"
#include "collections/clsFileInfo.h"
#include "output/LoadSource.h"
#include "output/Naming.h"
#include "output/OutputName.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

/// What is known of a picture file without decoding it.
struct SourceFacts {
    int width = 0;
    int height = 0;
    MetadataStore metadata;
};

/// Raises what the codec raises; error 0x8000FFFF for content that nothing knows.
SourceFacts readSourceFacts(const QString& path) {
    const PictureFile file(path);
    const PictureHeader header = file.header();
    SourceFacts facts{header.width, header.height, {}};
    if (carriesMetadata(path))
        facts.metadata = MetadataStore(file.metadata());
    return facts;
}

TokenNeeds strongestNeed(const BatchSave& settings) {
    if (settings.NameOption != 1)
        return TokenNeeds::Nothing;
    return std::max(tokenNeeds(settings.RenamePrefix), tokenNeeds(settings.RenameSuffix));
}

/// A token's text as the run would take it; what stands in the result when an error is raised stays.
QString quietTokenText(const QString& token, const NamingFacts& facts) {
    QString text;
    ignoringErrors([&] { evaluateToken(token, facts, text); });
    return text;
}

bool isSameFile(const QString& one, const QString& other) {
    return QFileInfo(one).canonicalFilePath() == QFileInfo(other).canonicalFilePath();
}

void setUnknown(PlannedName& planned, const QString& fact) {
    planned.clash = NameClash::NotKnown;
    planned.fact = fact;
}

/// Fills in the target, or why there can be none.
void nameRow(PlannedName& planned, const BatchSave& settings, const QString& text,
             const SourceFacts& source) {
    const NamingFacts facts{.width = source.width,
                            .height = source.height,
                            .sourceResolution = QStringLiteral("%1x%2").arg(source.width).arg(source.height),
                            .metadata = source.metadata,
                            .path = planned.source,
                            .extension = outputExtension()};
    try {
        const OutputName name =
            outputName(settings, {planned.row, text, modFileSystem::GetFolderPart(planned.source)},
                       [&](const QString& token) { return quietTokenText(token, facts); });
        planned.target = name.path();
        planned.fact = nameFault(name);
    } catch (const TrappedError& error) {
        planned.fact = error.description;
    }
    if (!planned.fact.isEmpty())
        planned.clash = NameClash::Invalid;
}

} // namespace

QString clashText(const PlannedName& planned, bool overwrite) {
    const QString consequence =
        overwrite ? QStringLiteral("will be replaced") : QStringLiteral("the row will be skipped");
    switch (planned.clash) {
    case NameClash::None:
        return {};
    case NameClash::Exists:
        return QStringLiteral("exists already: ") + consequence;
    case NameClash::SameAsRow:
        return QStringLiteral("the same name as row %1: ").arg(planned.otherRow) + consequence;
    case NameClash::OwnSource:
        return QStringLiteral("is the row's own source: ") + consequence;
    case NameClash::OtherSource:
        return QStringLiteral("is the source of row %1: ").arg(planned.otherRow) + consequence;
    case NameClash::NotKnown:
        return QStringLiteral("not known before the run: ") + planned.fact;
    case NameClash::Invalid:
        return QStringLiteral("the run would end here: ") + planned.fact;
    }
    return {};
}

NamePlanner::NamePlanner(const ListView& lvPages, const ListView& tasks, const BatchSave& settings) :
    m_pages(lvPages), m_settings(settings), m_tasksRun(settings.ProcessEditingList == 1 && !tasks.isEmpty()) {
    for (int i = 0; i < lvPages.count(); ++i)
        m_sources.insert(QDir::cleanPath(lvPages.row(i).tag), i + 1);
}

std::vector<PlannedName> NamePlanner::next(int rows) {
    std::vector<PlannedName> names;
    for (; rows > 0 && !finished(); --rows, ++m_next)
        names.push_back(plan(m_next));
    return names;
}

PlannedName NamePlanner::plan(int index) {
    PlannedName planned;
    planned.row = index + 1;
    planned.source = m_pages.row(index).tag;
    if (strongestNeed(m_settings) == TokenNeeds::Result && m_tasksRun) {
        setUnknown(planned, QStringLiteral("it tells the size after the tasks"));
        return planned;
    }
    SourceFacts source;
    try {
        if (strongestNeed(m_settings) >= TokenNeeds::Source)
            source = readSourceFacts(planned.source);
    } catch (const TrappedError& error) {
        setUnknown(planned, error.description);
        return planned;
    }
    nameRow(planned, m_settings, m_pages.row(index).text, source);
    if (planned.clash == NameClash::None)
        findClash(planned);
    return planned;
}

void NamePlanner::findClash(PlannedName& planned) {
    const QString target = QDir::cleanPath(planned.target);
    const int sameName = m_targets.value(target);
    m_targets.insert(target, planned.row);
    const bool exists = QFileInfo::exists(target);
    const int otherSource = m_sources.value(target);
    if (exists && isSameFile(target, planned.source)) {
        planned.clash = NameClash::OwnSource;
    } else if (otherSource != 0 && otherSource != planned.row) {
        planned.clash = NameClash::OtherSource;
        planned.otherRow = otherSource;
    } else if (sameName != 0) {
        planned.clash = NameClash::SameAsRow;
        planned.otherRow = sameName;
    } else if (exists) {
        planned.clash = NameClash::Exists;
    }
}

std::vector<PlannedName> planNames(const ListView& lvPages, const ListView& tasks,
                                   const BatchSave& settings) {
    return NamePlanner(lvPages, tasks, settings).next(lvPages.count());
}

} // namespace tarsel
