// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FolderTree.h"
#include "base/SafeFileWriter.h"
#include "controls/ListControl.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Corpus.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolButton>

namespace tarsel::test {

namespace {

class MainWindow : public WindowTest {
protected:
    QString panel(const char* key) { return window().workspace().sbMain.panel(QLatin1String(key)); }

    void clickRow(const char* list, int row, Qt::KeyboardModifiers modifiers = {}) {
        pressRow(list, row, modifiers);
        settle();
    }

    /// A click that waits for nothing.
    void pressRow(const char* list, int row, Qt::KeyboardModifiers modifiers = {}) {
        QAbstractItemView* view = child<ListControl>(window(), list).view();
        view->scrollTo(view->model()->index(row, 0));
        const QRect place = view->visualRect(view->model()->index(row, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, place.center());
    }

    /// Lets a click take effect and the preview finish.
    void settle() {
        QCoreApplication::processEvents();
        EXPECT_TRUE(waitFor([&] { return !window().preview().isBusy(); }));
    }

    /// Writes the list of one task, a flip, and returns its path.
    QString flipList() {
        QString record = QStringLiteral("\"1\",\"flip\"");
        for (int column = 1; column <= 17; ++column)
            record += column == 1 ? QStringLiteral(",\"1\"") : QStringLiteral(",\"\"");
        writeFileSafely(path("flip.tbf"), (record + QStringLiteral("\r\n")).toLatin1());
        return path("flip.tbf");
    }

    void choosePreviewType(const char* text) {
        for (QAction* action : child<QMenu>(window(), "mnuPreviewType").actions())
            if (action->text() == QLatin1String(text))
                action->trigger();
        settle();
    }

    const Picture& shown() { return window().workspace().ibMain.picture(); }
};

} // namespace

TEST_F(MainWindow, AnotherFolderChosenInTheMiddleOfAListingLeavesNoRowOfTheFirst) {
    makePictures(10);
    const QString other = path("other");
    QDir().mkpath(other);
    makePicture(other + QStringLiteral("/single.jpg"));
    start();
    auto& tree = child<FolderTree>(window(), "ftvBrowse");
    ListView& list = window().workspace().lvFolder;
    bool clicked = false;
    QObject::connect(&list, &QAbstractItemModel::rowsInserted, &list, [&] {
        if (!std::exchange(clicked, true))
            QTimer::singleShot(0, &tree, [&] { tree.selectFolder(other); });
    });
    tree.selectFolder(pictures());
    EXPECT_TRUE(waitFor([&] {
        return clicked && !window().folderView().isRunning() &&
               panel("folder").endsWith(QLatin1String("/other"));
    }));
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.row(0).text.toStdString(), "single.jpg");
}

TEST_F(MainWindow, AClickShowsThePictureAndItsFacts) {
    makePictures(3);
    start();
    listFolder(pictures());
    clickRow("lvFolder", 1);
    EXPECT_EQ(panel("filename").toStdString(), "photo02.jpg");
    EXPECT_EQ(panel("pages").toStdString(), "1 page(s)");
    EXPECT_TRUE(panel("resolution").startsWith(QLatin1String("64 x 48  ")));
    EXPECT_EQ(window().workspace().ibMain.Width(), 64);
    click(window(), "cmdPreviewNext");
    settle();
    EXPECT_EQ(panel("filename").toStdString(), "photo03.jpg");
    click(window(), "cmdPreviewNext");
    settle();
    EXPECT_EQ(panel("filename").toStdString(), "photo03.jpg") << "no step beyond the last row";
}

TEST_F(MainWindow, ADamagedPictureEmptiesThePreviewAndOpensNoDialog) {
    makePictures(1);
    writeFileSafely(pictures() + QStringLiteral("/broken.jpg"), "\xff\xd8\xff\xe0 no picture");
    start();
    click(window(), "cmdDetailFolder");
    listFolder(pictures());
    ASSERT_EQ(window().workspace().lvFolder.count(), 2);
    clickRow("lvFolder", 0);
    EXPECT_FALSE(window().workspace().ibMain.HasImage());
    clickRow("lvFolder", 1);
    EXPECT_TRUE(window().workspace().ibMain.HasImage());
}

TEST_F(MainWindow, AddingTwiceAddsOnceAndRemovingCounts) {
    makePictures(3);
    start();
    listFolder(pictures());
    addAll();
    addAll();
    EXPECT_EQ(window().workspace().lvPages.count(), 3);
    EXPECT_EQ(panel("queue").toStdString(), "3 file(s) in basket");
    clickRow("lvPages", 1);
    QTest::keyClick(child<ListControl>(window(), "lvPages").view(), Qt::Key_Delete);
    EXPECT_EQ(panel("queue").toStdString(), "2 file(s) in basket");
    EXPECT_EQ(window().workspace().lvPages.row(1).text.toStdString(), "photo03");
}

TEST_F(MainWindow, EnterInTheFolderListAddsTheSelection) {
    makePictures(2);
    start();
    listFolder(pictures());
    clickRow("lvFolder", 1);
    QTest::keyClick(child<ListControl>(window(), "lvFolder").view(), Qt::Key_Return);
    ASSERT_EQ(window().workspace().lvPages.count(), 1);
    EXPECT_EQ(window().workspace().lvPages.row(0).text.toStdString(), "photo02");
}

TEST_F(MainWindow, NewBasketEmptiesAndDeletesThePageFiles) {
    makePictures(2);
    start();
    listFolder(pictures());
    addAll();
    const QString pageFile = programFolder() + QStringLiteral("/Temp/scan.tif1_17.tif");
    writeFileSafely(pageFile, "x");
    click(window(), "cmdPagesNew");
    EXPECT_EQ(window().workspace().lvPages.count(), 0);
    EXPECT_EQ(panel("queue").toStdString(), "New Basket");
    EXPECT_FALSE(QFile::exists(pageFile));
}

TEST_F(MainWindow, DroppedRowsAreAddedAndBasketRowsChangePlaces) {
    makePictures(3);
    start();
    listFolder(pictures());
    auto& folder = child<ListControl>(window(), "lvFolder");
    auto& basket = child<ListControl>(window(), "lvPages");
    selectAllOf("lvFolder");
    Q_EMIT basket.rowsDropped(&folder, -1);
    ASSERT_EQ(window().workspace().lvPages.count(), 3);
    clickRow("lvPages", 0);
    Q_EMIT basket.rowsDropped(&basket, 2);
    EXPECT_EQ(window().workspace().lvPages.row(2).text.toStdString(), "photo01");
}

TEST_F(MainWindow, BasketSavedAndOpenedAgainHoldsTheSameFiles) {
    makePictures(2);
    start();
    listFolder(pictures());
    addAll();
    TestDesktop scripted;
    scripted.fileChoices.push_back(FileDialogChoice{path("list"), 2});
    click(window(), "cmdPagesSave");
    ASSERT_TRUE(QFile::exists(path("list.ibf")));
    click(window(), "cmdPagesNew");
    scripted.fileChoices.push_back(FileDialogChoice{path("list.ibf"), 1});
    click(window(), "cmdPagesOpen");
    EXPECT_EQ(window().workspace().lvPages.count(), 2);
    ASSERT_EQ(scripted.fileDialogs.size(), 2u);
    EXPECT_EQ(scripted.fileDialogs[0].title.toStdString(), "Save Basket");
    EXPECT_TRUE(scripted.messages.empty());
}

TEST_F(MainWindow, OpeningABasketOverRowsAsksAndCancelKeepsThem) {
    makePictures(2);
    start();
    listFolder(pictures());
    addAll();
    TestDesktop scripted;
    scripted.answers = {MessageAnswer::Cancel};
    click(window(), "cmdPagesOpen");
    ASSERT_EQ(scripted.messages.size(), 1u);
    EXPECT_EQ(scripted.messages[0].text.toStdString(),
              "There are currently files in the Basket!.\nDo you want to continue?");
    EXPECT_EQ(window().workspace().lvPages.count(), 2);
    EXPECT_TRUE(scripted.fileDialogs.empty());
}

TEST_F(MainWindow, OpeningATaskListClickingARowAndRemovingOneReplayInEitherView) {
    makePictures(1);
    start();
    listFolder(pictures());
    clickRow("lvFolder", 0);
    const Picture before = shown();
    for (const char* type : {"Optimized", "Original"}) {
        choosePreviewType(type);
        TestDesktop scripted;
        scripted.fileChoices.push_back(FileDialogChoice{flipList(), 1});
        click(window(), "cmdEditBar_1");
        settle();
        ASSERT_EQ(window().workspace().tasks.count(), 1);
        EXPECT_EQ(window().workspace().tasks.lvEdit.row(0).text.toStdString(), "Orientation");
        EXPECT_FALSE(shown() == before) << type;
        choosePreviewType("Optimized");
        choosePreviewType("Original");
        EXPECT_TRUE(shown() == before);
        Q_EMIT child<ListControl>(window(), "lvEdit").rowClicked();
        settle();
        EXPECT_FALSE(shown() == before) << type;
        window().workspace().tasks.lvEdit.selectOnly(0);
        click(window(), "cmdEditBar_3");
        settle();
        EXPECT_EQ(window().workspace().tasks.count(), 0);
        EXPECT_TRUE(shown() == before) << type;
    }
}

TEST_F(MainWindow, OfPicturesClickedQuicklyTheLastIsShownAndDescribed) {
    makePictures(3);
    makePicture(pictures() + QStringLiteral("/z.jpg"), {31, 17});
    start();
    listFolder(pictures());
    TestDesktop scripted;
    scripted.fileChoices.push_back(FileDialogChoice{flipList(), 1});
    click(window(), "cmdEditBar_1");
    choosePreviewType("Optimized");
    ImageBox expected;
    expected.LoadFromFile(pictures() + QStringLiteral("/z.jpg"));
    expected.Flip(1);
    for (int round = 0; round < 12; ++round) {
        for (int row = 0; row < 4; ++row) {
            pressRow("lvFolder", row);
            for (int events = 0; events < (round + row) % 4; ++events)
                QCoreApplication::processEvents();
        }
        settle();
        EXPECT_TRUE(shown() == expected.picture()) << "the tasks ran once, on the picture clicked last";
        EXPECT_EQ(panel("filename").toStdString(), "z.jpg");
        EXPECT_TRUE(panel("resolution").startsWith(QLatin1String("31 x 17")))
            << panel("resolution").toStdString();
        EXPECT_EQ(window().workspace().lvIPTC.count(), 52) << "rows of one picture";
        EXPECT_EQ(window().workspace().lvIPTC.tag(), pictures() + QStringLiteral("/z.jpg"));
        clickRow("lvFolder", 0);
    }
}

TEST_F(MainWindow, SeveralSelectedRowsLoadNoPicture) {
    makePictures(4);
    start();
    listFolder(pictures());
    clickRow("lvFolder", 0);
    clickRow("lvFolder", 1, Qt::ControlModifier);
    clickRow("lvFolder", 3, Qt::ShiftModifier);
    EXPECT_EQ(panel("filename").toStdString(), "photo01.jpg");
    clickRow("lvFolder", 2);
    EXPECT_EQ(panel("filename").toStdString(), "photo03.jpg");
}

TEST_F(MainWindow, AddingADocumentLeavesThePreviewAndItsPanelsAlone) {
    makePictures(1);
    makeDocument(pictures() + QStringLiteral("/scan.tif"), {{{9, 7}}, {{5, 6}}});
    start();
    listFolder(pictures());
    clickRow("lvFolder", 0);
    const Picture before = shown();
    EXPECT_EQ(panel("metadata").toStdString(), "No metadata") << "empty fields are not IPTC data";
    addAll();
    EXPECT_EQ(window().workspace().lvPages.count(), 3);
    EXPECT_TRUE(shown() == before);
    EXPECT_EQ(window().workspace().ibMain.Tag, window().preview().shownPath());
}

TEST_F(MainWindow, ThePreviewOfATransparentPictureIsLaidOnWhite) {
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.save(pictures() + QStringLiteral("/clear.png"));
    start();
    listFolder(pictures());
    clickRow("lvFolder", 0);
    ASSERT_EQ(shown().channels(), 3);
    EXPECT_EQ(window().workspace().ibMain.PixelColor(4, 4), 0xFFFFFF);
}

TEST_F(MainWindow, ADescriptionLosesItsQuotesAndStaysWithItsRow) {
    makePictures(2);
    start();
    listFolder(pictures());
    addAll();
    script.on("frmAlbumDescription", [](QWidget& dialog) {
        QTest::keyClicks(&child<QPlainTextEdit>(dialog, "txtDescription"),
                         QStringLiteral("The \"old\" mill & I"));
        click(dialog, "cmdAdd");
    });
    clickRow("lvPages", 1);
    QAbstractItemView* view = child<ListControl>(window(), "lvPages").view();
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {},
                       view->visualRect(view->model()->index(1, 0)).center());
    EXPECT_TRUE(waitFor([&] { return script.isDone(); }));
    EXPECT_EQ(window().workspace().lvPages.subItem(1, 5).toStdString(), "The old mill  I");
    script.on("frmAlbumDescription", [](QWidget& dialog) { click(dialog, "cmdAdd"); });
    Q_EMIT child<ListControl>(window(), "lvPages").rowDoubleClicked();
    EXPECT_EQ(window().workspace().lvPages.subItem(1, 5).toStdString(), "The old mill  I")
        << "the dialog opens with the row's text";
}

TEST_F(MainWindow, ATitleThatNoFileNameCanHoldIsRefusedWithAReason) {
    makePictures(1);
    start();
    listFolder(pictures());
    addAll();
    auto& control = child<ListControl>(window(), "lvPages");
    const struct {
        QString typed;
        const char* title;
        const char* status;
    } cases[] = {
        {QStringLiteral("a/b"), "photo01", "The title was not changed: it can't contain \"/\"."},
        {QStringLiteral("  "), "photo01", "The title was not changed: it can't be empty."},
        {QString(252, QLatin1Char('x')), "photo01", "The title was not changed: it is too long."},
        {QStringLiteral("sea"), "sea", nullptr},
    };
    for (const auto& c : cases) {
        control.editText(0);
        auto* editor = control.view()->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        editor->setText(c.typed);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the editor commits in an event of its own
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(control.list().row(0).text.toStdString(), c.title);
        if (c.status) {
            EXPECT_EQ(panel("status").toStdString(), c.status);
        }
    }
}

TEST_F(MainWindow, AddingIsCancelledByTheButtonAndByEsc) {
    makePictures(40);
    start();
    listFolder(pictures());
    ListView& pages = window().workspace().lvPages;
    auto& cancel = child<QAbstractButton>(window(), "cmdCancelAdding");
    EXPECT_FALSE(cancel.isVisible());
    const std::function<void()> ways[] = {[&] { click(window(), "cmdCancelAdding"); },
                                          [&] { QTest::keyClick(&window(), Qt::Key_Escape); }};
    for (const auto& way : ways) {
        click(window(), "cmdPagesNew");
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            if (pages.count() >= 3)
                way();
        });
        watch.start(0);
        addAll();
        EXPECT_GE(pages.count(), 3);
        EXPECT_LT(pages.count(), 40);
        EXPECT_FALSE(cancel.isVisible());
    }
}

TEST_F(MainWindow, EveryFolderOfTheCorpusIsListedAndEveryPictureShownOrLeftEmpty) {
    TARSEL_REQUIRE_CORPUS();
    QStringList folders;
    for (const CorpusPicture& picture : corpusPictures())
        if (const QString folder = QFileInfo(picture.path).path(); !folders.contains(folder))
            folders << folder;
    start();
    TestDesktop scripted;
    scripted.onYield = [] { QCoreApplication::processEvents(); };
    click(window(), "cmdDetailFolder");
    ListView& list = window().workspace().lvFolder;
    int shown = 0;
    for (const QString& folder : folders) {
        listFolder(folder);
        child<ListControl>(window(), "lvFolder").setFocus();
        for (int row = 0; row < list.count(); ++row) {
            clickRow("lvFolder", row);
            shown += window().workspace().ibMain.HasImage() ? 1 : 0;
            QCoreApplication::processEvents();
        }
    }
    EXPECT_GT(shown, 100);
    // Damaged attributes are reported where they are worded; a damaged picture is no error of its own.
    for (const ErrorReport& report : scripted.reports)
        EXPECT_TRUE(report.ErrRoutine.startsWith(QLatin1String("modMetadata.")))
            << report.ErrSystem.toStdString();
}

TEST_F(MainWindow, NoButtonIsBlankOrWithoutAName) {
    start();
    for (const QAbstractButton* button : window().findChildren<QAbstractButton*>()) {
        const auto* arrow = qobject_cast<const QToolButton*>(button);
        if (!button->isVisible() || button->objectName().startsWith(QLatin1String("qt_")) ||
            button->objectName().isEmpty() || (arrow && arrow->arrowType() != Qt::NoArrow))
            continue;
        EXPECT_FALSE(button->icon().isNull() && button->text().isEmpty())
            << button->objectName().toStdString();
        EXPECT_FALSE(button->accessibleName().isEmpty() && button->text().isEmpty())
            << button->objectName().toStdString();
    }
}

} // namespace tarsel::test
