// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace tarsel::test {

/// One picture of the corpus: its path and the columns of the manifest by their headings.
struct CorpusPicture {
    QString path;
    QMap<QString, QString> facts;

    QString fact(const char* heading) const { return facts.value(QString::fromLatin1(heading)); }
    int number(const char* heading) const { return fact(heading).toInt(); }
};

/// Folder of the corpus: the environment's TARSEL_CORPUS, else what the build was configured with. Nothing
/// when it has no manifest.
std::optional<QString> corpusFolder();

/// All pictures of the manifest, in its order; empty without a corpus.
std::vector<CorpusPicture> corpusPictures();

} // namespace tarsel::test

/// Skips the test with a message without the corpus.
#define TARSEL_REQUIRE_CORPUS()                                                                              \
    if (!tarsel::test::corpusFolder())                                                                       \
    GTEST_SKIP() << "no picture corpus: set TARSEL_CORPUS"
