// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigRecord.h"
#include "docs/screenshots/SampleDialogs.h"
#include "help/HelpTopics.h"
#include "help/forms/HelpDesk.h"
#include "help/forms/frmAbout.h"
#include "help/forms/frmManual.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWindow>

namespace tarsel::test {

namespace {

const QString pages = QStringLiteral(TARSEL_ROOT "/docs/manual");

class Help : public WindowTest {
protected:
    /// As a user presses it: in the control with the focus.
    static void pressF1(QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QWidget* focused = window.focusWidget() ? window.focusWidget() : &window;
        QTest::keyClick(focused, Qt::Key_F1);
    }
    void trigger(const char* action) {
        for (QAction* each : window().actions())
            if (each->objectName() == QLatin1String(action))
                return each->trigger();
        ADD_FAILURE() << action;
    }
    HelpDesk& desk() { return *window().findChild<HelpDesk*>(); }
    frmManual& manual() {
        EXPECT_TRUE(desk().window() && desk().window()->isVisible());
        return *desk().window();
    }
    std::string place() { return manual().place().toStdString(); }
};

class ManualWindow : public testing::Test {
protected:
    ManualWindow() {
        manual.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&manual));
    }
    template <class Widget>
    Widget& part(const char* name) {
        return child<Widget>(manual, name);
    }
    std::string place() const { return manual.place().toStdString(); }

    frmManual manual{Manual::read(pages)};
};

} // namespace

TEST_F(Help, HasAPlaceForEveryDialog) {
    startWithBasket(3);
    SampleDialogs samples(basket(), ConfigRecord);
    for (const auto& dialog : samples.all(&window()))
        EXPECT_NE(helpTopic(dialog->objectName()).toStdString(), "") << dialog->objectName().toStdString();
}

TEST_F(Help, OpensAtThePaneOrTheTaskThatIsInUse) {
    startWithBasket(1);
    const std::pair<const char*, const char*> panes[] = {{"showFolders", "browsing#folders"},
                                                         {"showFiles", "browsing#files"},
                                                         {"showBasket", "basket"},
                                                         {"showPicture", "preview"}};
    for (const auto& [action, expected] : panes) {
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        trigger(action);
        pressF1(window());
        EXPECT_EQ(place(), expected);
        const QMessageBox question(&window());
        EXPECT_EQ(helpPlaceFor(&question).toStdString(), expected);
    }
    window().preview().ShowRow(basket(), 0);
    ASSERT_TRUE(waitFor([this] { return !window().preview().isBusy(); }));
    click(window(), "CmdPreviewEdit");
    ASSERT_TRUE(waitFor([this] { return !window().preview().isBusy(); }));
    click(window(), "Resize");
    EXPECT_EQ(helpPlaceFor(window().findChild<QWidget*>(QStringLiteral("txtResizeWidth"))).toStdString(),
              "tasks#resize");
    click(window(), "Shadow");
    EXPECT_EQ(helpPlaceFor(window().findChild<QWidget*>(QStringLiteral("cmdApply"))).toStdString(),
              "tasks#shadow");
}

TEST_F(Help, OpensFromADialogAtTheCommandThatAsks) {
    startWithBasket(1);
    window().preview().ShowRow(basket(), 0);
    ASSERT_TRUE(waitFor([this] { return window().workspace().ibMain.HasImage(); }));
    const std::tuple<QKeyCombination, const char*, const char*> commands[] = {
        {Qt::CTRL | Qt::Key_S, "QFileDialog", "basket"},
        {Qt::CTRL | Qt::Key_O, "messageBox", "basket"},
        {Qt::CTRL | Qt::SHIFT | Qt::Key_O, "QFileDialog", "task-lists"},
        {Qt::CTRL | Qt::Key_E, "QFileDialog", "preview#save-the-picture-on-show"}};
    for (const auto& [keys, name, expected] : commands) {
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        trigger("showFolders");
        script.on(name, [&](QWidget& dialog) {
            pressF1(dialog);
            EXPECT_EQ(place(), expected) << "not the folders";
            dialog.close();
        });
        QTest::keyClick(&window(), keys.key(), keys.keyboardModifiers());
        EXPECT_TRUE(waitFor([this] { return script.isDone(); }));
    }
}

/// A modal dialog blocks the other windows of a program, also one that was open before.
TEST_F(Help, OpensOverAModalDialogAndTakesClicksAndKeysThere) {
    start();
    pressF1(window());
    manual();
    script.on("frmCapture", [&](QWidget& dialog) {
        ASSERT_EQ(dialog.windowModality(), Qt::ApplicationModal);
        pressF1(dialog);
        EXPECT_EQ(place(), "capture");
        QCoreApplication::processEvents();
        EXPECT_EQ(manual().windowHandle()->transientParent(), dialog.windowHandle()) << "else it is blocked";
        auto& search = child<QLineEdit>(manual(), "txtSearch");
        QTest::keyClicks(&search, QStringLiteral("watermark"));
        EXPECT_GT(child<QListWidget>(manual(), "lstFound").count(), 0);
        dialog.close();
    });
    click(window(), "cmdCapture");
    ASSERT_TRUE(waitFor([&] { return script.isDone(); }));
    EXPECT_TRUE(waitFor([&] { return manual().windowHandle()->transientParent() == nullptr; }));
    EXPECT_TRUE(manual().isVisible()) << "it stays when the dialog goes";
}

TEST_F(ManualWindow, WalksBackAndForwardToWhereTheReaderWas) {
    auto& page = part<QTextBrowser>("txtPage");
    manual.showPlace(QStringLiteral("tasks#shadow"));
    const int scrolled = page.verticalScrollBar()->value();
    EXPECT_EQ(page.cursorForPosition({}).block().text().toStdString(), "Shadow");
    manual.showPlace(QStringLiteral("naming"));
    EXPECT_EQ(page.verticalScrollBar()->value(), 0);
    QTest::keyClick(&manual, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(place(), "tasks#shadow");
    EXPECT_EQ(page.verticalScrollBar()->value(), scrolled);
    QTest::keyClick(&manual, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(place(), "index");
    EXPECT_FALSE(part<QAbstractButton>("cmdBack").isEnabled());
    QTest::keyClick(&manual, Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(&manual, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(place(), "naming");
    manual.showPlace(QStringLiteral("no-such-page"));
    EXPECT_EQ(place(), "index");
}

TEST_F(ManualWindow, FollowsLinksBetweenPagesAndWithinOne) {
    auto& page = part<QTextBrowser>("txtPage");
    Q_EMIT page.anchorClicked(QUrl(QStringLiteral("batch-save.md#results")));
    EXPECT_EQ(place(), "batch-save#results");
    Q_EMIT page.anchorClicked(QUrl(QStringLiteral("#destination")));
    EXPECT_EQ(place(), "batch-save#destination");
    EXPECT_EQ(part<QTreeWidget>("treContents").currentItem()->text(0).toStdString(), "Batch save");
}

TEST_F(ManualWindow, SearchesByKeysAloneAndMarksTheWords) {
    auto& search = part<QLineEdit>("txtSearch");
    QTest::keyClick(&manual, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&search, QStringLiteral("serial numbers"));
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_TRUE(part<QListWidget>("lstFound").currentRow() == 0);
    EXPECT_NE(place(), "index");
    const auto isMarked = [this] { return !part<QTextBrowser>("txtPage").extraSelections().isEmpty(); };
    EXPECT_TRUE(isMarked());
    search.setText(QStringLiteral("picture")); // which all of these pages have
    search.setFocus();
    for (const QKeyCombination key :
         {QKeyCombination(Qt::Key_Return), QKeyCombination(Qt::Key_Down), Qt::ALT | Qt::Key_Left,
          Qt::ALT | Qt::Key_Left, Qt::ALT | Qt::Key_Right, Qt::CTRL | Qt::Key_Plus}) {
        QTest::keyClick(manual.focusWidget(), key.key(), key.keyboardModifiers());
        EXPECT_TRUE(isMarked()) << key.toCombined() << ' ' << place();
    }
    manual.resize(manual.width() + 100, manual.height());
    QTest::qWait(300); // until it is laid out for that width
    EXPECT_TRUE(isMarked());
    QTest::keyClick(&manual, Qt::Key_Escape);
    EXPECT_TRUE(manual.isVisible() && search.text().isEmpty());
    QTest::keyClick(&manual, Qt::Key_Escape);
    EXPECT_FALSE(manual.isVisible());
}

/// Every page with its pictures, in the time that a window may take for anything.
TEST_F(ManualWindow, ShowsPagesWithPicturesThatFitTheWidth) {
    auto& page = part<QTextBrowser>("txtPage");
    for (const int width : {900, 500}) {
        manual.resize(width, 700);
        manual.showPlace(QStringLiteral("first-steps"));
        QTest::qWait(200); // pictures are scaled when the width rests
        EXPECT_EQ(page.horizontalScrollBar()->maximum(), 0) << width;
    }
    part<QAbstractButton>("cmdLarger").click();
    EXPECT_GT(page.document()->defaultFont().pointSize(), QApplication::font().pointSize());
}

TEST(About, CopiesVersionsForAnErrorReportAndShowsTheLicences) {
    frmAbout about;
    about.show();
    child<QAbstractButton>(about, "cmdCopy").click();
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.contains(QLatin1String(TARSEL_VERSION)) && copied.contains(QLatin1String("libtiff")))
        << copied.toStdString();
    auto& licence = child<QPlainTextEdit>(about, "txtLicence");
    EXPECT_TRUE(licence.toPlainText().contains(QLatin1String("GNU GENERAL PUBLIC LICENSE")));
    child<QComboBox>(about, "cboLicence").setCurrentIndex(1);
    EXPECT_TRUE(licence.toPlainText().contains(QLatin1String("MIT")));
}

} // namespace tarsel::test
