// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "output/Naming.h"
#include "tests/cli/Program.h"
#include "tests/support/TestLanguages.h"
#include "tests/support/Text.h"

#include <QDirIterator>
#include <QMap>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// A user of the language whom the program addresses in it.
ProgramRun runIn(const char* language, const PictureFolder& folder, const QString& words) {
    const QString line = text("LC_ALL=C.UTF-8 LANGUAGE=%1 \"$TARSEL\" %2").arg(text(language), words);
    return runShell(line.toUtf8().constData(), folder.path());
}

QMap<QString, QByteArray> filesOf(const PictureFolder& folder) {
    QMap<QString, QByteArray> files;
    for (QDirIterator it(folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
         it.hasNext();) {
        const QString path = it.next();
        files.insert(path.mid(folder.path().size()),
                     readWholeFile(path).replace(folder.path().toUtf8(), "FOLDER"));
    }
    return files;
}

/// What a user makes with the command line: names of every token, an album, lists and side files.
QString everyWriter() {
    QStringList lines;
    for (const QString& token : namingTokens())
        if (!token.contains(text("Today")) && !token.contains(text("Accessed")) &&
            !token.contains(text("Modified")) && !token.contains(text("Created")))
            lines << text("batch --out named --name hybrid --prefix '%1' a.jpg").arg(token);
    lines << text("metadata set --exif Artist=Ann --iptc Caption=River a.jpg")
          << text("basket save list.ibf a.jpg b.jpg")
          << text("basket save list.ibd --description River a.jpg b.jpg")
          << text("album --out album --metadata lines.mbf a.jpg b.jpg")
          << text("metadata export --exif a.xiff --iptc a.ffo a.jpg");
    return lines.join(text(" >/dev/null && \"$TARSEL\" "));
}

class GermanProgram : public testing::Test {
protected:
    void SetUp() override {
        if (!german.isBuilt())
            GTEST_SKIP() << "translations are not built without Qt's lrelease";
    }
    const NotedLanguage german{"de"};
    const PictureFolder folder;
};

} // namespace

TEST_F(GermanProgram, HasTheHelpOfEveryCommandWithItsLinesWithinAWideTerminal) {
    QString pages = cli::programHelp();
    for (const cli::Command* command : cli::commands())
        pages += cli::commandHelp(*command);
    EXPECT_EQ(german.missing(), "");
    for (const QString& line : pages.split(u'\n'))
        EXPECT_LE(line.size(), 130) << line.toStdString();
}

TEST_F(GermanProgram, SpeaksGermanToAGermanUserAndEnglishToScripts) {
    EXPECT_TRUE(contains(runIn("de", folder, text("--help")).output, "Befehle:"));
    const QByteArray plainLocale = "LANG=de_DE.ISO-8859-1 \"$TARSEL\" --help";
    EXPECT_TRUE(contains(runShell(plainLocale.constData(), folder.path()).output, "Befehle:"));
    EXPECT_TRUE(contains(runIn("en:de", folder, text("--help")).output, "Commands:"));
    EXPECT_TRUE(
        contains(runIn("de", folder, text("batch --out new a.jpg gone.jpg")).messages, "geschrieben"));
    EXPECT_EQ(runIn("de", folder, text("metadata set --iptc 'Date Created=2024-02-11' a.jpg")).status, 0);
    const QString words = text("info --json a.jpg gone.jpg");
    const QByteArray facts = runIn("de", folder, words).output;
    EXPECT_EQ(facts, runIn("en", folder, words).output);
    EXPECT_TRUE(contains(facts, "2/11/2024"));
    EXPECT_TRUE(contains(runIn("de", folder, text("info a.jpg")).output, "2/11/2024"))
        << "only its words are German";
}

TEST_F(GermanProgram, WritesTheSameFilesAsInEnglish) {
    QMap<QString, QByteArray> english;
    for (const char* language : {"en", "de"}) {
        const PictureFolder own;
        writeFileSafely(own.path("lines.mbf"), "EXIF - Artist\r\nIPTC - Caption\r\n");
        const ProgramRun run = runIn(language, own, everyWriter());
        EXPECT_EQ(run.status, 0) << run.messages.constData();
        const QMap<QString, QByteArray> written = filesOf(own);
        EXPECT_EQ(written.keys(), english.isEmpty() ? written.keys() : english.keys());
        for (auto file = english.cbegin(); file != english.cend(); ++file)
            EXPECT_EQ(written.value(file.key()), file.value()) << file.key().toStdString();
        english = written;
    }
    EXPECT_GT(english.size(), 20);
}
