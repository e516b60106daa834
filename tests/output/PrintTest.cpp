// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "output/PrintedRows.h"
#include "tests/output/TestBasket.h"
#include "tests/support/PrintedPages.h"

#include <QColorSpace>
#include <QFile>
#include <QImage>
#include <QPageSize>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class CancelAfterTwo final : public Progress {
    void start(int, int) override {}
    void setValue(int value) override { CancelRequested = value == 2; }
    void hide() override {}
};

class Print : public testing::Test, public TestBasket {
protected:
    /// A row with a picture of 100 pixels an inch, left half green, right half blue, in the colours of a wide
    /// profile.
    void addHalves(const QString& name, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(QColor(100, 200, 100));
        image.setColorSpace(QColorSpace::AdobeRgb);
        for (int y = 0; y < size.height(); ++y)
            for (int x = size.width() / 2; x < size.width(); ++x)
                image.setPixelColor(x, y, Qt::blue);
        image.setDotsPerMeterX(3937);
        image.setDotsPerMeterY(3937);
        EXPECT_TRUE(image.save(path(qPrintable(name))));
        addRow(path(qPrintable(name)), name);
    }
    QString document() const { return path("pages.pdf"); }
    std::string printedStates(Progress&& bar = NoProgress()) {
        results = PdfPrint{pages, tasks.lvEditBatch, document(), layout, {}}.run(box, bar);
        return states();
    }

    PrintLayout layout;
};

TEST_F(Print, PagesMeasureWhatTheLayoutSaysOnEachPaperAndAtEachScale) {
    const QSize wide(300, 200), high(200, 300);
    using enum PrintLayout::Sizing;
    using enum PrintLayout::Position;
    const struct {
        QSize pixels;
        QPageSize::PageSizeId paper;
        bool landscape;
        int sizing;
        double scale;
        int position;
        QRectF place;
    } cases[] = {
        {wide, QPageSize::A4, false, Fit, 100, Center, {10, 85.2, 190, 126.7}},
        {wide, QPageSize::A4, false, Fit, 50, Bottom, {57.5, 213.7, 95, 63.3}},
        {wide, QPageSize::A5, true, Fit, 50, Center, {64.5, 47, 81, 54}},
        {high, QPageSize::Letter, false, Fit, 100, TopLeft, {10, 20, 159.6, 239.4}},
        {high, QPageSize::Letter, false, Fit, 137, Center, {10, 20, 195.9, 239.4}},
        {wide, QPageSize::Letter, false, Fill, 50, Center, {59, 79.9, 98, 119.7}},
        {high, QPageSize::A4, false, TrueSize, 100, BottomRight, {149.2, 200.8, 50.8, 76.2}},
        {high, QPageSize::A5, false, TrueSize, 137, Right, {68.4, 52.8, 69.6, 104.4}},
    };
    layout.marginAcross = 10;
    layout.marginDown = 20;
    for (const auto& each : cases) {
        pages.clear();
        addHalves(text("halves.png"), each.pixels);
        layout.paper = each.paper;
        layout.landscape = each.landscape;
        layout.sizing = each.sizing;
        layout.scale = each.scale;
        layout.position = each.position;
        ASSERT_EQ(printedStates(), "written") << reasons().join(u' ').toStdString();
        const QImage page = pageOf(document(), 1);
        const QRectF area = inkedArea(page);
        EXPECT_TRUE(isNear(area, each.place)) << shown(area) << ", not " << shown(each.place);
        const auto colorAt = [&](double part) {
            return page.pixelColor(
                (QPointF(area.x() + part * area.width(), area.center().y()) * dotsPerMm).toPoint());
        };
        EXPECT_GT(colorAt(0.4).green(), 190) << "the middle of the picture is in the middle";
        EXPECT_LT(colorAt(0.4).red(), 50) << "by its profile";
        EXPECT_GT(colorAt(0.6).blue(), 200);
    }
}

TEST_F(Print, ALargeJpegIsDecodedSmallAndLooksOnItsPageLikeOneDecodedInFull) {
    layout.perPage = 24;
    for (const int sizing : {PrintLayout::Fit, PrintLayout::Fill}) {
        layout.sizing = sizing;
        QImage printed[2];
        for (const bool isJpeg : {false, true}) {
            pages.clear();
            addPicture(isJpeg ? "a.jpg" : "a.png", 2400, 1600,
                       [](ImageBox& maker) { maker.ExifSet(text("Orientation"), text("6")); });
            ASSERT_EQ(printedStates(), "written");
            EXPECT_EQ(box.FullSize(), (PixelSize{1600, 2400}));
            EXPECT_EQ(box.Width() < 1600, isJpeg);
            const QByteArray images = outputOf("pdfimages", {text("-list"), document()});
            EXPECT_GE(images.count(" 600 "), 1) << "pixels an inch, across and down: " << images.constData();
            printed[isJpeg] = pageOf(document(), 1);
        }
        EXPECT_TRUE(isNear(inkedArea(printed[0]), inkedArea(printed[1])));
        const QPoint inside = (inkedArea(printed[0]).center() * dotsPerMm).toPoint();
        EXPECT_NEAR(qGray(printed[0].pixel(inside)), qGray(printed[1].pixel(inside)), 3);
    }
}

TEST_F(Print, FortyRowsShareTheirPagesAndAnUnreadableOneLeavesNoGap) {
    for (int row = 0; row < 40; ++row)
        addHalves(text("p%1.png").arg(row), {30, 20});
    QFile damaged(path("p7.png"));
    ASSERT_TRUE(damaged.resize(60));
    layout.paper = QPageSize::A4;
    printedStates();
    EXPECT_EQ(rowStateText(results.at(7).state), text("failed"));
    EXPECT_EQ(pageCountOf(document()), 39);
    layout.perPage = 6;
    layout.caption = PrintLayout::Name;
    printedStates();
    EXPECT_EQ(pageCountOf(document()), 7);
    EXPECT_TRUE(outputOf("pdftotext", {document(), text("-")}).contains("p39.png"));
    const QRectF last = inkedArea(pageOf(document(), 7)); // of three pictures, in two columns
    EXPECT_NEAR(last.width(), 210, 1) << shown(last);
    EXPECT_NEAR(last.bottom(), 184.5, 2) << "with the caption below the picture: " << shown(last);

    layout.repeats = true;
    const QString one = pages.row(0).tag;
    pages.clear();
    addRow(one, text("one"));
    addRow(one, text("again"));
    printedStates();
    EXPECT_EQ(pageCountOf(document()), 2);
    EXPECT_GT(inkedArea(pageOf(document(), 1)).height(), 250);
}

TEST_F(Print, ADocumentIsReplacedOnlyByAFinishedOne) {
    EXPECT_EQ(printedStates(), "");
    EXPECT_FALSE(QFile::exists(document())) << "of an empty basket";
    const QByteArray old("old");
    writeFile("pages.pdf", old);
    addRow("gone.png", "gone");
    EXPECT_EQ(printedStates(), "failed");
    EXPECT_EQ(readWholeFile(document()), old);

    addPictures({"a.jpg", "b.jpg", "c.jpg"});
    EXPECT_EQ(printedStates(CancelAfterTwo()), "failed skipped skipped skipped");
    EXPECT_EQ(readWholeFile(document()), old);
    EXPECT_EQ(files().find(".part"), std::string::npos);
}

TEST(PrintSettings, KeepEveryValueOfTheLayoutAndDropThoseWithoutAMeaning) {
    const PrintLayout layout{.paper = QPageSize::Letter,
                             .position = PrintLayout::TopRight,
                             .sizing = PrintLayout::Fill,
                             .marginAcross = 12.5,
                             .marginDown = 7,
                             .perPage = 4,
                             .scale = 137,
                             .caption = PrintLayout::Description,
                             .landscape = true,
                             .repeats = true};
    settings::Print kept;
    EXPECT_EQ(layoutOf(kept), PrintLayout());
    takeLayout(layout, kept);
    EXPECT_EQ(kept.PrintSetting7, 137);
    EXPECT_EQ(layoutOf(kept), layout);
    settings::Print foreign{.PrintSetting1 = 99999,
                            .PrintSetting2 = -3,
                            .PrintSetting3 = 200,
                            .PrintSetting4 = -1,
                            .PrintSetting5 = std::nan(""),
                            .PrintSetting6 = 0,
                            .PrintSetting7 = 0,
                            .PrintSetting8 = 9};
    EXPECT_EQ(layoutOf(foreign), PrintLayout());
}

} // namespace
