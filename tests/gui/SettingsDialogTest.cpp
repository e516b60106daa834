// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainActions.h"
#include "app/frmSettings.h"
#include "controls/ListControl.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestDesktop.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class SettingsDialog : public testing::Test {
protected:
    SettingsDialog() {
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    static ConfigRecordData remembered() {
        ConfigRecordData record;
        record.FolderThumbHeight = 55;
        record.BasketFullRowSelect = -1;
        record.Twain.Folder = QStringLiteral("/scans");
        return record;
    }
    QLineEdit& box(const char* name) { return child<QLineEdit>(dialog, name); }
    /// The box is entered, which selects its text, and left.
    std::string typedInto(const char* name, const char* keys) {
        box(name).setFocus();
        QCoreApplication::processEvents();
        QTest::keyClicks(&box(name), QString::fromLatin1(keys));
        child<QWidget>(dialog, "chkAllowTip").setFocus();
        return box(name).text().toStdString();
    }

    TestDesktop desktop;
    ConfigRecordData record = remembered();
    frmSettings dialog{record, ActionTable(mainActions(), mainActionsContext).shortcuts()};
};

} // namespace

TEST_F(SettingsDialog, HoldsThumbnailsBetween20And300) {
    const std::pair<const char*, const char*> cases[] = {{"500", "300"}, {"5", "20"}, {"1a2b0", "120"}};
    for (const auto& [keys, left] : cases)
        EXPECT_EQ(typedInto("txtFolderThumbnailWidth", keys), left) << keys;
    QLineEdit& height = box("txtFolderThumbnailHeight");
    height.clear();
    EXPECT_EQ(height.text().toStdString(), "20") << "at once";
    height.setText(QStringLiteral("abc"));
    EXPECT_EQ(typedInto("txtFolderThumbnailHeight", ""), "55") << "pasted letters: the value of the record";
    ASSERT_EQ(desktop.reports.size(), 1u);
    EXPECT_EQ(desktop.reports[0].ErrRoutine.toStdString(), "frmSettings.subSetup");
}

TEST_F(SettingsDialog, OkStoresOneSizeAndOneFlagForBothListsAndCancelNothing) {
    EXPECT_FALSE(child<QCheckBox>(dialog, "chkFolderFullRowSelect").isChecked()) << "from the folder's flag";
    typedInto("txtFolderThumbnailWidth", "90");
    child<QCheckBox>(dialog, "chkFolderFullRowSelect").setChecked(true);
    child<QCheckBox>(dialog, "chkAllowTip").setChecked(false);
    child<QAbstractButton>(dialog, "optFileSize_1").setChecked(true);
    desktop.folderChoices = {QStringLiteral("/captures"), std::nullopt};
    for (const char* browse : {"cmdCaptureBrowse", "cmdTwainBrowse"})
        click(dialog, browse);
    const auto stored = [this] {
        return QStringLiteral("%1x%2 %3x%4 %5 %6 %7 %8 %9")
            .arg(record.FolderThumbWidth)
            .arg(record.FolderThumbHeight)
            .arg(record.BasketThumbWidth)
            .arg(record.BasketThumbHeight)
            .arg(record.FolderFullRowSelect)
            .arg(record.BasketFullRowSelect)
            .arg(record.ShowTips)
            .arg(record.LongFileSize)
            .arg(record.CaptureFolder + QLatin1Char(' ') + record.Twain.Folder)
            .toStdString();
    };
    const std::string before = stored();
    click(dialog, "cmdCancel");
    EXPECT_EQ(stored(), before);
    click(dialog, "cmdOK");
    EXPECT_EQ(stored(), "90x55 90x55 -1 -1 0 1 /captures /scans");
    box("txtFolderThumbnailWidth").setText(QStringLiteral("99999"));
    click(dialog, "cmdOK"); // by its key the box is never left
    EXPECT_EQ(record.FolderThumbWidth, 300);
}

TEST_F(SettingsDialog, ListsTheKeysOfTheListsBeforeThoseOfTheCommandsAndNoneTwice) {
    const QString rows = rowsAsText(child<ListControl>(dialog, "lvShortcuts").list(), false);
    EXPECT_TRUE(rows.startsWith(
        QLatin1String("Add Selected Files to basket\tEnter [Return]\nSelect all files\tCtrl + A\n"
                      "Delete selected files from basket\tDelete\nSettings\tCtrl+,\n")));
    EXPECT_FALSE(rows.contains(QLatin1String("\tReturn")) || rows.contains(QLatin1String("\tDel\n")));
}

} // namespace tarsel::test
