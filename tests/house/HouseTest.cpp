// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/house/HouseRules.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarsel::test;

namespace {

const QString table = QStringLiteral("| folder | level | may use | what lives there |\n"
                                     "|---|---|---|---|\n"
                                     "| base | 0 | | ground |\n"
                                     "| logic | 1 | base | thoughts |\n"
                                     "| logic/forms | 1 | base logic, Qt Widgets | windows |\n"
                                     "| aside | - | base logic | a program |\n");

/// A small source tree whose files a test writes.
class HouseChecker : public testing::Test {
protected:
    QTemporaryDir folder;
    HouseRules rules{table, {QStringLiteral("QLabel")}};

    void write(const char* name, const char* text) {
        const QString path = folder.filePath(QString::fromUtf8(name));
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QString faults() const { return rules.faultsOfTree(folder.path()).join(QLatin1Char('\n')); }
};

QString listed(const QStringList& faults) {
    return faults.join(QLatin1Char('\n'));
}

HouseRules ownRules() {
    QFile readme(QStringLiteral(TARSEL_SOURCES "/README.md"));
    EXPECT_TRUE(readme.open(QIODevice::ReadOnly));
    const QStringList headers = QDir(QStringLiteral(TARSEL_WIDGET_HEADERS)).entryList(QDir::Files);
    return HouseRules(QString::fromUtf8(readme.readAll()), {headers.begin(), headers.end()});
}

} // namespace

TEST_F(HouseChecker, WhatTheTableAllowsIsNoFault) {
    write("base/A.h", "#include <QString>\n#include \"base/B.h\"\n");
    write("logic/deep/C.cpp", "#include \"base/A.h\"\n#include \"logic/C.h\"\n");
    write("logic/forms/D.cpp", "#include \"logic/C.h\"\n#include <QLabel>\n");
    write("logic/forms/CMakeLists.txt", "tarsel_library(logic_forms USES tarsel_logic Qt6::Widgets)");
    write("aside/main.cpp", "#include \"logic/C.h\"\n");
    write("CMakeLists.txt", "add_subdirectory(base)");
    EXPECT_EQ(faults(), QString());
}

TEST_F(HouseChecker, EveryWrongIncludeIsNamed) {
    write("base/A.h", "  #  include \"logic/C.h\"\n");
    write("base/B.cpp", "#include <QLabel>\n");
    write("logic/C.cpp", "#include \"logic/forms/D.h\"\n#include <QtWidgets/QLabel>\n#include \"C.h\"\n");
    write("cellar/E.cpp", "");
    EXPECT_EQ(faults(), QStringLiteral("base/A.h: base may not use logic\n"
                                       "base/B.cpp: base may not use <QLabel>\n"
                                       "cellar/E.cpp: lies in no folder of the table\n"
                                       "logic/C.cpp: C.h does not begin with a folder of the table\n"
                                       "logic/C.cpp: logic may not use <QtWidgets/QLabel>\n"
                                       "logic/C.cpp: logic may not use logic/forms"));
}

TEST_F(HouseChecker, EveryWrongLibraryIsNamed) {
    write("base/CMakeLists.txt",
          "# tarsel_logic\ntarsel_library(base SOURCES A.h USES tarsel_logic Qt6::Widgets)\n"
          "target_link_libraries(tarsel_base PRIVATE tarsel_flags tarsel_logic_forms)");
    EXPECT_EQ(faults(), QStringLiteral("base/CMakeLists.txt: base may not link Qt6::Widgets\n"
                                       "base/CMakeLists.txt: base may not link tarsel_logic\n"
                                       "base/CMakeLists.txt: base may not link tarsel_logic_forms"));
}

TEST_F(HouseChecker, ATableThatLooksUpwardsIsAFault) {
    const HouseRules wrong(QStringLiteral("| a | 1 | b c |  |\n| b | 1 | |  |\n"), {});
    EXPECT_EQ(listed(wrong.faultsOfTable()),
              QStringLiteral("a uses b, which is no lower\na uses c, which has no row"));
    EXPECT_EQ(listed(rules.faultsOfTable()), QString());
}

TEST(House, TheTableHasNoCircle) {
    EXPECT_GE(ownRules().rules().size(), 10);
    EXPECT_EQ(listed(ownRules().faultsOfTable()), QString());
}

TEST(House, EveryIncludeAndEveryLibraryIsOneThatTheTableAllows) {
    EXPECT_EQ(listed(ownRules().faultsOfTree(QStringLiteral(TARSEL_SOURCES))), QString());
}
