// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtEventLoop.h"
#include "controls/DeletedDialog.h"
#include "controls/Hyperlink.h"
#include "controls/IndicatorStyle.h"
#include "controls/ProgressBar.h"
#include "controls/Splitter.h"

#include <QAccessible>
#include <QCheckBox>
#include <QDialog>
#include <QEventLoop>
#include <QPointer>
#include <QRadioButton>
#include <QRubberBand>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <gtest/gtest.h>

namespace tarsel::test {

TEST(Splitters, ResizeThePanesWhenTheBarIsReleasedAndMoveByKeysWithinTheirBounds) {
    auto* left = new QWidget;
    Splitter splitter(Qt::Horizontal, left, new QWidget);
    splitter.resize(1000 + splitter.handleWidth(), 100);
    splitter.show();
    QWidget* bar = splitter.handle(1);
    int reported = 0;
    QObject::connect(&splitter, &Splitter::positionChanged, [&](int percent) { reported = percent; });
    QTest::mousePress(bar, Qt::LeftButton, {}, {2, 50});
    QTest::mouseMove(bar, {202, 50});
    EXPECT_EQ(left->width(), 500) << "panes are not painted again at each step";
    EXPECT_TRUE(splitter.findChild<QRubberBand*>()->isVisible());
    QTest::mouseRelease(bar, Qt::LeftButton, {}, {202, 50});
    EXPECT_EQ(left->width(), 700);
    EXPECT_EQ(reported, 70);
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_Right, 72}, {Qt::Key_Left, 70},  {Qt::Key_Up, 70},
                                            {Qt::Key_End, 90},   {Qt::Key_Right, 90}, {Qt::Key_Home, 10}};
    for (const auto& [key, percent] : keys) {
        QTest::keyClick(bar, key);
        EXPECT_EQ(splitter.SplitterPosition(), percent) << key;
        EXPECT_EQ(left->width(), percent * 10) << key;
    }
    splitter.resize(500 + splitter.handleWidth(), 100);
    EXPECT_EQ(left->width(), 50) << "the share holds in a smaller window";
    splitter.setSplitterRange(40, 40);
    QTest::keyClick(bar, Qt::Key_End);
    EXPECT_EQ(left->width(), 200) << "equal bounds fix the bar";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(bar)->role(), QAccessible::Splitter);
}

TEST(ToolTips, ShowNamesAsTheyAreWhateverTheyLookLike) {
    ProgressBar bar;
    for (const char* name : {"a & b.jpg", "<b>x</b>.jpg", "a&lt;b", "a\n<i>b", "<a\n  b>"}) {
        bar.setSubject(QString::fromLatin1(name));
        QTextDocument shown;
        const QString tip = bar.toolTip();
        Qt::mightBeRichText(tip) ? shown.setHtml(tip) : shown.setPlainText(tip);
        EXPECT_EQ(shown.toPlainText().toStdString(), name);
    }
}

TEST(IndicatorStyles, MakeTheBoxThatIsOffSeenInTheLightAndInTheDark) {
    for (const QColor& window : {QColor(239, 239, 239), QColor(62, 66, 70)}) {
        IndicatorStyle style;
        QCheckBox box;
        QRadioButton option;
        for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{&box, &option}) {
            button->setStyle(&style);
            button->setPalette(window);
            const QImage image = button->grab().toImage();
            int contrast = 0;
            for (int x = 0; x < image.width(); ++x)
                contrast = std::max(
                    contrast, std::abs(qGray(image.pixel(x, image.height() / 2)) - qGray(window.rgb())));
            EXPECT_GT(contrast, 90) << button->metaObject()->className();
        }
    }
}

TEST(Hyperlinks, FadeByASeventhInAndAQuarterOutAndAreLinksForKeysAndScreenReaders) {
    const QColor black(0, 0, 0), orange(255, 128, 0);
    EXPECT_EQ(fadeStep(black, orange, 7), QColor(36, 18, 0));
    EXPECT_EQ(fadeStep(orange, black, 4), QColor(191, 96, 0));
    EXPECT_EQ(fadeStep(QColor(252, 128, 0), orange, 7), orange) << "a rest that rounds to 0";

    Hyperlink link(QStringLiteral("Samples"), nullptr);
    link.setSpeed(0);
    link.show();
    link.DoMouseActions(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return link.color() == orange; }));
    int pressed = 0;
    QObject::connect(&link, &Hyperlink::clicked, [&] { ++pressed; });
    QTest::keyClick(&link, Qt::Key_Return);
    auto* spoken = QAccessible::queryAccessibleInterface(&link);
    EXPECT_EQ(spoken->role(), QAccessible::Link);
    spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(pressed, 2);
}

TEST(DeletedDialogs, OutliveTheLoopsAndYieldsThatTheirOwnWorkWaitsIn) {
    QtEventLoop events;
    const ServiceScope<EventLoop> used(events);
    QPointer<QDialog> dialog = new QDialog;
    deleteWhenClosed(*dialog);
    dialog->show();
    QEventLoop program;
    bool hasWaited = false;
    QTimer::singleShot(0, dialog, [&] {
        QEventLoop question;
        QTimer::singleShot(0, dialog, [&] { dialog->close(); });
        QTimer::singleShot(150, &question, &QEventLoop::quit);
        question.exec();
        EXPECT_TRUE(dialog);
        for (int i = 0; i < 15; ++i) {
            QTest::qSleep(10);
            events.yield();
        }
        hasWaited = !dialog.isNull();
        QObject::connect(dialog, &QObject::destroyed, &program, &QEventLoop::quit);
    });
    QTimer::singleShot(20'000, &program, &QEventLoop::quit);
    program.exec();
    EXPECT_TRUE(!dialog && hasWaited);
}

} // namespace tarsel::test
