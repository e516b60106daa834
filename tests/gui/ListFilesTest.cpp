// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "collections/BasketActions.h"
#include "tasks/TaskBasketActions.h"
#include "tasks/TaskList.h"
#include "tests/support/TestDesktop.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

/// The dialogs that save and open the lists of pictures and tasks.
class ListFiles : public testing::Test {
public:
    ListFiles() {
        ListRow row;
        row.text = QStringLiteral("a");
        row.subItems = QStringList(4, QStringLiteral("/x/a.jpg"));
        lvPages.add(row);
        tasks.appendAsRead({QStringLiteral("1"), QStringLiteral("flip"), {}}, QStringLiteral("flip"));
    }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    void saveBasket() { basketActions::cmdPagesSave(lvPages); }
    void saveTasks() { taskBasketActions::cmdEditBar(2, tasks, false); }

    QTemporaryDir folder;
    TestDesktop desktop;
    ListView lvPages{basketHeaders()};
    TaskList tasks;
};

} // namespace

TEST_F(ListFiles, AListIsReplacedOnlyAfterAQuestionAboutTheNameWithItsExtension) {
    const struct {
        void (ListFiles::*save)();
        int filter;
        const char* typed;
        const char* existing;
    } cases[] = {
        {&ListFiles::saveBasket, 1, "mine", "mine.ibf"},
        {&ListFiles::saveBasket, 2, "my.list", "my.list.ibf"},
        {&ListFiles::saveBasket, 2, "asked.ibf", "asked.ibf"},
        {&ListFiles::saveBasket, 3, "bare", "bare"},
        {&ListFiles::saveTasks, 1, "web", "web.tbf"},
        {&ListFiles::saveTasks, 1, "asked.TBF", "asked.TBF"},
    };
    for (const auto& c : cases) {
        desktop.messages.clear();
        desktop.fileDialogs.clear();
        writeFileSafely(path(c.existing), "old");
        desktop.fileChoices = {FileDialogChoice{path(c.typed), c.filter}, std::nullopt}; // No opens it again
        (this->*c.save)();
        ASSERT_EQ(desktop.messages.size(), 1u) << c.typed;
        EXPECT_TRUE(desktop.messages[0].text.startsWith(QLatin1String(c.existing)));
        EXPECT_TRUE(desktop.fileChoices.empty()) << c.typed;
        EXPECT_EQ(readWholeFile(path(c.existing)), QByteArray("old"));
        EXPECT_EQ(desktop.fileDialogs.back().initialPath, path(c.typed));
        desktop.fileChoices = {FileDialogChoice{path(c.typed), c.filter}};
        desktop.answers = {MessageAnswer::Yes};
        (this->*c.save)();
        EXPECT_NE(readWholeFile(path(c.existing)), QByteArray("old")) << c.typed;
    }
}

TEST_F(ListFiles, DescriptionsAreDroppedOnlyAfterAQuestion) {
    lvPages.setSubItem(0, BasketColumn::Description, QStringLiteral("our dog"));
    for (const bool accepted : {false, true}) {
        desktop.fileChoices = {FileDialogChoice{path("paths.ibf"), 1}};
        desktop.answers = {accepted ? MessageAnswer::Yes : MessageAnswer::No};
        saveBasket();
        EXPECT_EQ(QFile::exists(path("paths.ibf")), accepted);
    }
    desktop.messages.clear();
    desktop.fileChoices = {FileDialogChoice{path("described.ibd"), 3}};
    saveBasket();
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ListFiles, ABasketThatCannotBeOpenedOrWrittenIsReportedByOneMessageWithTheReason) {
    QDir().mkpath(path("folder.ibf"));
    desktop.fileChoices = {FileDialogChoice{path("folder.ibf"), 1}};
    saveBasket();
    ASSERT_EQ(desktop.messages.size(), 1u);
    EXPECT_TRUE(
        desktop.messages[0].text.startsWith(QLatin1String("Error saving image list!\nPlease try again!\n")));
    EXPECT_TRUE(desktop.messages[0].text.endsWith(QLatin1String("folder.ibf: Is a directory")));
    EXPECT_TRUE(desktop.reports.empty());
}

} // namespace tarsel::test
