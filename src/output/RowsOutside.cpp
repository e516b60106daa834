// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/RowsOutside.h"

#include "base/ErrorTrap.h"
#include "collections/clsFileInfo.h"
#include "output/Naming.h"
#include "output/OutputName.h"
#include "output/RowSources.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

enum NameOption { Hybrid = 1, Generic = 2 };

/// Links in the way to a folder don't count.
QString realFolder(const QString& folder) {
    const QString real = QFileInfo(folder).canonicalFilePath();
    return (real.isEmpty() ? QDir::cleanPath(folder) : real) + QLatin1Char('/');
}

bool dependOnPictures(const settings::BatchSave& settings) {
    return settings.NameOption == Hybrid && std::max(tokenNeeds(settings.RenamePrefix),
                                                     tokenNeeds(settings.RenameSuffix)) > TokenNeeds::Nothing;
}

QString fixedText(const QString& token) {
    static const MetadataStore none;
    QString text;
    evaluateToken(
        token, {.sourceResolution = {}, .metadata = none, .path = {}, .extension = outputExtension()}, text);
    return text;
}

} // namespace

RowsOutside::RowsOutside(const ListView& pages, const settings::BatchSave& settings, const BatchRun& run) {
    const int last = run.lastRow > 0 ? run.lastRow : pages.count();
    const bool isSlice = run.firstRow > 1 || last < pages.count();
    if (!isSlice || settings.Overwrite != 1 || settings.NameOption == Generic) // each row has its own number
        return;
    m_areKnown = !dependOnPictures(settings);
    QHash<QString, QString> realFolders;
    for (int row = 1; m_areKnown && row <= pages.count(); ++row) {
        if (row >= run.firstRow && row <= last)
            continue;
        const ListRow& each = pages.row(row - 1);
        const OutputName name =
            outputName(settings, {row, each.text, sourceFolder(each, run.pagesToDocumentFolder)}, fixedText);
        QString& folder = realFolders[name.folder];
        if (folder.isEmpty())
            folder = realFolder(name.folder);
        m_rows.insert(folder + name.name, row);
    }
}

int RowsOutside::rowOf(const QString& target) const {
    if (m_rows.isEmpty())
        return 0;
    const QFileInfo file(target);
    return m_rows.value(realFolder(file.path()) + file.fileName());
}

} // namespace tarsel
