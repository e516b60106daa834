// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "controls/ListControl.h"
#include "output/Naming.h"
#include "output/forms/NamePreview.h"
#include "output/forms/frmSaveSinglePage.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestDesktop.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

class SaveDialog : public testing::Test {
protected:
    SaveDialog() : pages({QStringLiteral("File Name")}) {
        settings.DestinationFolder = QStringLiteral("/out/");
    }

    frmSaveSinglePage& open() {
        dialog = std::make_unique<frmSaveSinglePage>(settings, pages, tasks);
        dialog->show();
        return *dialog;
    }
    template <class Widget>
    Widget& control(const char* name) {
        return child<Widget>(*dialog, name);
    }
    void choose(const char* option) {
        QTest::mouseClick(&control<QRadioButton>(option), Qt::LeftButton, {}, {8, 8});
    }
    QStringList enabledAmong(std::initializer_list<const char*> names) {
        QStringList enabled;
        for (const char* name : names)
            if (control<QWidget>(name).isEnabled())
                enabled << QLatin1String(name);
        return enabled;
    }

    TestDesktop desktop;
    BatchSave settings;
    ListView pages;
    ListView tasks;
    std::unique_ptr<frmSaveSinglePage> dialog;
};

const std::initializer_list<const char*> nameControls{"cboRenamePrefix",  "cboRenameSuffix",
                                                      "cboSeparator1",    "cboSeparator2",
                                                      "txtRenameGeneric", "cboRenameGeneric"};

} // namespace

TEST_F(SaveDialog, ShowsEveryAnswerOfTheLastTime) {
    settings = {.JpegQuality = 37,
                .JpegProgressive = 1,
                .JpegDepth = 1,
                .RenameSuffix = QStringLiteral("[EXIF Make]"),
                .RenamePrefix = QStringLiteral("Holiday"),
                .Separator1 = QStringLiteral("AND"),
                .Separator2 = QStringLiteral("[WhiteSpace]"),
                .NameOption = 1,
                .RenameGeneric = QStringLiteral("Album"),
                .RenameGenericPattern = QStringLiteral("[Starting 1001]"),
                .DestinationOption = 1,
                .DestinationFolder = QStringLiteral("/out/   "),
                .Overwrite = 0,
                .ImportIPTC = 1,
                .ImportEXIF = 0,
                .ImportIPTCFile = QStringLiteral("/a.ffo"),
                .ImportEXIFFile = QStringLiteral("/a.xiff"),
                .ProcessEditingList = 1};
    open();
    EXPECT_EQ(dialog->windowTitle().toStdString(), "Save single-page files");
    EXPECT_EQ(control<QSlider>("sldJPGQuality").value(), 37);
    EXPECT_EQ(control<QLabel>("lblJPGQuality").text().toStdString(), "37");
    EXPECT_TRUE(control<QCheckBox>("chkJPGProgressive").isChecked());
    EXPECT_TRUE(control<QRadioButton>("optJPEGDepth_1").isChecked());
    EXPECT_EQ(control<QComboBox>("cboRenamePrefix").currentText().toStdString(), "Holiday");
    EXPECT_EQ(control<QComboBox>("cboRenameSuffix").currentText().toStdString(), "[EXIF Make]");
    EXPECT_EQ(control<QComboBox>("cboSeparator1").currentText().toStdString(), "AND");
    EXPECT_EQ(control<QComboBox>("cboSeparator2").currentText().toStdString(), "[WhiteSpace]");
    EXPECT_TRUE(control<QRadioButton>("OptName_1").isChecked());
    EXPECT_EQ(control<QLineEdit>("txtRenameGeneric").text().toStdString(), "Album");
    EXPECT_EQ(control<QComboBox>("cboRenameGeneric").currentText().toStdString(), "[Starting 1001]");
    EXPECT_TRUE(control<QRadioButton>("optDestinationFolder_1").isChecked());
    EXPECT_EQ(control<QLineEdit>("txtDestinationFolder").text().toStdString(), "/out/");
    EXPECT_FALSE(control<QCheckBox>("chkOverwrite").isChecked());
    EXPECT_TRUE(control<QCheckBox>("chkImportIPTC").isChecked());
    EXPECT_FALSE(control<QCheckBox>("chkImportEXIF").isChecked());
    EXPECT_EQ(control<QLineEdit>("txtImportIPTC").text().toStdString(), "/a.ffo");
    EXPECT_TRUE(control<QCheckBox>("chkProcessEditingList").isChecked());
}

TEST_F(SaveDialog, OffersTheWholeVocabulary) {
    open();
    const auto entries = [&](const char* name) {
        QStringList texts;
        const auto& box = control<QComboBox>(name);
        for (int i = 0; i < box.count(); ++i)
            texts << box.itemText(i);
        return texts;
    };
    EXPECT_EQ(entries("cboRenamePrefix"), namingTokens());
    EXPECT_EQ(entries("cboRenameSuffix").size(), 25);
    EXPECT_EQ(entries("cboSeparator1"), namingSeparators());
    EXPECT_EQ(entries("cboSeparator2").size(), 10);
    EXPECT_EQ(entries("cboRenameGeneric"), namingCounts());
}

TEST_F(SaveDialog, EachWayOfNamingEnablesItsOwnControls) {
    open();
    EXPECT_EQ(enabledAmong(nameControls), QStringList());
    choose("OptName_1");
    EXPECT_EQ(enabledAmong(nameControls),
              QStringList({QStringLiteral("cboRenamePrefix"), QStringLiteral("cboRenameSuffix"),
                           QStringLiteral("cboSeparator1"), QStringLiteral("cboSeparator2")}));
    choose("OptName_2");
    EXPECT_EQ(enabledAmong(nameControls),
              QStringList({QStringLiteral("txtRenameGeneric"), QStringLiteral("cboRenameGeneric")}));
}

TEST_F(SaveDialog, PathFieldsFollowTheirOptions) {
    open();
    EXPECT_FALSE(control<QWidget>("txtDestinationFolder").isEnabled());
    EXPECT_FALSE(control<QWidget>("cmdDestinationFolder").isEnabled());
    choose("optDestinationFolder_1");
    EXPECT_TRUE(control<QWidget>("txtDestinationFolder").isEnabled());
    EXPECT_TRUE(control<QWidget>("cmdDestinationFolder").isEnabled());
    for (const char* kind : {"EXIF", "IPTC"}) {
        const std::string name = kind;
        EXPECT_FALSE(control<QWidget>(("txtImport" + name).c_str()).isEnabled());
        control<QCheckBox>(("chkImport" + name).c_str()).click();
        EXPECT_TRUE(control<QWidget>(("txtImport" + name).c_str()).isEnabled());
        EXPECT_TRUE(control<QWidget>(("cmdImport" + name).c_str()).isEnabled());
    }
}

TEST_F(SaveDialog, CharactersThatNoFileNameHoldsAreDroppedWhileTyping) {
    settings.NameOption = 1;
    open();
    for (const char* name : {"cboRenamePrefix", "cboRenameSuffix", "cboSeparator1", "cboSeparator2"}) {
        QLineEdit* edit = control<QComboBox>(name).lineEdit();
        edit->clear();
        QTest::keyClicks(edit, QStringLiteral("a\"b*c/d:e<f>g?h\\i|j k.[x]"));
        EXPECT_EQ(edit->text().toStdString(), "abcdefghij k.[x]") << name;
    }
}

TEST_F(SaveDialog, TheCountBoxTakesDigitsAndBackspaceOnly) {
    settings.NameOption = 2;
    open();
    QLineEdit* edit = control<QComboBox>("cboRenameGeneric").lineEdit();
    edit->clear();
    QTest::keyClicks(edit, QStringLiteral("a1-2.b3"));
    EXPECT_EQ(edit->text().toStdString(), "123");
    QTest::keyClick(edit, Qt::Key_Backspace);
    EXPECT_EQ(edit->text().toStdString(), "12");
}

TEST_F(SaveDialog, TypingIsNotCompletedIntoAnEntry) {
    settings.NameOption = 1;
    open();
    QLineEdit* edit = control<QComboBox>("cboSeparator1").lineEdit();
    edit->clear();
    QTest::keyClicks(edit, QStringLiteral("A"));
    EXPECT_EQ(edit->text().toStdString(), "A");
}

struct CountCase {
    const char* count;
    const char* refusal; ///< empty when the count is accepted
};
class SaveDialogCount : public SaveDialog, public testing::WithParamInterface<CountCase> {};

TEST_P(SaveDialogCount, IsCheckedWhateverTheWayOfNaming) {
    settings.NameOption = 0;
    open();
    control<QComboBox>("cboRenameGeneric").setEditText(QLatin1String(GetParam().count));
    click(*dialog, "cmdStarConversion");
    EXPECT_EQ(settings.Confirmed, -1);
    const bool refused = *GetParam().refusal != 0;
    EXPECT_EQ(dialog->isVisible(), refused);
    ASSERT_EQ(desktop.messages.size(), refused ? 1u : 0u);
    if (refused) {
        EXPECT_EQ(desktop.messages[0].text.toStdString(), GetParam().refusal);
        EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Information);
    }
}

INSTANTIATE_TEST_SUITE_P(Counts, SaveDialogCount,
                         testing::Values(CountCase{"", "The count variable cannot be empty!"},
                                         CountCase{"   ", "The count variable cannot be empty!"},
                                         CountCase{"[Starting 2]", "Count should be numeric!"},
                                         CountCase{"1a", "Count should be numeric!"},
                                         CountCase{"[Starting 1]", ""}, CountCase{"[Starting 1001]", ""},
                                         CountCase{" 7 ", ""}, CountCase{"99999", ""}));

TEST_F(SaveDialog, AfterARefusalTheNamesAreCopiedAndTheCloseBoxLetsTheRunGoAhead) {
    settings.NameOption = 1;
    open();
    control<QComboBox>("cboRenamePrefix").setEditText(QStringLiteral("New"));
    control<QLineEdit>("txtDestinationFolder").setText(QStringLiteral("/elsewhere"));
    control<QComboBox>("cboRenameGeneric").setEditText({});
    click(*dialog, "cmdStarConversion");
    dialog->close();
    EXPECT_EQ(settings.Confirmed, -1);
    EXPECT_EQ(settings.RenamePrefix.toStdString(), "New");
    EXPECT_EQ(settings.DestinationFolder.toStdString(), "/out/") << "the refusal came before the folder";
}

TEST_F(SaveDialog, EscapeLeavesLikeExit) {
    settings.Confirmed = -1;
    open();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(settings.Confirmed, 0);
}

TEST_F(SaveDialog, OptionsClickedAreKeptByExitAndNothingElseIs) {
    open();
    choose("OptName_2");
    choose("optDestinationFolder_1");
    control<QSlider>("sldJPGQuality").setValue(11);
    control<QLineEdit>("txtRenameGeneric").setText(QStringLiteral("Other"));
    click(*dialog, "cmdExit");
    EXPECT_EQ(settings.NameOption, 2);
    EXPECT_EQ(settings.DestinationOption, 1);
    EXPECT_EQ(settings.JpegQuality, 80);
    EXPECT_EQ(settings.RenameGeneric.toStdString(), "Sample");
    EXPECT_EQ(settings.Confirmed, 0);
}

struct FolderCase {
    const char* typed;
    const char* stored;
};
class SaveDialogFolder : public SaveDialog, public testing::WithParamInterface<FolderCase> {};

TEST_P(SaveDialogFolder, IsStoredWithASeparatorUnlessItIsADriveRoot) {
    open();
    control<QLineEdit>("txtDestinationFolder").setText(QLatin1String(GetParam().typed));
    click(*dialog, "cmdStarConversion");
    EXPECT_EQ(settings.DestinationFolder.toStdString(), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Folders, SaveDialogFolder,
                         testing::Values(FolderCase{"/home/pics", "/home/pics/"},
                                         FolderCase{"/home/pics/", "/home/pics//"},
                                         FolderCase{"C:\\", "C:\\"}, FolderCase{"/", "//"}));

TEST_F(SaveDialog, SaveStoresEveryControl) {
    open();
    choose("OptName_2");
    choose("optJPEGDepth_1");
    control<QSlider>("sldJPGQuality").setValue(55);
    control<QCheckBox>("chkJPGProgressive").click();
    control<QCheckBox>("chkOverwrite").click();
    control<QCheckBox>("chkProcessEditingList").click();
    control<QCheckBox>("chkImportEXIF").click();
    control<QLineEdit>("txtImportEXIF").setText(QStringLiteral("/e.xiff"));
    control<QComboBox>("cboSeparator2").setEditText(QStringLiteral("[No Separator]"));
    control<QComboBox>("cboRenameGeneric").setEditText(QStringLiteral("7"));
    click(*dialog, "cmdStarConversion");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(settings.Confirmed, -1);
    EXPECT_EQ(settings.JpegDepth, 1);
    EXPECT_EQ(settings.JpegQuality, 55);
    EXPECT_EQ(settings.JpegProgressive, 1);
    EXPECT_EQ(settings.Overwrite, 0);
    EXPECT_EQ(settings.ProcessEditingList, 1);
    EXPECT_EQ(settings.ImportEXIF, 1);
    EXPECT_EQ(settings.ImportIPTC, 0);
    EXPECT_EQ(settings.ImportEXIFFile.toStdString(), "/e.xiff");
    EXPECT_EQ(settings.Separator2.toStdString(), "[No Separator]");
    EXPECT_EQ(settings.RenameGenericPattern.toStdString(), "7");
}

TEST_F(SaveDialog, BrowseButtonsTakeAnAnswerAndKeepTheTextOnCancel) {
    settings.DestinationOption = 1;
    settings.ImportEXIF = 1;
    open();
    desktop.folderChoices = {QStringLiteral("/chosen"), std::nullopt};
    click(*dialog, "cmdDestinationFolder");
    click(*dialog, "cmdDestinationFolder");
    EXPECT_EQ(control<QLineEdit>("txtDestinationFolder").text().toStdString(), "/chosen");
    desktop.fileChoices = {FileDialogChoice{QStringLiteral("/x.xiff"), 1}, std::nullopt};
    click(*dialog, "cmdImportEXIF");
    click(*dialog, "cmdImportEXIF");
    EXPECT_EQ(control<QLineEdit>("txtImportEXIF").text().toStdString(), "/x.xiff");
    EXPECT_EQ(desktop.fileDialogs[0].title.toStdString(), "Open EXIF .xiff file");
    EXPECT_EQ(desktop.fileDialogs[0].filter.toStdString(), "EXIF file (*.xiff)|*.xiff");
}

TEST_F(SaveDialog, EnterSavesAlsoFromTheListOfNames) {
    open();
    EXPECT_EQ(dialog->focusWidget(), &control<QSlider>("sldJPGQuality"));
    QTest::keyClick(child<ListControl>(*dialog, "lvNames").view(), Qt::Key_Return);
    EXPECT_EQ(settings.Confirmed, -1);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SaveDialog, ShowsTheNamesAndTheirClashesBeforeSave) {
    for (const char* path : {"/a/sea.jpg", "/b/sea.jpg", "/b/hill.jpg"}) {
        ListRow row;
        row.text = QString(QLatin1String(path)).section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0);
        row.tag = QLatin1String(path);
        row.subItems = {{}, {}, {}, QStringLiteral("/docs/letter.tif")};
        pages.add(row);
    }
    settings.DestinationFolder = QStringLiteral("/nowhere/");
    open();
    auto* preview = dialog->findChild<NamePreview*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return preview->isFinished(); }));
    ASSERT_EQ(preview->names().count(), 3);
    EXPECT_EQ(preview->names().row(0).text.toStdString(), "sea.jpg");
    EXPECT_NE(preview->names().subItem(1, 2).toStdString(), "") << "two rows get one name";
    EXPECT_EQ(preview->names().subItem(2, 1).toStdString(), "letter.tif")
        << "a page is shown by its document";
    EXPECT_EQ(control<QLabel>("lblNamesFolder").text().toStdString(), "They go to /nowhere")
        << "also while the option for the source folder is on";
    choose("OptName_1");
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return control<QLabel>("lblNamesFolder").text() == QLatin1String("They go to 2 folders"); }));
    choose("OptName_2");
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return preview->isFinished() && preview->names().row(0).text == QLatin1String("Sample1.jpg");
    }));
    EXPECT_EQ(preview->names().row(2).text.toStdString(), "Sample3.jpg");
    EXPECT_EQ(settings.RenameGeneric.toStdString(), "Sample") << "looking changes nothing";
}

} // namespace tarsel::test
