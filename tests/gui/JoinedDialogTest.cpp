// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "configuration/ConfigRecord.h"
#include "publishing/forms/EffectPicture.h"
#include "publishing/forms/EffectPreview.h"
#include "publishing/forms/SaverPreview.h"
#include "publishing/forms/frmExecutable.h"
#include "publishing/forms/frmScreenSaverOptions.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPictures.h"
#include "tests/support/Text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>

namespace tarsel::test {

namespace {

class JoinedDialogs : public WindowTest {
protected:
    JoinedDialogs() {
        QDir().mkpath(path("players/linux"));
        for (const char* player : {"saver", "slide", "watery", "raining-text", "clock"})
            writeFileSafely(path("players/linux/") + text(player), "PLAYER");
        qputenv("TARSEL_PLAYERS", path("players").toUtf8());
        qputenv("TMPDIR", path(".").toUtf8());
    }
    ~JoinedDialogs() override {
        qunsetenv("TARSEL_PLAYERS");
        qunsetenv("TMPDIR");
    }
    void choose(const char* menu) { child<QMenu>(window(), menu).actions().at(2)->trigger(); }
    template <class Dialog>
    Dialog* dialog() {
        return window().findChild<Dialog*>();
    }
    template <class Dialog>
    void create(Dialog& form) {
        QPointer<Dialog> closing(&form);
        click(form, "cmdCreate");
        EXPECT_TRUE(waitFor([&] { return !closing; }));
    }
};

/// Which of the controls can be seen, as digits.
std::string seen(QWidget& form, std::initializer_list<const char*> controls) {
    std::string digits;
    for (const char* control : controls)
        digits += child<QWidget>(form, control).isVisible() ? '1' : '0';
    return digits;
}

} // namespace

TEST_F(JoinedDialogs, ASlideShowIsMadeOfTheBasketInTheFileThatIsNamed) {
    startWithBasket(3);
    const auto isSized = [this](int row) {
        return !basket().subItem(row, BasketColumn::Resolution).isEmpty();
    };
    ASSERT_TRUE(waitFor([&] { return basket().count() == 3 && isSized(0) && isSized(1) && isSized(2); }));
    basket().setIcon(1, -1); // its thumbnail is not made yet
    script.leave("frmScreenSaverOptions");
    choose("mnuSaveAsParent");
    auto* form = dialog<frmScreenSaverOptions>();
    ASSERT_NE(form, nullptr);
    const auto& preview = child<SaverPreview>(*form, "picPreview");
    ASSERT_TRUE(waitFor([&] { return preview.picture(1).width() == 64 && preview.picture(2).width() == 64; }))
        << "sharp, as the files are";
    auto& interval = child<QLineEdit>(*form, "txtInterval");
    interval.clear();
    EXPECT_EQ(interval.text(), text("3"));
    child<QRadioButton>(*form, "OptType_1").click();
    interval.setText(text("55")); // not left
    TestDesktop user;
    child<QComboBox>(*form, "cboSystem").setCurrentIndex(1);
    click(*form, "cmdCreate");
    EXPECT_TRUE(contains(user.messages.back().text, "windows/slide.exe\" is missing"));
    EXPECT_TRUE(form->isVisible() && user.fileDialogs.empty()) << "another system can be chosen";
    child<QComboBox>(*form, "cboSystem").setCurrentIndex(0);
    user.fileChoices = {FileDialogChoice{path("show"), 1}};
    create(*form);
    const QByteArray file = readWholeFile(path("show.exe"));
    EXPECT_EQ(file.count(QByteArray("\xFF\xD8\xFF\xE0", 4)), 3);
    EXPECT_TRUE(ConfigRecord.SaverType == 1 && ConfigRecord.SaverInterval == 9);
    EXPECT_EQ(panel("status"), "3 written, 0 skipped, 0 failed");
    EXPECT_TRUE(QFile::exists(path("Saver.lst")));
}

TEST_F(JoinedDialogs, AGreetingIsMadeOfThePictureOnShow) {
    startListing(1);
    child<QMenu>(window(), "mnuSavePreviewAsParent").actions().at(2)->trigger();
    EXPECT_EQ(dialog<frmExecutable>(), nullptr) << "no picture";
    window().preview().ShowRow(listed(), 0);
    script.leave("frmExecutable");
    ASSERT_TRUE(waitFor([this] { return window().workspace().ibMain.HasImage(); }));
    choose("mnuSavePreviewAsParent");
    ASSERT_TRUE(waitFor([this] { return dialog<frmExecutable>(); }));
    auto* form = dialog<frmExecutable>();
    auto& styles = child<QListWidget>(*form, "lstStyles");
    EXPECT_EQ(styles.currentRow(), 1);
    const auto panels = [&] { return seen(*form, {"FrameNothing", "frameRollingText", "frameClock"}); };
    EXPECT_EQ(panels(), "100");
    styles.setCurrentRow(2);
    EXPECT_EQ(panels(), "010");
    child<QLineEdit>(*form, "txtRaining").setText(text("not kept"));
    styles.setCurrentRow(3);
    EXPECT_EQ(panels(), "001");
    const auto clocks = [&] {
        return seen(*form, {"picClock", "lblDigitalClockColor", "cmdDigitalClockColor"});
    };
    EXPECT_EQ(clocks(), "100");
    TestDesktop user;
    user.colorChoices = {0x030201};
    click(*form, "cmdHour");
    child<QRadioButton>(*form, "optClock_1").click();
    EXPECT_EQ(clocks(), "011");
    child<QCheckBox>(*form, "chkDate").click();
    EXPECT_FALSE(child<QPushButton>(*form, "cmdDateColor").isEnabled());
    user.fileChoices = {FileDialogChoice{path("hello"), 1}};
    create(*form);
    const QByteArray file = readWholeFile(path("hello.exe"));
    EXPECT_TRUE(file.contains(QByteArray("\1\0\0\0\0\0\0\0\0\0\1\2\3\0", 14))) << "the record";
    EXPECT_TRUE(ConfigRecord.EffectStyle == 3 && ConfigRecord.ClockType == 1 && ConfigRecord.ClockDate == 0);
    EXPECT_TRUE(ConfigRecord.HourColor == 255 && ConfigRecord.RainingText == text("Happy Greetings!"));
}

TEST_F(JoinedDialogs, ThePreviewDrawsTheEffectWhileItIsSeen) {
    const Picture red = pictureOf(900, 300, 3, [](int, int) { return Rgb{250, 0, 0}; });
    const players::Picture small = effectPicture(red, 90, 90);
    EXPECT_TRUE(small.width == 90 && small.height == 30 && small.pixels.back() == 0xFFFA0000);
    EffectPreview preview;
    preview.resize(200, 100);
    preview.setPicture(red);
    EXPECT_TRUE(preview.frame().isNull()) << "nothing is drawn while it is hidden";
    preview.show();
    ASSERT_TRUE(waitFor([&] { return !preview.frame().isNull(); }));
    EXPECT_EQ(preview.frame().pixel(100, 50), 0xFFFA0000);
    EXPECT_EQ(preview.frame().pixel(2, 2), 0xFF000000);

    EXPECT_EQ(placeOnScreen({640, 480}, {1920, 1080}), QRect(640, 300, 640, 480));
    EXPECT_EQ(placeOnScreen({4000, 480}, {1920, 1080}).topLeft(), QPoint(0, 300)) << "cut on the right";
}

} // namespace tarsel::test
