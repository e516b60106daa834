// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigFields.h"
#include "controls/FieldControl.h"
#include "controls/ValueControl.h"
#include "tasks/forms/TaskOptionPage.h"
#include "tests/gui/DialogScript.h"
#include "tests/gui/FontSize.h"
#include "tests/support/TestDesktop.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>
#include <set>

namespace tarsel::test {

namespace {

constexpr int kinds = 16;

/// Calls `visit` with each setting and its number.
void eachSetting(TaskDefaults& settings, const auto& visit) {
    ConfigRecordData record;
    record.Tasks = settings;
    for (int number = 0; const ConfigField& field : configFields()) {
        if (QLatin1String(field.group) != QLatin1String("Tasks"))
            continue;
        ConfigValue value = field.value(record);
        std::visit([&](auto& held) { visit(held, number); }, value);
        field.assign(record, value);
        ++number;
    }
    settings = record.Tasks;
}

/// Settings none of which has its default, but for those that no page stores.
TaskDefaults otherSettings() {
    TaskDefaults settings;
    eachSetting(settings, []<class Value>(Value& held, int number) {
        if constexpr (std::is_same_v<Value, QString>)
            held = QStringLiteral("/other");
        else if constexpr (std::is_same_v<Value, quint8>)
            held = held == 0;
        else
            held = Value(held < 0 ? number : held < 10 ? held + 1 : held + number);
    });
    settings.Sharpen = 2;
    settings.TextPosition = 9;
    settings.TextItalic = settings.TextUnderline = 0;
    return settings;
}

QVariantList values(TaskDefaults settings) {
    QVariantList all;
    eachSetting(settings, [&](const auto& held, int) { all << held; });
    return all;
}

class OptionPages : public testing::Test {
protected:
    TaskOptionPage& open(int kind) {
        page.reset(makeTaskOptionPage(kind, settings));
        page->setPicture({640, 300}, {800, 600});
        page->showRow(defaultRow(kind, settings));
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
        return *page;
    }
    template <class Widget>
    Widget& control(const char* name) {
        return child<Widget>(*page, name);
    }
    std::string text(const char* box) { return control<QLineEdit>(box).text().toStdString(); }
    void type(const char* box, const char* keys) {
        auto& edit = control<QLineEdit>(box);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, QString::fromLatin1(keys));
    }
    void leave(const char* box) { control<QLineEdit>(box).clearFocus(); }
    void press(const char* button) { control<QAbstractButton>(button).click(); }
    std::string columns(std::initializer_list<int> numbers) {
        QStringList texts;
        for (const int number : numbers)
            texts << page->row().columns.at(std::size_t(number - 1));
        return texts.join(QLatin1Char('|')).toStdString();
    }

    TestDesktop desktop;
    TaskDefaults settings;
    std::unique_ptr<TaskOptionPage> page;
};

/// Changes a control of any class to another value that it takes.
void alter(QWidget& form, const char* name) {
    const FieldControl control(form, name);
    const QVariant value = control.value();
    if (name == QByteArrayView("txtDraw") || name == QByteArrayView("picWatermarkImage"))
        control.setValue(QStringLiteral("/another"));
    else
        control.setValue(form.findChild<QSlider*>(QLatin1String(name)) ? value.toInt() + 1
                                                                       : value.toInt() == 0);
}

} // namespace

TEST_F(OptionPages, ShowTheSettingsAndStoreThemAgain) {
    for (const bool usual : {true, false}) {
        const TaskDefaults shown = usual ? TaskDefaults() : otherSettings();
        settings = shown;
        std::vector<std::unique_ptr<TaskOptionPage>> pages;
        for (int kind = 1; kind <= kinds; ++kind) {
            open(kind);
            const TaskRow expected = defaultRow(kind, settings), row = page->row();
            EXPECT_EQ(row.kind, expected.kind);
            EXPECT_EQ(row.key, expected.key);
            for (const TaskColumn& column : taskColumns(kind))
                if (!column.text(expected).isEmpty() &&
                    !(kind == 10 && QList{4, 5, 13}.contains(column.number))) { // by the place
                    EXPECT_EQ(column.text(row), column.text(expected)) << kind << " " << column.name;
                }
            pages.push_back(std::move(page));
        }
        settings = usual ? otherSettings() : TaskDefaults();
        settings.TextItalic = settings.TextUnderline = 0;
        for (const auto& each : pages)
            settings = each->shownDefaults();
        EXPECT_EQ(values(settings), values(shown));
    }
}

TEST_F(OptionPages, HaveAControlForEachColumnWhichChangesIt) {
    std::set<std::string> altered, others;
    for (const bool usual : {true, false})
        for (int kind = 1; kind <= kinds; ++kind)
            for (const TaskColumn& column : taskColumns(kind)) {
                if (!column.control.name)
                    continue;
                const std::string name = std::to_string(kind) + " " + column.control.name;
                others.insert(name);
                settings = usual ? TaskDefaults{.CropOption = 1} : otherSettings();
                const TaskRow before = open(kind).row();
                QSignalSpy changed(page.get(), &TaskOptionPage::changed);
                alter(*page, column.control.name);
                EXPECT_GE(changed.count(), 1) << name;
                if (column.text(page->row()) != column.text(before))
                    altered.insert(name);
                const auto* slider = page->findChild<QSlider*>(QLatin1String(column.control.name));
                EXPECT_TRUE(!slider || (slider->minimum() == column.limits.lowest &&
                                        slider->maximum() == column.limits.highest))
                    << name;
            }
    open(15);
    press("OptShadow_0");
    QSignalSpy again(page.get(), &TaskOptionPage::changed);
    press("OptShadow_0");
    EXPECT_EQ(again.count(), 1) << "the picture that is chosen";
    for (const std::string& name : altered)
        others.erase(name);
    EXPECT_EQ(others, std::set<std::string>());
}

TEST_F(OptionPages, BoxesTakeNumbersAndAreRefilledAndBoundedWhenTheyAreLeft) {
    const struct {
        int kind;
        const char* box;
        const char* keys;
        const char* typed; ///< what the box shows then
        const char* left;  ///< after the focus left it
    } cases[] = {
        {2, "txtDegrees", "4a0-0", "400", "360"},
        {2, "txtDegrees", "-12", "-12", "0"},
        {2, "txtDegrees", "\b", "45", "45"},
        {2, "txtDegrees", "-", "-", "45"},
        {10, "txtTextAngle", "-200", "-200", "-180"},
        {10, "txtTextAngle", "\b", "0", "0"},
        {13, "txtFrameSize", "-801", "801", "800"},
        {12, "txtCanvasCustom_3", "\b7", "7", "7"}, // the fallback is selected
        {8, "txtCropBot", "1.5", "15", "15"},
        {3, "txtResizeWidth", "\b", "0", "0"},
        {3, "txtScale", "12.5.", "12.5", "12.5"},
    };
    settings.TextPosition = 9;
    settings.FrameStyle = 1;
    for (const auto& [kind, box, keys, typed, left] : cases) {
        SCOPED_TRACE(std::string(box) + " " + keys);
        settings.ResizeMode = box == QByteArrayView("txtScale");
        open(kind);
        type(box, keys);
        EXPECT_EQ(text(box), typed);
        leave(box);
        EXPECT_EQ(text(box), left);
    }
    open(10);
    auto& size = control<QComboBox>("comboFontSize");
    size.setFocus();
    size.setEditText(QStringLiteral("300"));
    size.clearFocus();
    EXPECT_EQ(columns({7}), "200");
}

TEST_F(OptionPages, BoxesAndSlidersFollowEachOther) {
    const struct {
        int kind;
        const char* box;
        const char* slider;
    } cases[] = {{2, "txtDegrees", "sbDegrees"},
                 {10, "txtTextAngle", "vsbTextAngle"},
                 {13, "txtFrameSize", "vsFrameSize"}};
    for (const auto& [kind, box, slider] : cases) {
        open(kind);
        control<QSlider>(slider).setValue(33);
        EXPECT_EQ(text(box), "33");
        control<QLineEdit>(box).setText(QStringLiteral("400"));
        EXPECT_EQ(control<QSlider>(slider).value(), control<QSlider>(slider).maximum());
        EXPECT_EQ(text(box), "400");
    }
    open(2);
    type("txtDegrees", "\b");
    EXPECT_EQ(control<QSlider>("sbDegrees").value(), 45) << "with the text that refills the box";
    const char* const angles[] = {"-15", "15", "45", "-45"};
    for (int button = 0; button < 4; ++button) {
        press(QStringLiteral("cmdAngle_%1").arg(button).toLatin1());
        EXPECT_EQ(columns({2}), angles[button]);
    }
    open(4);
    auto& level = control<QSlider>("sldBlur");
    QSignalSpy changed(page.get(), &TaskOptionPage::changed);
    level.setSliderDown(true);
    level.setSliderPosition(7);
    EXPECT_EQ(control<QLabel>("lblBlur").text().toStdString(), "7");
    EXPECT_EQ(changed.count(), 0) << "while the thumb is dragged";
    level.setSliderDown(false);
    EXPECT_EQ(columns({1}), "7");
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(OptionPages, ResizeKeepsTheRatioOfThePictureThatEditingBeganWith) {
    open(3);
    EXPECT_EQ(columns({1, 2, 3}), "True|640|300");
    const char* const cases[][2] = {{"400", "300"}, {"401", "301"},   {"402", "302"}, {"403", "302"},
                                    {"\b", "0"},    {"43691", "3277"}}; // at last beyond 16 bits
    for (const auto& [width, height] : cases) {
        type("txtResizeWidth", width);
        EXPECT_EQ(text("txtResizeHeight"), height) << width;
    }
    type("txtResizeHeight", "300");
    EXPECT_EQ(text("txtResizeWidth"), "400");
    press("chkResizeRatio");
    type("txtResizeWidth", "9");
    EXPECT_EQ(columns({2, 3}), "9|300");
    press("optResize_1");
    EXPECT_EQ(columns({1, 2, 3}), "False|50|");
    const std::pair<const char*, int> scales[] = {{"12.5", 12}, {"99999", 32767}};
    for (const auto& [typed, stored] : scales) {
        type("txtScale", typed);
        EXPECT_EQ(columns({2}), typed);
        EXPECT_EQ(page->shownDefaults().ResizeScale, stored);
    }
    EXPECT_TRUE(control<QWidget>("FrameScale").isVisible() && !control<QWidget>("frameResize").isVisible());
}

TEST_F(OptionPages, CropOpensWithThePicturesEdgesAndAgainWhenTyping) {
    open(8);
    EXPECT_EQ(columns({1, 2, 3, 4, 5, 6, 7}), "True|0|0|0|640|300|");
    EXPECT_FALSE(control<QWidget>("FrameBackColor").isVisible());
    control<QComboBox>("cmbCrop").setCurrentIndex(1);
    EXPECT_TRUE(control<QWidget>("FrameBackColor").isVisible());
    EXPECT_EQ(columns({2, 7}), "1|-2147483634");
    type("txtCropLeft", "12");
    press("optCropSelect_0");
    EXPECT_EQ(columns({1, 2, 3}), "False||");
    press("optCropSelect_1");
    EXPECT_EQ(columns({3, 5}), "0|640");
}

TEST_F(OptionPages, TextIsRecordedByItsPlace) {
    open(10);
    const auto choose = [&](int position, const char* orientation) {
        control<QComboBox>("cboPosition").setCurrentIndex(position);
        control<QToolButton>(orientation).setChecked(true);
    };
    control<QToolButton>("OptTextAlignment_2").setChecked(true);
    control<QLineEdit>("txtTextAngle").setText(QStringLiteral("30"));
    page->setLocation({12, 34});
    EXPECT_EQ(control<QLabel>("lblSelectLocation").text().toStdString(), "X-12; Y-34");
    EXPECT_EQ(columns({4, 5, 13, 14, 16, 17}), "0|2|0|0||");
    choose(8, "OptTextOrientation_1");
    EXPECT_EQ(columns({4, 5, 13, 14, 16, 17}), "-90|0|1|8||");
    EXPECT_FALSE(control<QWidget>("txtTextAngle").isVisible());
    choose(9, "OptTextOrientation_1");
    EXPECT_EQ(columns({4, 5, 13, 14, 16, 17}), "30|0|0|9|12|34");
    EXPECT_FALSE(control<QWidget>("OptTextAlignment_2").isVisible());
    const auto& fonts = control<QComboBox>("ComboFontFamily");
    EXPECT_EQ(columns({6}), fonts.currentText().toStdString());
    EXPECT_EQ(fonts.findText(QStringLiteral(" ["), Qt::MatchContains), -1) << "names of makers";
    press("chkTextItalic");
    EXPECT_TRUE(control<QLineEdit>("txtDraw").font().italic());
    EXPECT_FALSE(control<QWidget>("cmdTextBackground").isEnabled());
    press("chkTransparent");
    EXPECT_TRUE(control<QWidget>("cmdTextBackground").isEnabled());
}

TEST_F(OptionPages, WatermarkTakesAPictureAColourOfItAndAPlace) {
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("mark.png"));
    QImage mark(160, 96, QImage::Format_RGB32);
    for (int x = 0; x < mark.width(); ++x)
        for (int y = 0; y < mark.height(); ++y)
            mark.setPixelColor(x, y, x < 80 ? QColor(10, 20, 30) : QColor(Qt::red));
    mark.save(file);
    desktop.fileChoices = {FileDialogChoice{file, 1}, FileDialogChoice{file, 1}, std::nullopt};
    open(9);
    QSignalSpy changed(page.get(), &TaskOptionPage::changed);
    for (int choice = 0; choice < 3; ++choice)
        press("cmdSelectMerge"); // the third time cancelled
    EXPECT_EQ(desktop.fileDialogs.at(0).title.toStdString(), "Load Image for Merging");
    EXPECT_EQ(changed.count(), 2) << "the file may be another one now";
    EXPECT_EQ(settings.WatermarkImage, file) << "before the task is confirmed";
    auto& resolution = control<QLabel>("lblWatermarkResolution");
    EXPECT_TRUE(QTest::qWaitFor([&] { return resolution.text() == QLatin1String("160 x 96"); }));
    auto& thumbnail = control<QLabel>("picWatermarkImage");
    press("chkWatermarkTransparentColor");
    QTest::mouseClick(&thumbnail, Qt::LeftButton, {}, thumbnail.rect().center() - QPoint(4, 0));
    EXPECT_FALSE(control<QToolButton>("chkWatermarkTransparentColor").isChecked());
    page->setLocation({5, 6});
    const std::string path = file.toStdString();
    EXPECT_EQ(columns({1, 2, 3, 4, 5, 6, 7}), "True|50|1|" + path + "|1971210|6|5");
    QSignalSpy wanted(page.get(), &TaskOptionPage::selectionWanted);
    press("chkSelectLocation");
    control<QComboBox>("cboMergeStyle").setCurrentIndex(2);
    EXPECT_EQ(wanted.count(), 2) << "asked, and left";
    press("chkWatermarkTransparent");
    EXPECT_EQ(columns({1, 3, 4, 5, 6, 7}), "False|2|" + path + "|1971210|6|5");
    desktop.colorChoices = {0x0000FF};
    press("chkWatermarkTransparent");
    press("picWatermarkTransparentColor");
    EXPECT_EQ(columns({5}), "255");
}

TEST_F(OptionPages, ShowEightLooksOfTheArtworkOnTheirButtons) {
    for (const auto& [kind, name] :
         {std::pair(13, "OptFrameImage_%1"), std::pair(14, "OptMask_%1"), std::pair(15, "OptShadow_%1")}) {
        open(kind);
        std::vector<QImage> looks;
        for (int number = 0; number < 8; ++number) {
            const auto& button = control<QToolButton>(QString::fromLatin1(name).arg(number).toLatin1());
            ASSERT_TRUE(QTest::qWaitFor([&] { return !button.icon().isNull(); }));
            looks.push_back(button.icon()
                                .pixmap(button.iconSize())
                                .toImage()
                                .scaled(button.iconSize())
                                .convertToFormat(QImage::Format_RGB32));
            for (int other = 0; other < number; ++other) {
                int different = 0;
                for (int y = 0; y < looks[0].height(); ++y)
                    for (int x = 0; x < looks[0].width(); ++x)
                        different +=
                            std::abs(qGray(looks[number].pixel(x, y)) - qGray(looks[other].pixel(x, y))) > 6;
                EXPECT_GT(different, 30) << button.objectName().toStdString() << " is like " << other;
            }
        }
    }
}

TEST_F(OptionPages, FitTheirPanelWithALargeFontAndNameTheirControls) {
    const FontSize large(14);
    for (int kind = 0; kind <= kinds; ++kind) {
        settings.TextPosition = kind % 2 ? 0 : 9;
        open(kind);
        EXPECT_LE(page->minimumSizeHint().width(), 220) << kind;
        QStringList mnemonics;
        for (QWidget* widget : page->findChildren<QWidget*>()) {
            const QString key = QKeySequence::mnemonic(widget->property("text").toString()).toString();
            EXPECT_FALSE(!key.isEmpty() && mnemonics.contains(key)) << kind << " " << key.toStdString();
            mnemonics << key;
            const bool isPart = widget->focusProxy() || !widget->isVisible();
            EXPECT_TRUE(widget->focusPolicy() == Qt::NoFocus || isPart ||
                        !QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
                << widget->objectName().toStdString();
        }
    }
    EXPECT_EQ(makeTaskOptionPage(17, settings), nullptr);
}

} // namespace tarsel::test
