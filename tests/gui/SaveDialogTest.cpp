// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ListView.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"
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
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QSlider>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QTreeView>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

// A record as "name=value" of each field, from the table of the fields.
#define GROUP(group)                                                                                         \
    [[maybe_unused]] QStringList fieldsOf(const settings::group& record) {                                   \
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
    void choose(const char* option) {
        QTest::mouseClick(&control<QAbstractButton>(option), Qt::LeftButton, {}, {8, 8});
    }
    void type(const char* box, const char* text) {
        QLineEdit* edit = control<QComboBox>(box).lineEdit();
        edit->clear();
        QTest::keyClicks(edit, QString::fromLatin1(text));
    }
    /// What a control of any kind shows.
    std::string valueOf(const char* name) {
        QWidget& widget = control<QWidget>(name);
        if (const auto* slider = qobject_cast<QSlider*>(&widget))
            return std::to_string(slider->value());
        if (const auto* button = qobject_cast<QAbstractButton*>(&widget))
            return button->isChecked() ? "on" : "off";
        if (const auto* box = qobject_cast<QComboBox*>(&widget))
            return box->currentText().toStdString();
        return widget.property("text").toString().toStdString();
    }

    TestDesktop desktop;
    settings::BatchSave settings;
    ListView pages;
    ListView tasks;
    std::unique_ptr<frmSaveSinglePage> dialog;
};

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
                .UprightByExif = 0,
                .StripPrivate = 1};
    const settings::BatchSave shown = settings;
    open();
    EXPECT_EQ(dialog->windowTitle().toStdString(), "Save single-page files");
    const std::pair<const char*, const char*> values[] = {
        {"on", "chkJPGProgressive optJPEGDepth_1 OptName_1 optDestinationFolder_1 chkImportIPTC"},
        {"on", "chkProcessEditingList chkStripPrivate"},
        {"off", "chkOverwrite chkImportEXIF chkUpright"},
        {"37", "sldJPGQuality lblJPGQuality"},
        {"Holiday", "cboRenamePrefix"},
        {"[EXIF Make]", "cboRenameSuffix"},
        {"AND", "cboSeparator1"},
        {"[WhiteSpace]", "cboSeparator2"},
        {"Album", "txtRenameGeneric"},
        {"[Starting 1001]", "cboRenameGeneric"},
        {"C:\\", "txtDestinationFolder"},
        {"/a.ffo", "txtImportIPTC"},
        {"/a.xiff", "txtImportEXIF"},
    };
    for (const auto& [value, names] : values)
        for (const QByteArray& name : QByteArray(names).split(' '))
            EXPECT_EQ(valueOf(name), value) << name.constData();
    const auto entries = [&](const char* name) { return control<QComboBox>(name).count(); };
    EXPECT_EQ(entries("cboRenamePrefix") + entries("cboRenameSuffix"), 2 * namingTokens().size());
    auto& prefixes = control<QComboBox>("cboRenamePrefix");
    prefixes.showPopup();
    EXPECT_GE(prefixes.view()->viewport()->width(), prefixes.view()->sizeHintForColumn(0))
        << "complete tokens";
    prefixes.hidePopup();
    EXPECT_EQ(entries("cboSeparator1") + entries("cboSeparator2"), 2 * namingSeparators().size());
    EXPECT_EQ(entries("cboRenameGeneric"), namingCounts().size());
    settings = {};
    click(*dialog, "cmdStarConversion");
    settings::BatchSave expected = shown;
    expected.Confirmed = -1;
    expected.NameOption = settings.NameOption; // stored when they are clicked
    expected.DestinationOption = settings.DestinationOption;
    EXPECT_EQ(fieldsOf(settings), fieldsOf(expected));
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(SaveDialog, EachOptionEnablesItsOwnControls) {
    const auto enabled = [&] {
        QStringList names;
        for (const char* name :
             {"cboRenamePrefix", "cboRenameSuffix", "cboSeparator1", "cboSeparator2", "txtRenameGeneric",
              "cboRenameGeneric", "txtDestinationFolder", "cmdDestinationFolder", "txtImportEXIF",
              "cmdImportEXIF", "txtImportIPTC", "cmdImportIPTC"})
            if (control<QWidget>(name).isEnabled())
                names << QLatin1String(name);
        return names.join(QLatin1Char(' ')).toStdString();
    };
    const std::string folder = "txtDestinationFolder cmdDestinationFolder";
    const std::pair<const char*, std::string> cases[] = {
        {"OptName_0", ""},
        {"OptName_1", "cboRenamePrefix cboRenameSuffix cboSeparator1 cboSeparator2"},
        {"OptName_2", "txtRenameGeneric cboRenameGeneric"},
        {"optDestinationFolder_1", "txtRenameGeneric cboRenameGeneric " + folder},
        {"OptName_0", folder},
        {"chkImportEXIF", folder + " txtImportEXIF cmdImportEXIF"},
        {"chkImportIPTC", folder + " txtImportEXIF cmdImportEXIF txtImportIPTC cmdImportIPTC"}};
    open();
    for (const auto& [option, expected] : cases) {
        choose(option);
        EXPECT_EQ(enabled(), expected) << option;
    }
}

TEST_F(SaveDialog, TypingDropsWhatNoNameHoldsAndIsNotCompleted) {
    const char* typed = "a\"b*c/d:e<f>g?h\\i|j k.[x]";
    const struct {
        quint8 naming;
        const char* box;
        const char* typed;
        const char* shown;
    } cases[] = {
        {1, "cboRenamePrefix", typed, "abcdefghij k.[x]"},
        {1, "cboSeparator2", typed, "abcdefghij k.[x]"},
        {1, "cboSeparator1", "A", "A"}, // the start of an entry
        {2, "cboRenameGeneric", "a1-2.b3\b", "12"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.box);
        settings.NameOption = c.naming;
        open();
        type(c.box, c.typed);
        EXPECT_EQ(valueOf(c.box), c.shown);
    }
}

TEST_F(SaveDialog, TheCountIsCheckedAfterTheNamesAreStoredAndTheCloseBoxThenLetsTheRunGoAhead) {
    const std::string empty = "The count variable cannot be empty!";
    const std::string noNumber = "Count should be numeric!";
    const struct {
        const char* count;
        std::string refusal; ///< empty when the count is accepted
    } cases[] = {{"", empty},      {"   ", empty},       {"[Starting 2]", noNumber},
                 {"1a", noNumber}, {"[Starting 1]", {}}, {"[Starting 1001]", {}},
                 {" 7 ", {}},      {"99999", {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.count);
        desktop.messages.clear();
        settings = {};
        open();
        control<QComboBox>("cboRenameGeneric").setEditText(QLatin1String(c.count));
        control<QComboBox>("cboRenamePrefix").setEditText(QStringLiteral("New"));
        control<QLineEdit>("txtDestinationFolder").setText(QStringLiteral("/out"));
        click(*dialog, "cmdStarConversion");
        EXPECT_EQ(dialog->isVisible(), !c.refusal.empty());
        dialog->close();
        EXPECT_EQ(settings.Confirmed, -1);
        EXPECT_EQ(settings.RenamePrefix.toStdString(), "New");
        EXPECT_EQ(settings.DestinationFolder.isEmpty(), !c.refusal.empty()) << "stored after the check";
        ASSERT_EQ(desktop.messages.size(), c.refusal.empty() ? 0u : 1u);
        if (c.refusal.empty())
            continue;
        EXPECT_EQ(desktop.messages[0].text.toStdString(), c.refusal);
        EXPECT_EQ(desktop.messages[0].icon, MessageIcon::Information);
    }
}

TEST_F(SaveDialog, ExitAndEscapeKeepTheOptionsClickedAndNothingElse) {
    const std::function<void()> ways[] = {[&] { click(*dialog, "cmdExit"); },
                                          [&] { QTest::keyClick(dialog.get(), Qt::Key_Escape); }};
    for (const auto& leave : ways) {
        settings = {};
        settings.Confirmed = -1;
        settings::BatchSave expected;
        expected.NameOption = 2;
        expected.DestinationOption = 1;
        open();
        choose("OptName_2");
        choose("optDestinationFolder_1");
        control<QSlider>("sldJPGQuality").setValue(11);
        control<QLineEdit>("txtRenameGeneric").setText(QStringLiteral("Other"));
        leave();
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(fieldsOf(settings), fieldsOf(expected)) << (&leave - ways);
    }
}

TEST_F(SaveDialog, EnterSavesAndTheFolderIsStoredWithASeparatorUnlessItIsADriveRoot) {
    const std::pair<const char*, const char*> cases[] = {{"/home/pics", "/home/pics/"},
                                                         {"/home/pics/", "/home/pics//"},
                                                         {"C:\\", "C:\\"},
                                                         {"/", "//"},
                                                         {"/ab", "/ab/"}};
    for (const auto& [typed, stored] : cases) {
        settings.Confirmed = 0;
        open();
        EXPECT_EQ(dialog->focusWidget(), &control<QSlider>("sldJPGQuality"));
        control<QLineEdit>("txtDestinationFolder").setText(QLatin1String(typed));
        QTest::keyClick(child<ListControl>(*dialog, "lvNames").view(), Qt::Key_Return);
        EXPECT_EQ(settings.Confirmed, -1);
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(settings.DestinationFolder.toStdString(), stored) << typed;
        const QString once = settings.DestinationFolder;
        for (int save = 0; save < 2; ++save) {
            open();
            click(*dialog, "cmdStarConversion");
        }
        EXPECT_LE(settings.DestinationFolder.size(), once.size()) << "grows with each save";
    }
}

TEST_F(SaveDialog, BrowseButtonsTakeAnAnswerAndKeepTheTextOnCancel) {
    settings.DestinationOption = 1;
    settings.ImportEXIF = 1;
    open();
    desktop.folderChoices = {QStringLiteral("/chosen"), std::nullopt};
    click(*dialog, "cmdDestinationFolder");
    click(*dialog, "cmdDestinationFolder");
    EXPECT_EQ(valueOf("txtDestinationFolder"), "/chosen");
    desktop.fileChoices = {FileDialogChoice{QStringLiteral("/x.xiff"), 1}, std::nullopt};
    click(*dialog, "cmdImportEXIF");
    click(*dialog, "cmdImportEXIF");
    EXPECT_EQ(valueOf("txtImportEXIF"), "/x.xiff");
    EXPECT_EQ(desktop.fileDialogs[0].title.toStdString(), "Open EXIF .xiff file");
    EXPECT_EQ(desktop.fileDialogs[0].filter.toStdString(), "EXIF file (*.xiff)|*.xiff");
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
    EXPECT_EQ(valueOf("lblNames"), "3 names\n1 row will replace the file of an earlier row");
    EXPECT_EQ(valueOf("lblNamesFolder"), "Files will be saved to /nowhere")
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

TEST_F(SaveDialog, AFreshRecordOffersThePicturesFolderAndTheSourcesOwnFolderIsPointedOut) {
    const QTemporaryDir home;
    const QScopedValueRollback configuration(ConfigPath, home.filePath(QStringLiteral("program/settings")));
    const auto restore = qScopeGuard([usual = qgetenv("HOME")] { qputenv("HOME", usual); });
    qputenv("HOME", home.path().toUtf8());
    settings.DestinationFolder = home.filePath(QStringLiteral("program/"));
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    for (const QString& offered : {home.path(), pictures}) {
        open();
        EXPECT_EQ(valueOf("txtDestinationFolder"), offered.toStdString());
        QDir().mkpath(pictures);
    }
    addRow(qPrintable(home.filePath(QStringLiteral("sea.jpg"))));
    for (const bool same : {true, false}) {
        settings.DestinationFolder = same ? home.path() : QDir::tempPath();
        open();
        finishedPreview();
        EXPECT_EQ(control<QWidget>("lblSameFolder").isVisible(), same);
    }
}

TEST_F(SaveDialog, AMissingFolderIsReportedBeforeSaveAndCreatedOnRequest) {
    const QTemporaryDir home;
    const QString folder = home.filePath(QStringLiteral("new/deep"));
    settings.DestinationFolder = folder;
    addRow("/a/sea.jpg");
    open();
    finishedPreview();
    EXPECT_EQ(valueOf("lblNamesFolderProblem"),
              QStringLiteral("The folder %1 does not exist.").arg(folder).toStdString());
    EXPECT_FALSE(control<QWidget>("cmdStarConversion").isEnabled());
    click(*dialog, "cmdCreateFolder");
    EXPECT_TRUE(QFileInfo(folder).isDir());
    finishedPreview();
    EXPECT_TRUE(control<QWidget>("cmdStarConversion").isEnabled());
    EXPECT_FALSE(control<QWidget>("lblNamesFolderProblem").isVisible());
    EXPECT_EQ(valueOf("lblNames"), "1 name, no clashes");

    QFile file(home.filePath(QStringLiteral("file")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    control<QLineEdit>("txtDestinationFolder").setText(file.fileName());
    click(*dialog, "cmdStarConversion");
    EXPECT_NE(settings.Confirmed, -1) << "pressed before the new text was looked at";
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return valueOf("lblNamesFolderProblem") == file.fileName().toStdString() + " is not a folder.";
    }));
    EXPECT_FALSE(control<QWidget>("cmdCreateFolder").isVisible());
}

namespace {

class OtherLanguage final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char*, const char*, int count) const override {
        return count == 1 ? QStringLiteral("ein Name") : QStringLiteral("%n Namen");
    }
};

} // namespace

TEST(NameSummaries, TakeTheFormForTheirCountFromTheTranslation) {
    OtherLanguage language;
    QCoreApplication::installTranslator(&language);
    NameSummary summary;
    summary.add({});
    EXPECT_EQ(summary.sentences().join(QString()).toStdString(), "ein Name");
    summary.add({});
    EXPECT_EQ(summary.sentences().join(QString()).toStdString(), "2 Namen");
}

TEST(NameSummaries, CountWhatHappensToExistingFiles) {
    using enum NameClash;
    const struct {
        bool overwrite;
        std::vector<NameClash> clashes;
        const char* sentences;
    } cases[] = {
        {true,
         {OwnSource, OtherSource, Exists, None},
         "4 names|2 originals will be overwritten|1 existing file will be replaced"},
        {true,
         {SameAsRow, SameAsRow, NotKnown, Invalid},
         "4 names|1 name is not possible: the run would end there|2 rows will replace the file of an "
         "earlier row|1 name is not known before the run"},
        {false,
         {OwnSource, Exists, SameAsRow},
         "3 names|2 rows will be skipped, because their files exist|1 row will be skipped, because an "
         "earlier row has its name"},
    };
    for (const auto& c : cases) {
        NameSummary summary(c.overwrite);
        for (const NameClash clash : c.clashes)
            summary.add({1, {}, {}, clash, 0, {}});
        EXPECT_EQ(summary.sentences().join(QLatin1Char('|')).toStdString(), c.sentences);
    }
}

TEST(BatchResults, ShowProblemsFirstAndCanBeCopiedSavedAndOpened) {
    const auto result = [](int row, RowState state, const char* reason = "") {
        const QString source = QStringLiteral("/s%1").arg(row);
        RowResult made{row, source, QStringLiteral("/t%1").arg(row), state, SkipReason::None, {}};
        if (*reason)
            made.remark(QLatin1String(reason));
        return made;
    };
    TestDesktop desktop;
    auto* results = new frmBatchResults({result(1, RowState::Written), result(2, RowState::Skipped, "exists"),
                                         result(3, RowState::Written, "damaged"),
                                         result(4, RowState::Failed, "no picture")},
                                        nullptr);
    EXPECT_EQ(child<QLabel>(*results, "lblSummary").text().toStdString(),
              "2 written, 1 skipped, 1 failed - 1 of the written pictures has a warning");
    results->show();
    const QTreeView& list = *results->findChild<QTreeView*>();
    EXPECT_EQ(list.columnViewportPosition(3) + list.columnWidth(3), list.viewport()->width())
        << "the reasons have the room that is left";
    click(*results, "cmdCopyAll");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "failed\t/s4\t/t4\tno picture\nwritten\t/s3\t/t3\tdamaged\n"
              "skipped\t/s2\t/t2\texists\nwritten\t/s1\t/t1\t");
    QTest::keyClick(&child<QAbstractButton>(*results, "lnkFolder"), Qt::Key_Return);
    EXPECT_EQ(desktop.opened, QStringList(QStringLiteral("/")));
    desktop.opens = false;
    click(*results, "cmdOpenFolder");
    ASSERT_EQ(desktop.messages.size(), 1u) << "a folder that doesn't open is no silence";
    EXPECT_EQ(desktop.messages[0].text.toStdString(), "The folder / could not be opened.");
    desktop.opens = true;
    auto& rows = child<ListControl>(*results, "lvResults");
    rows.setFocus();
    for (const int row : {0, 1}) {
        rows.list().selectOnly(row);
        QTest::keyClick(results->focusWidget(), Qt::Key_Return);
    }
    EXPECT_EQ(desktop.opened.mid(2).join(QLatin1Char(' ')).toStdString(), "/s4 /t3")
        << "the source of a failed row, the target of a written one";
    const QTemporaryDir home;
    desktop.fileChoices = {FileDialogChoice{home.filePath(QStringLiteral("list")), 1}};
    click(*results, "cmdSaveText");
    EXPECT_TRUE(readWholeFile(home.filePath(QStringLiteral("list.txt"))).startsWith("failed\t/s4\t/t4"));
    rows.list().selectOnly(-1);
    rows.setFocus();
    QTest::keyClick(results->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(results->isVisible()) << "without a row Return closes";
}

} // namespace tarsel::test
