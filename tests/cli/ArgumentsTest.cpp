// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Arguments.h"
#include "base/TrappedError.h"
#include "cli/Command.h"
#include "cli/CommandLine.h"
#include "cli/JsonLine.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QTranslator>
#include <gtest/gtest.h>

using namespace tarsel::cli;
using namespace tarsel::test;

namespace {

constexpr OptionSpec options[] = {{"out", "FOLDER", "where"}, {"json", nullptr, "as JSON"}};

} // namespace

TEST(Arguments, OptionsStandAnywhereAndInBothSpellings) {
    for (const char* words : {"--out x --json a b", "a --out=x b --json", "a b --json --out x"}) {
        const Arguments arguments(commandLine(words), options);
        EXPECT_EQ(arguments.value("out"), QStringLiteral("x")) << words;
        EXPECT_TRUE(arguments.has("json"));
        EXPECT_EQ(arguments.operands(), commandLine("a b"));
    }
}

TEST(Arguments, ValuesAndOperandsMayBeEmptyOrBeginWithDashes) {
    const Arguments dashes(commandLine("--json -- --out -x --help"), options);
    EXPECT_EQ(dashes.operands(), commandLine("--out -x --help"));
    EXPECT_FALSE(dashes.wantsHelp());
    EXPECT_EQ(Arguments(commandLine("--out="), options).value("out"), QString());
    EXPECT_TRUE(Arguments(commandLine("--out="), options).has("out"));
    EXPECT_EQ(Arguments(commandLine("--out -"), options).value("out"), QStringLiteral("-"));
    EXPECT_EQ(Arguments(commandLine("--out=a=b"), options).value("out"), QStringLiteral("a=b"));
}

TEST(Arguments, RefusalsNameTheWord) {
    const std::pair<const char*, const char*> cases[] = {
        {"--outt x", "--outt"},     {"--outt=x", "--outt"}, {"--out", "FOLDER"},
        {"--json=1", "--json"},     {"-o", "-o"},           {"--out x --out y", "--out"},
        {"--json --json", "--json"}};
    for (const auto& [words, part] : cases)
        try {
            const Arguments arguments(commandLine(words), options);
            ADD_FAILURE() << words;
        } catch (const UsageError& error) {
            EXPECT_TRUE(contains(error.fact, part)) << words;
        }
}

TEST(Help, EveryCommandListsAllItsOptions) {
    for (const Command* command : commands()) {
        EXPECT_TRUE(programHelp().contains(QLatin1String(command->name)));
        const QString help = commandHelp(*command);
        for (const OptionSpec& option : command->options)
            EXPECT_TRUE(help.contains(QStringLiteral("--") + QLatin1String(option.name))) << command->name;
        for (const QString& line : help.split(QLatin1Char('\n')))
            EXPECT_LE(line.size(), 120) << qPrintable(line);
    }
}

TEST(Help, TextsAreThoseOfTheUsersLanguage) {
    class Marking final : public QTranslator {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* source, const char*, int) const override {
            return text(context) + text("!") + text(source);
        }
    } marking;
    QCoreApplication::installTranslator(&marking);
    EXPECT_TRUE(contains(commandHelp(batchCommand), "CommandLine!skip rows whose file exists"));
    EXPECT_TRUE(contains(commandHelp(infoCommand), "CommandLine!A picture that can't be read"));
    EXPECT_EQ(tarsel::errorText(61), text("ErrorNumber!Disk full"));
    QCoreApplication::removeTranslator(&marking);
}

TEST(JsonLine, AnyTextSurvivesAForeignParser) {
    const QString odd = QStringLiteral("quote\" back\\slash \n\t\r\b/ \u00e9 \U0001F600 \u2028") + QChar(0) +
                        QChar(0x1f) + QChar(0x7f);
    const QString line =
        JsonLine().add("text", odd).add("number", -3).add("real", 0.1).addNull("none").text();
    EXPECT_FALSE(line.contains(QLatin1Char('\n')));
    const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
    EXPECT_EQ(object.value(QStringLiteral("text")).toString(), odd);
    EXPECT_EQ(object.value(QStringLiteral("number")).toInt(), -3);
    EXPECT_DOUBLE_EQ(object.value(QStringLiteral("real")).toDouble(), 0.1);
    EXPECT_TRUE(object.value(QStringLiteral("none")).isNull());
    for (const char* half : {"\\ud800", "\\udc00"}) {
        const QChar character(char16_t(QByteArray(half).mid(2).toUShort(nullptr, 16)));
        EXPECT_TRUE(JsonLine().add("half", QString(character)).text().contains(QLatin1String(half))) << half;
    }
}
