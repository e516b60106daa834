// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "configuration/ConfigRecord.h"
#include "publishing/forms/frmAlbum.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

namespace tarsel::test {

namespace {

class AlbumDialog : public WindowTest {
protected:
    void choose() { child<QMenu>(window(), "mnuSaveAsParent").actions().at(1)->trigger(); }
    frmAlbum* dialog() { return window().findChild<frmAlbum*>(); }
    QString out() const { return path("out"); }
};

void type(QLineEdit& box, const char* keys) {
    box.selectAll();
    QTest::keyClicks(&box, text(keys));
    QFocusEvent leaving(QEvent::FocusOut, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&box, &leaving);
}

QStringList entries(QWidget& form) {
    QStringList texts;
    auto& list = child<QListWidget>(form, "lstMetadata");
    for (int i = 0; i < list.count(); ++i)
        texts << list.item(i)->text();
    return texts;
}

} // namespace

TEST_F(AlbumDialog, OpensForABasketAndGeneratesWithWhatItShows) {
    start();
    script.on("messageBox", [](QWidget& box) { box.close(); }); // the basket is empty
    choose();
    EXPECT_TRUE(script.isDone());
    EXPECT_EQ(dialog(), nullptr);
    makePictures(3);
    listFolder(pictures());
    addAll();
    QDir().mkpath(out());
    choose();
    ASSERT_NE(dialog(), nullptr);
    EXPECT_NE(child<QLineEdit>(*dialog(), "txtFolder").text(), programFolder()) << "no place for albums";
    child<QSlider>(*dialog(), "sldQuality").setValue(31);
    const QPointer<frmAlbum> cancelled = dialog();
    click(*dialog(), "cmdCancel");
    EXPECT_EQ(ConfigRecord.Album.Quality, 75);
    choose(); // while the one before is waiting for its end
    choose();
    ASSERT_TRUE(waitFor([&] { return !cancelled; }));
    ASSERT_EQ(window().findChildren<frmAlbum*>().size(), 1);
    EXPECT_TRUE(dialog()->isVisible());
    child<QLineEdit>(*dialog(), "txtFolder").setText(out());
    child<QLineEdit>(*dialog(), "TAlbumTitle").setText(text("Trip"));
    child<QLineEdit>(*dialog(), "TThumbnailWidth").setText(text("9150")); // not left
    child<QAbstractButton>(*dialog(), "optPageImage_4").click();
    click(*dialog(), "cmdGenerate");
    ASSERT_TRUE(waitFor([this] { return !dialog(); }));
    EXPECT_EQ(panel("status"), "3 written, 0 skipped, 0 failed");
    auto& results = child<QWidget>(window(), "frmBatchResults");
    EXPECT_EQ(child<QAbstractButton>(results, "lnkFolder").accessibleName(), text("Open the folder ") + out())
        << "where the index is, not the pictures";
    const QByteArray index = readWholeFile(out() + text("/index.htm"));
    EXPECT_TRUE(contains(index, "Trip_photo03.html") &&
                contains(index, "<body background='MyImages_Trip\\yellow.gif'"));
    EXPECT_TRUE(index.contains(
        "face= '" + QFontDatabase::families().constFirst().section(text(" ["), 0, 0).toLatin1() + '\''));
    EXPECT_EQ(QImage(out() + text("/MyImages_Trip/photo01_thumb.jpg")).size(), QSize(300, 150));
    EXPECT_TRUE(ConfigRecord.Album.PageImage == 4 && ConfigRecord.Album.ThumbnailWidth == 300);
    EXPECT_TRUE(child<QWidget>(window(), "lvPages").isEnabled());
}

TEST_F(AlbumDialog, AsksOnceBeforeItReplacesAnIndexThatIsNotOfAnAlbum) {
    startWithBasket(1);
    QDir().mkpath(out());
    const QString index = out() + text("/index.htm");
    writeFileSafely(index, "mine");
    const auto generate = [&] {
        choose();
        child<QLineEdit>(*dialog(), "txtFolder").setText(out());
        click(*dialog(), "cmdGenerate");
        return waitFor([this] { return !dialog(); });
    };
    TestDesktop scripted;
    scripted.answers = {MessageAnswer::No, MessageAnswer::Yes};
    ASSERT_TRUE(generate());
    EXPECT_TRUE(readWholeFile(index) == "mine" &&
                QDir(out()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size() == 1);
    ASSERT_TRUE(generate());
    EXPECT_NE(readWholeFile(index), "mine");
    ASSERT_TRUE(generate());
    EXPECT_EQ(scripted.messages.size(), 2u) << "nothing is asked of an album";
}

TEST_F(AlbumDialog, NumberBoxesStayInTheirLimitsAndJoinTheirArrows) {
    startWithBasket(1);
    choose();
    auto& width = child<QLineEdit>(*dialog(), "TThumbnailWidth");
    auto& perRow = child<QLineEdit>(*dialog(), "TPicturesPerRow");
    auto& arrows = child<QSpinBox>(*dialog(), "TPicturesPerRowD");
    width.clear();
    EXPECT_TRUE(width.text() == text("80") && width.selectedText() == text("80"));
    for (const auto& [keys, left] : {std::pair("5", "30"), {"9999", "300"}, {"-1x2a0", "120"}}) {
        type(width, keys);
        EXPECT_EQ(width.text(), text(left)) << keys;
    }
    type(perRow, "3");
    Q_EMIT perRow.editingFinished();
    EXPECT_EQ(arrows.value(), 3);
    type(perRow, "0");
    Q_EMIT perRow.editingFinished();
    EXPECT_TRUE(arrows.value() == 3 && perRow.text() == text("0")) << "below what the arrows reach";
    arrows.stepUp();
    EXPECT_EQ(perRow.text(), text("4"));
}

TEST_F(AlbumDialog, StylesShowTheirOwnControls) {
    startWithBasket(1);
    choose();
    child<QTabWidget>(*dialog(), "tabsAlbum").setCurrentIndex(1);
    for (const auto& [button, shown] : {std::pair("optContainerBackground_0", "1010"),
                                        {"optContainerBackground_2", "0110"},
                                        {"optContainerBackground_1", "0010"},
                                        {"optPageStyle_1", "0001"},
                                        {"optPageStyle_0", "0010"}}) {
        click(*dialog(), button);
        std::string visible;
        for (const char* part :
             {"picContainerBackgroundImage", "picContainerBackgroundColor", "picPageImage", "picPageColor"})
            visible += child<QWidget>(*dialog(), part).isVisible() ? '1' : '0';
        EXPECT_EQ(visible, shown) << button;
    }
    const auto& originals = child<QCheckBox>(*dialog(), "chkOriginals");
    const auto isLookEnabled = [&] { return child<QTabWidget>(*dialog(), "tabsAlbum").isTabEnabled(1); };
    EXPECT_TRUE(!originals.isEnabled() && isLookEnabled()) << "classic";
    child<QAbstractButton>(*dialog(), "optTemplate_1").click();
    EXPECT_TRUE(originals.isEnabled() && !isLookEnabled()) << "modern";
    child<QAbstractButton>(*dialog(), "chkStripPrivate").click();
    EXPECT_FALSE(originals.isEnabled()) << "they hold what is to be left out";
    click(*dialog(), "cmdGenerate");
    EXPECT_TRUE(ConfigRecord.Album.ModernTemplate == 1 && ConfigRecord.Album.StripPrivate == 1);
}

TEST_F(AlbumDialog, LinesOfMetadataAreChosenOnceSavedAndOpened) {
    startWithBasket(1);
    choose();
    const auto tick = [&](std::initializer_list<int> rows, const char* button, bool all = false) {
        click(*dialog(), "cmdChooseMetadata");
        auto& chooser = child<QWidget>(*dialog(), "frmInsertMetadata");
        child<QCheckBox>(chooser, "chkSelectAll").setChecked(all);
        for (const int row : rows)
            child<QListWidget>(chooser, "lstMetadata").item(row)->setCheckState(Qt::Checked);
        click(chooser, button);
        EXPECT_TRUE(waitFor([&] { return !dialog()->findChild<QWidget*>(text("frmInsertMetadata")); }));
    };
    child<QTabWidget>(*dialog(), "tabsAlbum").setCurrentIndex(2);
    TestDesktop user;
    click(*dialog(), "cmdSave");
    EXPECT_TRUE(user.fileDialogs.empty()) << "nothing to save";
    tick({5}, "cmdOK");
    tick({0, 5, 11}, "cmdOK");
    tick({1}, "cmdCancel");
    const QStringList chosen{text("EXIF - Copyright"), text("EXIF - Make"), text("IPTC - Caption")};
    EXPECT_EQ(entries(*dialog()), chosen) << "in the order of their first choice";
    user.fileChoices = {FileDialogChoice{path("my"), 1}};
    click(*dialog(), "cmdSave");
    tick({}, "cmdOK", true);
    EXPECT_EQ(entries(*dialog()).size(), 65);
    click(*dialog(), "cmdNew");
    EXPECT_TRUE(entries(*dialog()).isEmpty());
    click(*dialog(), "cmdRemove"); // nothing to remove
    user.fileChoices = {FileDialogChoice{path("my.mbf"), 1}, FileDialogChoice{path("none.mbf"), 1}};
    click(*dialog(), "cmdOpen");
    EXPECT_EQ(entries(*dialog()), chosen);
    child<QListWidget>(*dialog(), "lstMetadata").setCurrentRow(1);
    click(*dialog(), "cmdRemove");
    EXPECT_EQ(entries(*dialog()), QStringList({chosen[0], chosen[2]}));
    click(*dialog(), "cmdOpen");
    EXPECT_EQ(user.messages.back().text,
              text("Error opening metadata basket list!\nPlease select a valid file."));
    EXPECT_EQ(user.reports.size(), 1U) << "and the error itself";
}

} // namespace tarsel::test
