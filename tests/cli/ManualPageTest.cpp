// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ManualPage.h"
#include "cli/CommandLine.h"
#include "cli/CompletedWord.h"
#include "cli/Examples.h"
#include "cli/ManualText.h"
#include "tests/cli/Program.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace tarsel::test {

using namespace tarsel::cli;

namespace {

const Command* commandNamed(const char* name) {
    for (const Command* command : commands())
        if (QLatin1String(command->name) == QLatin1String(name))
            return command;
    return nullptr;
}

/// What is put before an option, so that nothing else is wrong with the line.
const char* lineBefore(const Command& command) {
    static const std::pair<const char*, const char*> lines[] = {
        {"batch", "a.jpg"},
        {"album", "--out album a.jpg"},
        {"saver", "--out a a.jpg"},
        {"slide", "--out a a.jpg"},
        {"greeting", "--out a --style clock a.jpg"},
        {"encode", "a.jpg b.bmp"},
        {"print", "--pdf a.pdf a.jpg"},
        {"metadata export", "a.jpg"},
    };
    for (const auto& [name, words] : lines)
        if (QLatin1String(command.name) == QLatin1String(name))
            return words;
    return nullptr;
}

} // namespace

TEST(ManualPages, EveryCommandHasAnExampleThatTheCommandUnderstands) {
    QStringList shown;
    for (const Example& example : examples()) {
        const Command* command = commandNamed(example.command);
        ASSERT_TRUE(command) << example.command;
        shown << QLatin1String(example.command);
        const QString words = QString::fromUtf8(example.words).replace(u'\'', u'"');
        EXPECT_NO_THROW(Arguments(QProcess::splitCommand(words), command->options)) << example.words;
    }
    for (const Command* command : commands())
        EXPECT_TRUE(shown.contains(QLatin1String(command->name))) << command->name;
}

TEST(ManualPages, WhatRoffWouldTakeForARequestIsPrintedAsText) {
    ManualText page(QStringLiteral("tarsel-x"), QStringLiteral("2026-11-22"));
    page.paragraph(QStringLiteral(".tbf files\nhave a \\ and --out. 'Quoted' words. End"));
    page.example(QStringLiteral("'a' ~ ^ `"));
    EXPECT_EQ(page.text().section(u'\n', 1).toStdString(),
              ".PP\n\\&.tbf files have a \\e and \\-\\-out.\n\\&'Quoted' words.\nEnd\n"
              ".PP\n.RS 4\n.nf\n\\(aqa\\(aq \\(ti \\(ha \\(ga\n.fi\n.RE\n");
}

TEST(ManualPages, PagesReferToEachOtherAndToNothingElse) {
    const QList<ManualPage> pages = manualPages(QStringLiteral("2026-11-22"));
    QStringList names;
    for (const ManualPage& page : pages)
        names << QString(page.fileName).chopped(2);
    for (const ManualPage& page : pages)
        for (const QString& line :
             page.text.section(QStringLiteral(".SH \"SEE ALSO\"\n"), 1).split(u'\n', Qt::SkipEmptyParts)) {
            const QString name = QString(line).section(QStringLiteral("\\fP(1)"), 0, 0).mid(3).remove(u'\\');
            EXPECT_TRUE(names.contains(name)) << page.fileName.toStdString() << ": " << line.toStdString();
        }
}

TEST(CommandHelp, NamesWhatIsRequiredAndKeepsItsColumns) {
    for (const Command* command : commands()) {
        const QString help = commandHelp(*command);
        const QString usage = help.section(u'\n', 0, 0);
        EXPECT_FALSE(help.contains(QStringLiteral(" \n"))) << command->name;
        for (const OptionSpec& option : command->options)
            if (QString::fromUtf8(option.help).contains(QStringLiteral("required"))) {
                EXPECT_TRUE(usage.contains(QStringLiteral("--") + QLatin1String(option.name)))
                    << usage.toStdString();
            }
        const QString options =
            help.section(QStringLiteral("Options:\n"), 1).section(QStringLiteral("\n\n"), 0, 0);
        for (const QString& line : options.split(u'\n'))
            EXPECT_TRUE(line.startsWith(QStringLiteral("  "))) << line.toStdString();
    }
}

TEST(Completions, ChoicesAreThoseThatTheProgramTakes) {
    const PictureFolder folder;
    int tried = 0;
    for (const Command* command : commands()) {
        const char* before = lineBefore(*command);
        for (const OptionSpec& option : command->options) {
            const CompletedWord value = completedValue(*command, option);
            const QString name = QStringLiteral("--") + QLatin1String(option.name);
            if (!before || value.kind != CompletedWord::Choice || name == u"--format" ||
                name == u"--compression" || QString::fromLatin1(before).contains(name))
                continue;
            const auto status = [&](const QString& word) {
                return folder
                    .run(QString::fromLatin1(command->name).split(u' ') + QStringList{name, word} +
                         commandLine(before))
                    .status;
            };
            EXPECT_EQ(status(QStringLiteral("wrong")), WrongUsage)
                << command->name << ' ' << name.toStdString();
            ++tried;
            // The others cost a complete run each.
            EXPECT_NE(status(value.words.last()), WrongUsage) << command->name << ' ' << name.toStdString();
        }
    }
    EXPECT_GT(tried, 10);
}

} // namespace tarsel::test
