// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "controls/ListControl.h"
#include "output/Naming.h"
#include "output/forms/NamePreview.h"
#include "output/forms/frmBatchResults.h"
#include "output/forms/frmSaveSinglePage.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestDesktop.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

// A record as "name=value" of each field, from the table of the fields.
#define GROUP(group)                                                                                         \
    [[maybe_unused]] QStringList fieldsOf(const group& record) {                                             \
        QStringList fields;
#define END_GROUP()                                                                                          \
    return fields;                                                                                           \
    }
#define FIELD(type, name, value) fields << QStringLiteral(#name "=%1").arg(record.name);
#define TEXT(type, name, value) FIELD(type, name, value)
#define FOLDER(type, name, form) FIELD(type, name, form)
#define BESIDE(type, name, value) FIELD(type, name, value)
#include "configuration/ConfigFields.def"

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
    void addRow(const char* path, const char* document = "") {
        ListRow row;
        row.text = QString(QLatin1String(path)).section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0);
        row.tag = QLatin1String(path);
        row.subItems = {{}, {}, {}, QLatin1String(document)};
        pages.add(row);
    }
    NamePreview& finishedPreview() {
        auto* preview = dialog->findChild<NamePreview*>();
        EXPECT_TRUE(QTest::qWaitFor([&] { return preview->isFinished(); }));
        return *preview;
    }
    std::string textOf(const char* label) { return control<QLabel>(label).text().toStdString(); }
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

TEST_F(SaveDialog, ShowsEveryFieldOfTheRecordAndSaveStoresIt) {
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
                .DestinationFolder = QStringLiteral("C:\\"),
                .Overwrite = 0,
                .ImportIPTC = 1,
                .ImportEXIF = 0,
                .ImportIPTCFile = QStringLiteral("/a.ffo"),
                .ImportEXIFFile = QStringLiteral("/a.xiff"),
                .ProcessEditingList = 1,
                .UprightByExif = 0};
    const BatchSave shown = settings;
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
    EXPECT_EQ(control<QLineEdit>("txtDestinationFolder").text().toStdString(), "C:\\");
    EXPECT_FALSE(control<QCheckBox>("chkOverwrite").isChecked());
    EXPECT_TRUE(control<QCheckBox>("chkImportIPTC").isChecked());
    EXPECT_FALSE(control<QCheckBox>("chkImportEXIF").isChecked());
    EXPECT_EQ(control<QLineEdit>("txtImportIPTC").text().toStdString(), "/a.ffo");
    EXPECT_TRUE(control<QCheckBox>("chkProcessEditingList").isChecked());
    EXPECT_FALSE(control<QCheckBox>("chkUpright").isChecked());
    EXPECT_EQ(control<QLineEdit>("txtImportEXIF").text().toStdString(), "/a.xiff");

    settings = {};
    click(*dialog, "cmdStarConversion");
    BatchSave expected = shown;
    expected.Confirmed = -1;
    expected.NameOption = settings.NameOption; // stored when they are clicked
    expected.DestinationOption = settings.DestinationOption;
    EXPECT_EQ(fieldsOf(settings), fieldsOf(expected));
    EXPECT_FALSE(dialog->isVisible());
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
    for (const char* path : {"/a/sea.jpg", "/b/sea.jpg", "/b/hill.jpg"})
        addRow(path, "/docs/letter.tif");
    settings.DestinationFolder = QStringLiteral("/nowhere/");
    open();
    auto* preview = &finishedPreview();
    ASSERT_EQ(preview->names().count(), 3);
    EXPECT_EQ(preview->names().row(0).text.toStdString(), "sea.jpg");
    EXPECT_NE(preview->names().subItem(1, 2).toStdString(), "") << "two rows get one name";
    EXPECT_EQ(preview->names().subItem(2, 1).toStdString(), "letter.tif")
        << "a page is shown by its document";
    EXPECT_EQ(textOf("lblNames"), "3 names\n1 row will replace the file of an earlier row");
    EXPECT_EQ(textOf("lblNamesFolder"), "Files will be saved to /nowhere")
        << "also while the option for the source folder is on";
    choose("OptName_1");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return control<QLabel>("lblNamesFolder").text() == QLatin1String("Files will be saved to 2 folders");
    }));
    choose("OptName_2");
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return preview->isFinished() && preview->names().row(0).text == QLatin1String("Sample1.jpg");
    }));
    EXPECT_EQ(preview->names().row(2).text.toStdString(), "Sample3.jpg");
    EXPECT_EQ(settings.RenameGeneric.toStdString(), "Sample") << "looking changes nothing";
}

TEST_F(SaveDialog, AMissingFolderIsReportedBeforeSaveAndCreatedOnRequest) {
    const QTemporaryDir home;
    const QString folder = home.filePath(QStringLiteral("new/deep"));
    settings.DestinationFolder = folder;
    addRow("/a/sea.jpg");
    open();
    finishedPreview();
    EXPECT_EQ(textOf("lblNamesFolderProblem"),
              QStringLiteral("The folder %1 does not exist.").arg(folder).toStdString());
    click(*dialog, "cmdCreateFolder");
    EXPECT_TRUE(QFileInfo(folder).isDir());
    finishedPreview();
    EXPECT_FALSE(control<QWidget>("lblNamesFolderProblem").isVisible());
    EXPECT_EQ(textOf("lblNames"), "1 name, no clashes");

    QFile file(home.filePath(QStringLiteral("file")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    control<QLineEdit>("txtDestinationFolder").setText(file.fileName());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return textOf("lblNamesFolderProblem") == file.fileName().toStdString() + " is not a folder.";
    }));
    EXPECT_FALSE(control<QWidget>("cmdCreateFolder").isVisible());
}

struct SummaryCase {
    bool overwrite;
    std::vector<NameClash> clashes;
    const char* sentences;
};
class NameSummaries : public testing::TestWithParam<SummaryCase> {};

TEST_P(NameSummaries, CountWhatHappensToExistingFiles) {
    NameSummary summary(GetParam().overwrite);
    for (const NameClash clash : GetParam().clashes)
        summary.add({1, {}, {}, clash, 0, {}});
    EXPECT_EQ(summary.sentences().join(QLatin1Char('|')).toStdString(), GetParam().sentences);
}

INSTANTIATE_TEST_SUITE_P(
    All, NameSummaries,
    testing::Values(
        SummaryCase{true,
                    {NameClash::OwnSource, NameClash::OtherSource, NameClash::Exists, NameClash::None},
                    "4 names|2 originals will be overwritten|1 existing file will be replaced"},
        SummaryCase{
            true,
            {NameClash::SameAsRow, NameClash::SameAsRow, NameClash::NotKnown, NameClash::Invalid},
            "4 names|1 name is not possible: the run would end there|2 rows will replace the file of an "
            "earlier row|1 name is not known before the run"},
        SummaryCase{
            false,
            {NameClash::OwnSource, NameClash::Exists, NameClash::SameAsRow},
            "3 names|2 rows will be skipped, because their files exist|1 row will be skipped, because an "
            "earlier row has its name"}));

struct TasksCase {
    int tasks;
    bool ticked;
    const char* text;
};
class SaveDialogTasks : public SaveDialog, public testing::WithParamInterface<TasksCase> {};

TEST_P(SaveDialogTasks, AreAnnouncedBesideTheirOption) {
    for (int i = 0; i < GetParam().tasks; ++i)
        tasks.add({});
    open();
    if (GetParam().ticked)
        control<QCheckBox>("chkProcessEditingList").click();
    EXPECT_EQ(textOf("lblTasks"), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, SaveDialogTasks,
    testing::Values(TasksCase{0, true, "The task basket is empty."}, TasksCase{1, true, "1 task will run."},
                    TasksCase{3, true, "3 tasks will run."},
                    TasksCase{3, false, "The 3 tasks won't run: the option above is not ticked."}));

/// Largest part of the screen that the dialog may take, with a font of that many points.
struct ScreenCase {
    QSize room;
    int points;
};
class SaveDialogScreen : public SaveDialog, public testing::WithParamInterface<ScreenCase> {
protected:
    SaveDialogScreen() : usual(QApplication::font()) {
        QFont large = usual;
        large.setPointSize(GetParam().points);
        QApplication::setFont(large);
    }
    ~SaveDialogScreen() override {
        dialog.reset();
        QApplication::setFont(usual);
    }
    const QFont usual;
};

TEST_P(SaveDialogScreen, HasRoomForEveryControl) {
    open();
    dialog->resize(GetParam().room);
    QTest::qWait(0);
    EXPECT_EQ(dialog->size(), GetParam().room) << "not held open by its contents";
    for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget) ||
                               qobject_cast<QLineEdit*>(widget) || qobject_cast<QSlider*>(widget);
        if (!isControl || !widget->isVisible() || widget->objectName().isEmpty())
            continue;
        const QRect shown(widget->mapTo(dialog.get(), QPoint()), widget->size());
        EXPECT_LE(shown.right(), dialog->width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
    }
    EXPECT_LE(control<QWidget>("cmdExit").geometry().bottom(), dialog->height());
    EXPECT_GE(child<ListControl>(*dialog, "lvNames").height(), 60);
}

INSTANTIATE_TEST_SUITE_P(All, SaveDialogScreen,
                         testing::Values(ScreenCase{{1350, 720}, 14}, ScreenCase{{784, 552}, 10},
                                         ScreenCase{{784, 552}, 14}));

TEST(BatchResults, ShowProblemsFirstAndCanBeCopied) {
    const auto result = [](int row, RowState state, const char* reason = "") {
        const QString source = QStringLiteral("/s%1").arg(row);
        return RowResult{row, source, QStringLiteral("/t%1").arg(row), state, QLatin1String(reason)};
    };
    TestDesktop desktop;
    auto* results = new frmBatchResults({result(1, RowState::Written), result(2, RowState::Skipped, "exists"),
                                         result(3, RowState::Written, "damaged"),
                                         result(4, RowState::Failed, "no picture")},
                                        nullptr);
    EXPECT_EQ(child<QLabel>(*results, "lblSummary").text().toStdString(),
              "2 written, 1 skipped, 1 failed - 1 of the written pictures has a warning");
    results->show();
    click(*results, "cmdCopyAll");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "failed\t/s4\t/t4\tno picture\nwritten\t/s3\t/t3\tdamaged\n"
              "skipped\t/s2\t/t2\texists\nwritten\t/s1\t/t1\t");
    results->close();
}

} // namespace tarsel::test
