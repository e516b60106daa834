// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFields.h"
#include "configuration/ConfigFile.h"
#include "configuration/SettingsBeside.h"
#include "help/HelpTopics.h"
#include "help/Manual.h"
#include "output/Naming.h"
#include "tasks/TaskColumns.h"
#include "tasks/TaskList.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The pages of the manual as they are, against the program.

namespace tarsel::test {

namespace {

const QString folder = QStringLiteral(TARSEL_DOCS "/manual");

class ManualPages : public testing::Test {
protected:
    const Manual manual = Manual::read(folder);

    /// "page", "page#anchor".
    bool isPlace(const QString& place) const {
        const ManualPage* page = manual.page(place.section(u'#', 0, 0));
        return page && (!place.contains(u'#') || page->hasAnchor(place.section(u'#', 1)));
    }
    QString text(const char* page) const {
        const ManualPage* found = manual.page(QString::fromLatin1(page));
        return found ? found->markdown : QString();
    }
    /// What a link of a page leads to, relative to the page's folder.
    void expectTarget(const ManualPage& page, const QString& target) const {
        const QString file = target.section(u'#', 0, 0);
        const bool isPage = file.isEmpty() || (file.endsWith(QLatin1String(".md")) && !file.contains(u'/'));
        const QString place = (file.isEmpty() ? page.name : file.chopped(3)) +
                              (target.contains(u'#') ? u'#' + target.section(u'#', 1) : QString());
        EXPECT_TRUE(isPage ? isPlace(place) : QFileInfo::exists(QFileInfo(page.path).path() + u'/' + file))
            << page.name.toStdString() << ": " << target.toStdString();
    }
};

} // namespace

TEST_F(ManualPages, LeadNowhereThatIsNotThere) {
    const QRegularExpression link(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    ASSERT_GE(manual.pages().size(), 25u);
    QStringList languages = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    languages.removeAll(QStringLiteral("pictures"));
    for (const QString& language : QStringList{{}} + languages) {
        const Manual translated = Manual::read(folder, {language});
        for (const ManualPage& page : translated.pages())
            for (auto it = link.globalMatch(page.markdown); it.hasNext();)
                expectTarget(page, it.next().captured(1));
    }
}

TEST_F(ManualPages, StandInTheContentsWithOneTitleEachAndDistinctAnchors) {
    QSet<QString> listed{QStringLiteral("index")};
    for (const Manual::Entry& entry : manual.contents())
        listed << entry.page;
    for (const ManualPage& page : manual.pages()) {
        EXPECT_TRUE(listed.contains(page.name)) << page.name.toStdString() << " is not in the contents";
        QSet<QString> anchors;
        for (const ManualSection& section : page.sections) {
            EXPECT_FALSE(anchors.contains(section.anchor))
                << page.name.toStdString() << " has two sections " << section.title.toStdString();
            anchors << section.anchor;
            EXPECT_EQ(section.level == 1, &section == &page.sections.front()) << page.name.toStdString();
        }
    }
}

TEST_F(ManualPages, ExplainWhateverF1AsksFor) {
    for (const HelpTopic& topic : helpTopics())
        EXPECT_TRUE(isPlace(QString::fromLatin1(topic.place))) << topic.name << ": " << topic.place;
    for (const TaskKind& kind : taskKinds())
        EXPECT_TRUE(helpTopic(QString::fromLatin1(kind.panelKey)).startsWith(QLatin1String("tasks#")))
            << kind.panelKey;
}

TEST_F(ManualPages, ShowEveryPictureInTheDarkToo) {
    const QRegularExpression light(QStringLiteral("\\]\\(([^)]*/)light-([^)]+)\\)"));
    for (const ManualPage& page : manual.pages())
        for (auto it = light.globalMatch(page.markdown); it.hasNext();) {
            const auto match = it.next();
            EXPECT_TRUE(QFileInfo::exists(
                QDir(folder).filePath(match.captured(1) + QStringLiteral("dark-") + match.captured(2))))
                << match.captured(2).toStdString();
        }
}

TEST_F(ManualPages, ListTheNamingTokensInTheOrderOfTheBoxes) {
    const QRegularExpression row(QStringLiteral("^\\| `(\\[[^`]+\\])` \\|"),
                                 QRegularExpression::MultilineOption);
    const QString table =
        text("naming").section(QStringLiteral("## Tokens"), 1).section(QStringLiteral("## "), 0, 0);
    QStringList tokens;
    for (auto it = row.globalMatch(table); it.hasNext();)
        tokens << it.next().captured(1);
    EXPECT_EQ(tokens.join(u'\n').toStdString(), namingTokens().join(u'\n').toStdString());
    for (const QString& separator : namingSeparators() + namingCounts())
        EXPECT_TRUE(text("naming").contains(u'`' + separator + u'`')) << separator.toStdString();
}

TEST_F(ManualPages, ListTheColumnsOfATaskListAsTheCodeHasThem) {
    const QRegularExpression row(QStringLiteral("^\\| (\\d+) \\| (\\w+) \\| (\\d+) \\| (\\w+) \\|"),
                                 QRegularExpression::MultilineOption);
    QStringList written, expected;
    for (auto it = row.globalMatch(text("format-tbf")); it.hasNext();)
        written << it.next().capturedTexts().mid(1).join(u' ');
    for (const TaskKind& kind : taskKinds())
        for (const TaskColumn& column : taskColumns(kind.number))
            expected << QStringLiteral("%1 %2 %3 %4")
                            .arg(QString::number(kind.number), QLatin1String(kind.rowKey),
                                 QString::number(column.number), QLatin1String(column.name));
    EXPECT_EQ(written.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

TEST_F(ManualPages, ListTheFieldsOfTheConfigurationAsTheFileHasThem) {
    constexpr const char* types[] = {"I1", "I2", "I4", "R8", "S", "F"}; // in the order of FieldType
    const QRegularExpression row(QStringLiteral("^\\| `(\\w+)` \\| (I1|I2|I4|R8|S|F) \\|"),
                                 QRegularExpression::MultilineOption);
    QStringList written, expected;
    for (auto it = row.globalMatch(text("format-configuration")); it.hasNext();)
        written << it.next().capturedTexts().mid(1).join(u' ');
    for (const ConfigField& field : configFields())
        expected << QLatin1String(field.name) + u' ' + QLatin1String(types[size_t(field.type)]);
    EXPECT_EQ(written.join(u'\n').toStdString(), expected.join(u'\n').toStdString());

    const QTemporaryDir home;
    ConfigPath = home.filePath(QStringLiteral("settings"));
    storeSettingsBeside(defaultRecord({}));
    const QString beside = QString::fromUtf8(readWholeFile(settingsPathBeside()));
    EXPECT_TRUE(text("format-configuration").contains(u'\n' + beside + QStringLiteral("```")))
        << beside.toStdString();
}

} // namespace tarsel::test
