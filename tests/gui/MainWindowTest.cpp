// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainActions.h"
#include "base/SafeFileWriter.h"
#include "collections/Thumbnail.h"
#include "controls/ListControl.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Boxes.h"
#include "tests/support/MadePictures.h"
#include "tests/support/TestDesktop.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSlider>
#include <QSplitterHandle>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>

namespace tarsel::test {

namespace {

class MainWindow : public WindowTest {
protected:
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
        writeFileSafely(path("flip.tbf"), "\"1\",\"flip\",\"1\"" + QByteArray(",\"\"").repeated(16) + "\r\n");
        return path("flip.tbf");
    }

    void choosePreviewType(const char* text) {
        for (QAction* action : child<QMenu>(window(), "mnuPreviewType").actions())
            if (action->objectName() == QLatin1String("mnuPreview") + QLatin1String(text))
                action->trigger();
        settle();
    }

    const Picture& shown() { return window().workspace().ibMain.picture(); }
};

} // namespace

TEST_F(MainWindow, AClickShowsThePictureAndItsFactsAndSeveralRowsShowNoOther) {
    writeFileSafely(pictures() + QStringLiteral("/broken.jpg"), "\xff\xd8\xff\xe0 no picture");
    makePictures(4);
    start();
    click(window(), "cmdDetailFolder");
    listFolder(pictures());
    ASSERT_EQ(texts(listed()), "broken.jpg photo01.jpg photo02.jpg photo03.jpg photo04.jpg");
    clickRow("lvFolder", 3);
    EXPECT_EQ(panel("filename"), "photo03.jpg");
    EXPECT_EQ(panel("pages"), "1 page(s)");
    EXPECT_EQ(panel("resolution").substr(0, 14), "64 X 48 X 24  ");
    EXPECT_EQ(panel("metadata"), "No metadata") << "empty fields are not IPTC data";
    EXPECT_EQ(window().workspace().ibMain.Width(), 64);
    for (int step = 0; step < 2; ++step) { // the second one finds no row
        click(window(), "cmdPreviewNext");
        settle();
        EXPECT_EQ(panel("filename"), "photo04.jpg");
    }
    clickRow("lvFolder", 0);
    EXPECT_FALSE(window().workspace().ibMain.HasImage()) << "a damaged picture, and no dialog";
    EXPECT_EQ(panel("filename") + ": " + panel("status"), "photo04.jpg: broken.jpg can't be shown");
}

TEST_F(MainWindow, EachInputInTheFolderListSelectsShowsAndAdds) {
    startListing(4);
    const auto view = [&] { return child<ListControl>(window(), "lvFolder").view(); };
    const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(view(), pressed, with);
    };
    const auto placeOf = [&](int row) { return view()->visualRect(listed().index(row, 0)).center(); };
    const struct {
        const char* name;
        std::function<void()> input;
        const char* shown;
        const char* added;
        size_t selected;
    } cases[] = {
        {"click", [&] { clickRow("lvFolder", 2); }, "photo03.jpg", "", 1},
        {"Ctrl+click", [&] { clickRow("lvFolder", 2, Qt::ControlModifier); }, "photo01.jpg", "", 2},
        {"Shift+click", [&] { clickRow("lvFolder", 2, Qt::ShiftModifier); }, "photo01.jpg", "", 3},
        {"arrow", [&] { key(Qt::Key_End); }, "photo04.jpg", "", 1},
        {"typing",
         [&] {
             QTest::keyClicks(view(), QStringLiteral("photo03"));
             EXPECT_TRUE(waitFor([&] { return panel("filename") == "photo03.jpg"; }));
         },
         "photo03.jpg", "", 1},
        {"Shift+arrow", [&] { key(Qt::Key_End, Qt::ShiftModifier); }, "photo01.jpg", "", 4},
        {"Ctrl+A", [&] { key(Qt::Key_A, Qt::ControlModifier); }, "photo01.jpg", "", 4},
        {"Return", [&] { key(Qt::Key_Return); }, "photo01.jpg", "photo01", 1},
        {"double click",
         [&] {
             clickRow("lvFolder", 1);
             QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, placeOf(1));
         },
         "photo02.jpg", "photo02", 1},
        {"menu",
         [&] {
             QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, placeOf(3));
             QContextMenuEvent event(QContextMenuEvent::Mouse, placeOf(3), QCursor::pos());
             QCoreApplication::sendEvent(view()->viewport(), &event);
             auto& menu = child<QMenu>(window(), "mnuContextFolderParent");
             ASSERT_TRUE(menu.isVisible());
             menu.actions().first()->trigger();
             menu.close();
         },
         "photo01.jpg", "photo04", 1},
    };
    for (const char* form : {"cmdThumbnailFolder", "cmdDetailFolder"}) {
        click(window(), form);
        for (const auto& each : cases) {
            SCOPED_TRACE(std::string(form) + " " + each.name);
            click(window(), "cmdPagesNew");
            clickRow("lvFolder", 0);
            each.input();
            settle();
            EXPECT_EQ(panel("filename"), each.shown);
            EXPECT_EQ(texts(basket()), each.added);
            EXPECT_EQ(listed().selectedRows().size(), each.selected);
        }
    }
    QTest::mouseClick(qobject_cast<QTreeView*>(view())->header()->viewport(), Qt::LeftButton, {}, {10, 5});
    EXPECT_EQ(texts(listed()), "photo01.jpg photo02.jpg photo03.jpg photo04.jpg");
    QMenu& menu = child<QMenu>(window(), "mnuContextFolderParent");
    Q_EMIT menu.aboutToShow();
    QAction* byName = menu.actions().at(1)->menu()->actions().at(0);
    EXPECT_TRUE(byName->isChecked());
    byName->trigger();
    EXPECT_EQ(texts(listed()), "photo04.jpg photo03.jpg photo02.jpg photo01.jpg");
}

TEST_F(MainWindow, ThumbnailsOfAnotherSizeLeaveOrderSelectionAndPlaceAsTheyAre) {
    startListing(40);
    auto& list = child<ListControl>(window(), "lvFolder");
    auto& size = child<QSlider>(window(), "sldThumbnailSize");
    EXPECT_EQ(size.value(), 40);
    listed().sort(0, Qt::DescendingOrder);
    clickRow("lvFolder", 20);
    const auto place = [&] { return list.view()->visualRect(listed().index(20, 0)).top(); };
    const int before = place();
    const std::string order = texts(listed());
    QWheelEvent wheel({5, 5}, list.view()->mapToGlobal(QPoint(5, 5)), {}, {0, 120}, {}, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(list.view()->viewport(), &wheel);
    EXPECT_EQ(size.value(), 60);
    EXPECT_EQ(list.thumbnailSize(), QSize(60, 60)) << "at once";
    const auto made = [&] { return pictureAt(window().workspace().ilFolder, listed().row(39).icon).width(); };
    EXPECT_EQ(made(), 40);
    EXPECT_TRUE(waitFor([&] { return made() == 60 && !window().folderView().isRunning(); }));
    EXPECT_EQ(texts(listed()), order);
    EXPECT_EQ(listed().selectedRows(), std::vector<int>{20});
    EXPECT_EQ(place(), before);
    close();
    start();
    EXPECT_EQ(child<QSlider>(window(), "sldThumbnailSize").value(), 60);
}

TEST_F(MainWindow, RowsAreAddedByDropMovedByDropRemovedByDeleteAndAllByNewBasket) {
    startListing(3);
    clickRow("lvFolder", 1);
    click(window(), "cmdAddToQueue");
    selectAllOf("lvFolder");
    auto& pages = child<ListControl>(window(), "lvPages");
    Q_EMIT pages.rowsDropped(&child<ListControl>(window(), "lvFolder"), -1);
    EXPECT_EQ(texts(basket()), "photo02 photo01 photo03");
    clickRow("lvPages", 0);
    clickRow("lvPages", 2, Qt::ControlModifier);
    EXPECT_EQ(panel("filename"), "photo02.jpg") << "several rows load no picture";
    const auto moveUp = [&] {
        QTest::keyClick(pages.view(), Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    };
    moveUp();
    EXPECT_EQ(texts(basket()), "photo02 photo03 photo01");
    clickRow("lvPages", 2);
    moveUp();
    EXPECT_EQ(texts(basket()), "photo02 photo01 photo03");
    clickRow("lvPages", 0);
    Q_EMIT pages.rowsDropped(&pages, 2);
    EXPECT_EQ(texts(basket()), "photo01 photo03 photo02");
    clickRow("lvPages", 1);
    QTest::keyClick(pages.view(), Qt::Key_Delete);
    EXPECT_EQ(texts(basket()), "photo01 photo02");
    EXPECT_EQ(panel("queue"), "2 file(s) in basket");
    settle();
    EXPECT_EQ(panel("filename"), "photo02.jpg") << "the next row is shown";
    EXPECT_EQ(pages.view()->currentIndex().row(), 1);
    const QList<QAction*> menu = child<QMenu>(window(), "mnuContext").actions();
    EXPECT_EQ(menu.at(9)->text().toStdString(), "&Undo removing from basket");
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(texts(basket()), "photo01 photo03 photo02");
    QTest::qWait(0);
    EXPECT_EQ(basket().selectedRows(), std::vector<int>{1});
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(pages.view(), Qt::Key_Delete, Qt::ControlModifier | Qt::ShiftModifier); // removes a task
    listed().selectOnly(-1);
    selectAllOf("lvPages");
    QTest::keyClick(pages.view(), Qt::Key_Delete);
    settle();
    EXPECT_FALSE(window().workspace().ibMain.HasImage()) << "nothing is left to be shown";
    QTest::keyClick(&window(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(basket().count(), 2);
    settle();
    EXPECT_TRUE(window().workspace().ibMain.HasImage()) << "the row that is back is shown";
    const QString pageFile = programFolder() + QStringLiteral("/Temp/scan.tif1_17.tif");
    writeFileSafely(pageFile, "x");
    click(window(), "cmdPagesNew");
    EXPECT_EQ(basket().count(), 0);
    for (const int entry : {0, 1, 2, 5, 6})
        EXPECT_FALSE(menu.at(entry)->isEnabled()) << "without a row to work on";
    EXPECT_EQ(panel("queue"), "New Basket");
    EXPECT_FALSE(QFile::exists(pageFile));
}

TEST_F(MainWindow, ABasketSavedIsOpenedAgainAndOverRowsOnlyAfterAQuestion) {
    startWithBasket(2);
    TestDesktop scripted;
    scripted.fileChoices = {FileDialogChoice{path("list"), 2}};
    click(window(), "cmdPagesSave");
    ASSERT_TRUE(QFile::exists(path("list.ibf")));
    scripted.answers = {MessageAnswer::Cancel};
    click(window(), "cmdPagesOpen");
    ASSERT_EQ(scripted.messages.size(), 1u);
    EXPECT_EQ(scripted.messages[0].text.toStdString(),
              "There are currently files in the Basket!.\nDo you want to continue?");
    EXPECT_EQ(basket().count(), 2);
    click(window(), "cmdPagesNew");
    scripted.fileChoices = {FileDialogChoice{path("list.ibf"), 1}};
    click(window(), "cmdPagesOpen");
    EXPECT_EQ(basket().count(), 2);
    EXPECT_EQ(scripted.messages.size(), 1u);
    ASSERT_EQ(scripted.fileDialogs.size(), 2u) << "none after Cancel";
    EXPECT_EQ(scripted.fileDialogs[0].title.toStdString(), "Save Basket");
    // as a file manager opens it
    scripted.answers = {MessageAnswer::Cancel};
    window().openFile(path("list.ibf"));
    EXPECT_TRUE(waitFor([&] { return scripted.messages.size() == 2; }));
    click(window(), "cmdPagesNew");
    window().openFile(path("list.ibf"));
    EXPECT_TRUE(waitFor([&] { return basket().count() == 2; }));
    scripted.answers = {MessageAnswer::Ok};
    window().openFile(path("gone.ibd"));
    EXPECT_TRUE(waitFor([&] { return scripted.messages.size() == 4; }))
        << "a question, and that it can't be opened";
}

TEST_F(MainWindow, OpeningATaskListClickingARowAndRemovingOneReplayInEitherView) {
    startListing(1);
    clickRow("lvFolder", 0);
    const Picture before = shown();
    for (const char* type : {"Optimized", "Original"}) {
        choosePreviewType(type);
        TestDesktop scripted;
        scripted.fileChoices.push_back(FileDialogChoice{flipList(), 1});
        click(window(), "cmdEditBar_1");
        settle();
        EXPECT_FALSE(shown() == before) << type;
        choosePreviewType("Optimized");
        choosePreviewType("Original");
        EXPECT_TRUE(shown() == before);
        window().workspace().tasks.lvEdit.selectOnly(0);
        Q_EMIT child<ListControl>(window(), "lvEdit").rowClicked();
        settle();
        EXPECT_FALSE(shown() == before) << type;
        click(window(), "cmdEditBar_3");
        settle();
        EXPECT_TRUE(shown() == before) << type;
    }
}

TEST_F(MainWindow, OfPicturesClickedQuicklyTheLastIsShownAndDescribed) {
    makePicture(pictures() + QStringLiteral("/z.jpg"), {31, 17});
    startListing(3);
    TestDesktop scripted;
    scripted.fileChoices.push_back(FileDialogChoice{flipList(), 1});
    click(window(), "cmdEditBar_1");
    choosePreviewType("Optimized");
    ImageBox expected = loaded(pictures() + QStringLiteral("/z.jpg"));
    expected.Flip(1);
    for (int round = 0; round < 4; ++round) {
        for (int row = 0; row < 4; ++row) {
            pressRow("lvFolder", row);
            for (int events = 0; events < (round + row) % 4; ++events)
                QCoreApplication::processEvents();
        }
        settle();
        EXPECT_TRUE(shown() == expected.picture()) << "the tasks ran once, on the picture clicked last";
        EXPECT_EQ(panel("filename"), "z.jpg");
        EXPECT_EQ(panel("resolution").substr(0, 7), "31 x 17");
        EXPECT_EQ(window().workspace().lvIPTC.count(), 52) << "rows of one picture";
        EXPECT_EQ(window().workspace().lvIPTC.tag(), pictures() + QStringLiteral("/z.jpg"));
        clickRow("lvFolder", 0);
    }
}

TEST_F(MainWindow, ADescriptionLosesItsQuotesAndStaysWithItsRow) {
    startWithBasket(2);
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
    EXPECT_EQ(basket().subItem(1, 5).toStdString(), "The old mill  I");
    script.on("frmAlbumDescription", [&](QWidget& dialog) {
        basket().remove(0); // as may happen while files are added
        click(dialog, "cmdAdd");
    });
    Q_EMIT child<ListControl>(window(), "lvPages").rowDoubleClicked();
    EXPECT_TRUE(waitFor([&] { return script.isDone(); }));
    EXPECT_EQ(basket().subItem(0, 5).toStdString(), "The old mill  I")
        << "the dialog opens with the row's text";
}

TEST_F(MainWindow, TheMenuKeyOpensTheMenuAndF2RenamesUnlessNoFileNameCanHoldTheTitle) {
    startWithBasket(2);
    auto& control = child<ListControl>(window(), "lvPages");
    QAbstractItemView* view = control.view();
    const auto typeTitle = [&](const QString& title) {
        auto* editor = view->findChild<QLineEdit*>();
        ASSERT_TRUE(editor);
        editor->setText(title);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the editor commits in an event of its own
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    view->setFocus();
    basket().selectOnly(1);
    QTest::qWait(0);
    QTest::keyClick(view, Qt::Key_F10, Qt::ShiftModifier);
    auto& menu = child<QMenu>(window(), "mnuContext");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    QTest::keyClick(view, Qt::Key_F2);
    typeTitle(QStringLiteral("sea"));
    EXPECT_EQ(texts(basket()), "photo01 sea");
    const std::pair<QString, const char*> refused[] = {
        {QStringLiteral("a/b"), "The title was not changed: it can't contain \"/\"."},
        {QStringLiteral("  "), "The title was not changed: it can't be empty."},
        {QString(252, QLatin1Char('x')), "The title was not changed: it is too long."},
    };
    for (const auto& [typed, reason] : refused) {
        SCOPED_TRACE(reason);
        control.editText(1);
        typeTitle(typed);
        EXPECT_EQ(texts(basket()), "photo01 sea");
        EXPECT_EQ(panel("status"), reason);
    }
    control.editText(1);
    typeTitle(QStringLiteral("lake"));
    EXPECT_EQ(panel("status"), "");

    control.editText(1);
    auto* editor = view->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    editor->setText(QStringLiteral("river"));
    std::string title;
    QAction& command = *child<QToolButton>(window(), "cmdDetailFolder").defaultAction();
    QObject::connect(&command, &QAction::triggered, &window(), [&] { title = texts(basket()); });
    command.trigger();
    EXPECT_EQ(title, "photo01 river") << "what is being typed is taken before a command";
}

TEST_F(MainWindow, AddingEndsByTheButtonByEscAndByClosingTheWindow) {
    startListing(40);
    auto& cancel = child<QAbstractButton>(window(), "cmdCancelAdding");
    EXPECT_FALSE(cancel.isVisible());
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"button", [&] { click(window(), "cmdCancelAdding"); }},
        {"Esc", [&] { QTest::keyClick(&window(), Qt::Key_Escape); }},
        {"close", [&] { window().close(); }},
    };
    for (const auto& [name, way] : ways) {
        SCOPED_TRACE(name);
        click(window(), "cmdPagesNew");
        when([&] { return basket().count() == 40; }, // before any of them is read
             [&] {
                 EXPECT_FALSE(child<QWidget>(window(), "cmdPagesOpen").isEnabled());
                 way();
             });
        addAll();
        EXPECT_LT(basket().count(), 40);
        EXPECT_FALSE(cancel.isVisible());
    }
}

TEST_F(MainWindow, AListingEndsByTheButtonAndByEscAndIsMadeCompleteByRefresh) {
    startListing(40);
    const auto& cancel = child<QAbstractButton>(window(), "cmdCancelAdding");
    const std::function<void()> ways[] = {
        [&] { click(window(), "cmdCancelAdding"); },
        [&] { QTest::keyClick(&window(), Qt::Key_Escape); },
    };
    for (const std::function<void()>& way : ways) {
        click(window(), "cmdRefreshFolder");
        EXPECT_TRUE(cancel.isVisible());
        way();
        EXPECT_FALSE(window().folderView().isRunning() || cancel.isVisible());
        EXPECT_EQ(panel("status"), "The listing was stopped. Press F5 to list the folder again.");
    }
    click(window(), "cmdDetailFolder");
    EXPECT_TRUE(waitFor([&] { return listed().count() == 40 && !window().folderView().isRunning(); }));
    EXPECT_EQ(panel("status"), "");
}

TEST_F(MainWindow, AnEmptyFolderSaysSoAndTakesThePreviewAwayUnlessItIsTheBaskets) {
    startWithBasket(2);
    QDir().mkpath(path("empty"));
    clickRow("lvPages", 0);
    listFolder(path("empty"));
    const auto& hint = *child<ListControl>(window(), "lvFolder").findChild<QLabel*>();
    EXPECT_TRUE(hint.isVisible());
    EXPECT_EQ(hint.text().toStdString(), "This folder holds no pictures that can be shown.");
    EXPECT_TRUE(window().workspace().ibMain.HasImage()) << "the picture of a row that is still selected";
    listFolder(pictures());
    EXPECT_FALSE(hint.isVisible());
    clickRow("lvFolder", 1);
    listFolder(path("empty"));
    EXPECT_FALSE(window().workspace().ibMain.HasImage());
    EXPECT_EQ(panel("filename"), "No file selected");
}

TEST_F(MainWindow, SettingsAreInForceAtOnceAndThumbnailsKeepTheirSizeUntilTheNextListing) {
    startListing(1);
    EXPECT_FALSE(child<QWidget>(window(), "lvFolder").toolTip().isEmpty());
    script.on("frmSettings", [](QWidget& dialog) {
        child<QAbstractButton>(dialog, "chkAllowTip").setChecked(false);
        child<QLineEdit>(dialog, "txtFolderThumbnailWidth").setText(QStringLiteral("90"));
        click(dialog, "cmdOK");
    });
    click(window(), "cmdBrowseSettings");
    EXPECT_FALSE(script.isDone()) << "an adding of files would wait for the dialog";
    EXPECT_TRUE(waitFor([&] { return script.isDone(); }));
    EXPECT_TRUE(child<QWidget>(window(), "lvFolder").toolTip().isEmpty());
    const auto& list = child<ListControl>(window(), "lvFolder");
    EXPECT_EQ(list.thumbnailSize(), QSize(40, 40)) << "that of the pictures on show";
    click(window(), "cmdRefreshFolder");
    EXPECT_EQ(list.thumbnailSize(), QSize(90, 40));
}

TEST_F(MainWindow, EveryShortcutReachesAWidget) {
    start();
    QSet<QString> reached;
    const auto children = window().findChildren<QWidget*>();
    for (const QWidget* widget : QList<QWidget*>{&window()} + children) {
        const auto* menu = qobject_cast<const QMenu*>(widget);
        if (!menu || !menu->menuAction()->associatedObjects().isEmpty()) // a menu of its own takes no keys
            for (const QAction* action : widget->actions())
                reached << action->objectName();
    }
    for (const ActionRow& row : mainActions())
        EXPECT_TRUE(*row.keys == 0 || reached.contains(QLatin1String(row.name))) << row.name;
}

TEST_F(MainWindow, TheTabKeyWalksTheControlsInTheOrderOfReading) {
    start();
    QRect last;
    for (const QWidget* next = window().nextInFocusChain(); next != &window();
         next = next->nextInFocusChain()) {
        if (!next->isVisible() || !(next->focusPolicy() & Qt::TabFocus) ||
            qobject_cast<const QSplitterHandle*>(next))
            continue;
        const QRect place(next->mapTo(&window(), QPoint()), next->size());
        EXPECT_TRUE(place.top() > last.bottom() || place.left() > last.right())
            << next->objectName().toStdString();
        last = place;
    }
}

TEST_F(MainWindow, F6WalksThePanesOnShowAndAltAndADigitBringsEachToLight) {
    startListing(1);
    clickRow("lvFolder", 0);
    ASSERT_TRUE(waitFor([&] { return child<QWidget>(window(), "PicMetadata").isVisible(); }));
    const auto paneAfter = [&](const char* keys) {
        const QKeyCombination key = QKeySequence(QLatin1String(keys))[0];
        QTest::keyClick(&window(), key.key(), key.keyboardModifiers());
        const QWidget* focused = window().focusWidget();
        for (const char* pane :
             {"ftvBrowse", "lvEdit", "lvFolder", "lvPages", "PicViewImage", "lvExif", "lvIPTC"})
            if (const auto& each = child<QWidget>(window(), pane);
                &each == focused || each.isAncestorOf(focused))
                return std::string(pane);
        return std::string();
    };
    for (const auto& [keys, pane] : {std::pair("Alt+1", "ftvBrowse"),
                                     {"Alt+2", "lvEdit"},
                                     {"F6", "lvFolder"},
                                     {"F6", "lvPages"},
                                     {"F6", "PicViewImage"},
                                     {"F6", "lvExif"},
                                     {"F6", "lvEdit"},
                                     {"Shift+F6", "lvExif"},
                                     {"Alt+7", "lvIPTC"},
                                     {"Ctrl+Alt+E", "lvExif"},
                                     {"Shift+F6", "PicViewImage"},
                                     {"Alt+3", "lvFolder"},
                                     {"Alt+4", "lvPages"},
                                     {"Alt+5", "PicViewImage"},
                                     {"Alt+6", "lvExif"}})
        EXPECT_EQ(paneAfter(keys), pane) << keys;
}

TEST_F(MainWindow, TheLetterOfADisabledButtonIsNotTyped) {
    startListing(1);
    auto& path = child<QLineEdit>(window(), "txtPath");
    path.clear();
    QTest::keyClick(&path, Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(path.text(), QString());
    QTest::keyClick(&path, Qt::Key_Q);
    EXPECT_EQ(path.text(), QStringLiteral("q"));
}

TEST_F(MainWindow, SaveAsOfABasketRowSavesThatRowAlsoAfterAFileThatCantBeShown) {
    startWithBasket(2);
    clickRow("lvPages", 0);
    writeFileSafely(basket().row(1).tag, "damaged");
    clickRow("lvPages", 1);
    basket().selectOnly(0);
    QString shown;
    script.on("QFileDialog", [&](QWidget& dialog) {
        shown = window().preview().shownPath();
        dialog.close();
    });
    child<QMenu>(window(), "mnuContext").actions().at(0)->trigger();
    EXPECT_TRUE(waitFor([&] { return script.isDone(); }));
    EXPECT_EQ(shown, basket().row(0).tag);
}

} // namespace tarsel::test
