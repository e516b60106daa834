// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/NamePlan.h"

#include "base/ErrorTrap.h"
#include "codecs/PictureFile.h"
#include "collections/LoadSource.h"
#include "collections/clsFileInfo.h"
#include "imaging/Upright.h"
#include "output/Naming.h"
#include "output/OutputName.h"
#include "output/RowSources.h"

#include <QFileInfo>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

/// What can be found out about a picture file without decoding it.
struct SourceFacts {
    int width = 0;
    int height = 0;
    MetadataStore metadata;
};

/// Raises what the codec raises; error 0x8000FFFF for content that nothing knows.
SourceFacts readSourceFacts(const QString& path, bool upright) {
    const PictureFile file(path);
    const PictureHeader header = file.header();
    SourceFacts facts{header.width, header.height, {}};
    if (carriesMetadata(path))
        facts.metadata = MetadataStore(file.metadata());
    if (upright && exchangesSides(exifOrientation(facts.metadata)))
        std::swap(facts.width, facts.height);
    return facts;
}

TokenNeeds strongestNeed(const settings::BatchSave& settings) {
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

void setUnknown(PlannedName& planned, const QString& fact) {
    planned.clash = NameClash::NotKnown;
    planned.fact = fact;
}

void setClash(PlannedName& planned, NameClash clash, int otherRow) {
    planned.clash = clash;
    planned.otherRow = otherRow;
}

/// Fills in the target, or why there can be none.
void nameRow(PlannedName& planned, const settings::BatchSave& settings, const QString& text,
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

QString otherSourceText(const PlannedName& planned, bool overwrite) {
    if (!overwrite)
        return NamePlanner::tr("is the source of row %1: the row will be skipped").arg(planned.otherRow);
    const bool isStillRead = planned.otherRow > planned.row;
    return (isStillRead ? NamePlanner::tr("is the source of row %1: will be replaced, but that row still "
                                          "reads it as it is now")
                        : NamePlanner::tr("is the source of row %1: will be replaced"))
        .arg(planned.otherRow);
}

} // namespace

QString clashText(const PlannedName& planned, bool overwrite) {
    switch (planned.clash) {
    case NameClash::None:
        return {};
    case NameClash::Exists:
        return overwrite ? NamePlanner::tr("exists already: will be replaced")
                         : NamePlanner::tr("exists already: the row will be skipped");
    case NameClash::SameAsRow:
        return (overwrite ? NamePlanner::tr("the same name as row %1: will be replaced")
                          : NamePlanner::tr("the same name as row %1: the row will be skipped"))
            .arg(planned.otherRow);
    case NameClash::OwnSource:
        return overwrite ? NamePlanner::tr("is the row's own source: will be replaced")
                         : NamePlanner::tr("is the row's own source: the row will be skipped");
    case NameClash::OtherSource:
        return otherSourceText(planned, overwrite);
    case NameClash::NotKnown:
        return NamePlanner::tr("not known before the run: %1").arg(planned.fact);
    case NameClash::Invalid:
        return NamePlanner::tr("the run would end here: %1").arg(planned.fact);
    }
    return {};
}

NamePlanner::NamePlanner(const ListView& lvPages, const ListView& tasks,
                         const settings::BatchSave& settings) :
    m_pages(lvPages),
    m_settings(settings), m_tasksRun(settings.ProcessEditingList == 1 && !tasks.isEmpty()) {}

void NamePlanner::findSources(int index) {
    for (const QString& path : sourcesOfRow(m_pages.row(index))) {
        std::vector<int>& rows = m_sources[FileIdentity::of(path)];
        if (rows.empty() || rows.back() != index + 1)
            rows.push_back(index + 1);
    }
}

std::vector<PlannedName> NamePlanner::next(int rows) {
    std::vector<PlannedName> names;
    if (m_sourcesFound < m_pages.count()) {
        for (; rows > 0 && m_sourcesFound < m_pages.count(); --rows)
            findSources(m_sourcesFound++);
        return names;
    }
    for (; rows > 0 && !finished(); --rows, ++m_next)
        names.push_back(plan(m_next));
    return names;
}

PlannedName NamePlanner::plan(int index) {
    PlannedName planned;
    planned.row = index + 1;
    planned.source = m_pages.row(index).tag;
    if (strongestNeed(m_settings) == TokenNeeds::Result && m_tasksRun) {
        setUnknown(planned, tr("it depends on the size after the tasks"));
        return planned;
    }
    SourceFacts source;
    try {
        if (strongestNeed(m_settings) >= TokenNeeds::Source)
            source = readSourceFacts(planned.source, m_settings.UprightByExif == 1);
    } catch (const TrappedError& error) {
        setUnknown(planned, error.description);
        return planned;
    }
    nameRow(planned, m_settings, m_pages.row(index).text, source);
    if (planned.clash == NameClash::None)
        findClash(planned);
    return planned;
}

/// What the user must know first comes first: a source that is still needed, the row's own source, that of an
/// earlier row, the file of an earlier row.
void NamePlanner::findClash(PlannedName& planned) {
    const FileIdentity target = FileIdentity::of(planned.target);
    const std::vector<int> sources = m_sources.value(target); // in the order of the rows
    const bool isOwn = std::ranges::count(sources, planned.row) > 0;
    const int sameName = m_targets.value(target);
    m_targets.insert(target, planned.row);
    if (!sources.empty() && sources.back() > planned.row)
        setClash(planned, NameClash::OtherSource, sources.back());
    else if (isOwn)
        setClash(planned, NameClash::OwnSource, 0);
    else if (!sources.empty())
        setClash(planned, NameClash::OtherSource, sources.back());
    else if (sameName != 0)
        setClash(planned, NameClash::SameAsRow, sameName);
    else if (QFileInfo::exists(planned.target))
        setClash(planned, NameClash::Exists, 0);
}

std::vector<PlannedName> planNames(const ListView& lvPages, const ListView& tasks,
                                   const settings::BatchSave& settings) {
    NamePlanner planner(lvPages, tasks, settings);
    std::vector<PlannedName> names;
    while (!planner.finished())
        names = planner.next(lvPages.count());
    return names;
}

} // namespace tarsel
