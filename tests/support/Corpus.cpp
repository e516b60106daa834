// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Corpus.h"

#include <QFile>

namespace tarsel::test {

std::optional<QString> corpusFolder() {
    const QString configured = QStringLiteral(TARSEL_CORPUS_DEFAULT);
    const QString folder = qEnvironmentVariable("TARSEL_CORPUS", configured);
    if (folder.isEmpty() || !QFile::exists(folder + QStringLiteral("/MANIFEST.tsv")))
        return std::nullopt;
    return folder;
}

std::vector<CorpusPicture> corpusPictures() {
    std::vector<CorpusPicture> pictures;
    const auto folder = corpusFolder();
    if (!folder)
        return pictures;
    QFile manifest(*folder + QStringLiteral("/MANIFEST.tsv"));
    if (!manifest.open(QIODevice::ReadOnly))
        return pictures;
    const QStringList headings = QString::fromUtf8(manifest.readLine()).trimmed().split(QLatin1Char('\t'));
    while (!manifest.atEnd()) {
        const QStringList cells = QString::fromUtf8(manifest.readLine()).split(QLatin1Char('\t'));
        if (cells.size() < headings.size())
            continue;
        CorpusPicture picture{*folder + QLatin1Char('/') + cells.first(), {}};
        for (qsizetype i = 0; i < headings.size(); ++i)
            picture.facts.insert(headings[i], cells[i]);
        pictures.push_back(std::move(picture));
    }
    return pictures;
}

} // namespace tarsel::test
