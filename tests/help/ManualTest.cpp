// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/Manual.h"
#include "help/BuildFacts.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class SmallManual : public testing::Test {
protected:
    SmallManual() {
        write("index.md", "# Start\n\n## Work\n\n- [Second](b.md) - later\n- [First](a.md)\n");
        write("a.md", "# First page\n\nA basket of [red apples](b.md#pears-and-plums).\n\n"
                      "## Apples\n\n| kind | size |\n|---|---|\n| **Boskoop** | `80 mm` |\n");
        write("b.md",
              "# Second page\n\nNothing.\n\n## Pears, and plums!\n\n```\n# no heading\n```\nSweet.\n");
        write("orphan.md", "# Orphan\n");
    }
    void write(const char* name, const char* text) {
        const QString path = m_folder.filePath(QString::fromLatin1(name));
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    Manual manual(const QStringList& languages = {}) const {
        return Manual::read(m_folder.path(), languages);
    }
    std::string found(const char* words) const {
        QStringList places;
        for (const Manual::Found& each : manual().find(QString::fromLatin1(words)))
            places << each.page + QLatin1Char('#') + each.anchor;
        return places.join(QLatin1Char(' ')).toStdString();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(SmallManual, HasItsPagesInTheOrderOfTheContentsAndForgetsNone) {
    const Manual all = manual();
    QStringList names;
    for (const ManualPage& page : all.pages())
        names << page.name;
    EXPECT_EQ(names.join(u' ').toStdString(), "index b a orphan");
    QStringList contents;
    for (const auto& [title, page] : manual().contents())
        contents << title + QLatin1Char('=') + page;
    EXPECT_EQ(contents.join(u' ').toStdString(), "Work= Second=b First=a");
    EXPECT_TRUE(Manual::read(QStringLiteral("/no/such/folder")).isEmpty());
    EXPECT_EQ(manual().page(QStringLiteral("c")), nullptr);
}

TEST_F(SmallManual, ReadsHeadingsAndWordsWithoutTheirMarksAndCodeAsCode) {
    const Manual all = manual();
    const ManualPage& page = *all.page(QStringLiteral("b"));
    ASSERT_EQ(page.sections.size(), 2u);
    EXPECT_EQ(page.title().toStdString(), "Second page");
    EXPECT_EQ(page.sections[1].anchor.toStdString(), "pears-and-plums");
    EXPECT_EQ(page.sections[1].text.toStdString(), "# no heading Sweet.");
    EXPECT_EQ(all.page(QStringLiteral("a"))->sections[0].text.toStdString(), "A basket of red apples.");
    EXPECT_EQ(all.page(QStringLiteral("a"))->sections[1].text.toStdString(), "kind size Boskoop 80 mm");
}

TEST_F(SmallManual, FindsTheSectionsThatHaveAllWordsTitlesFirst) {
    EXPECT_EQ(found("APPLES"), "a#apples a#") << "a title before a text";
    EXPECT_EQ(found("basket red"), "a#");
    EXPECT_EQ(found("basket sweet"), "");
    EXPECT_EQ(found("  "), "");
    const auto places = manual().find(QStringLiteral("boskoop"));
    ASSERT_EQ(places.size(), 1u);
    EXPECT_EQ(places[0].title.toStdString(), "First page - Apples");
    EXPECT_TRUE(places[0].excerpt.contains(QLatin1String("Boskoop")));
}

TEST_F(SmallManual, TakesAPageInTheUsersLanguageWhereThereIsOne) {
    write("de/a.md", "# Erste Seite\n");
    const Manual german = manual({QStringLiteral("fr"), QStringLiteral("de")});
    EXPECT_EQ(german.page(QStringLiteral("a"))->title().toStdString(), "Erste Seite");
    EXPECT_EQ(german.page(QStringLiteral("b"))->title().toStdString(), "Second page");
    EXPECT_EQ(german.pages().size(), 4u);
}

TEST(Programs, NameEveryPartWithItsLicenceAndMostWithTheVersionInUse) {
    const QRegularExpression version(QStringLiteral("^\\d+(\\.\\d+)+"));
    int inUse = 0;
    for (const PartFacts& part : programParts()) {
        EXPECT_FALSE(part.licence.isEmpty() || part.purpose.isEmpty()) << part.name.toStdString();
        EXPECT_TRUE(!part.isInUse || version.match(part.version).hasMatch())
            << part.name.toStdString() << " " << part.version.toStdString();
        inUse += part.isInUse;
        EXPECT_TRUE(buildReport().contains(part.name));
    }
    EXPECT_GE(inUse, 5);
    EXPECT_TRUE(buildReport().startsWith(QStringLiteral("Tarsel JPEG: " TARSEL_VERSION "\n")));
}

} // namespace tarsel::test
