// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/PicturePlacement.h"

#include <gtest/gtest.h>

using namespace tarsel;

TEST(PicturePlacement, CentresWhatIsSmallerAndScrollsWhatIsLarger) {
    struct Case {
        Size picture, container;
        bool stretched;
        QRect place;
        int horizontal, vertical;
    };
    const Case cases[] = {
        {{40, 30}, {100, 101}, false, {30, 36, 40, 30}, 0, 0}, // 35.5 goes to the even number
        {{500, 200}, {400, 300}, false, {0, 50, 500, 200}, 100, 0},
        {{400, 300}, {400, 200}, false, {0, 0, 400, 300}, 0, 100},
        {{40000, 10}, {100, 10}, false, {0, 0, 40000, 10}, 32767, 0},
        {{400, 100}, {200, 200}, true, {0, 75, 200, 50}, 0, 0},
        {{3, 2}, {301, 300}, true, {0, 50, 301, 201}, 0, 0}, // enlarged
        {{9000, 1}, {300, 300}, true, {0, 150, 300, 1}, 0, 0},
        {{1700, 60}, {229, 300}, true, {0, 146, 229, 8}, 0, 0},
        {{60, 1700}, {300, 229}, true, {146, 0, 8, 229}, 0, 0},
    };
    for (const Case& each : cases) {
        PicturePlacement placement(each.picture, each.container, each.stretched);
        SCOPED_TRACE(each.picture.width);
        EXPECT_EQ(placement.place(), each.place);
        const Size drawn = placement.drawn();
        EXPECT_EQ(PicturePlacement(each.picture, drawn, each.stretched).drawn(), drawn);
        EXPECT_EQ(placement.horizontalMaximum(), each.horizontal);
        EXPECT_EQ(placement.verticalMaximum(), each.vertical);
        placement.scrollTo({60, 1000});
        EXPECT_EQ(placement.scrolled(), QPoint(std::min(60, each.horizontal), each.vertical));
        const QPointF point(1.5, 0.25);
        const QPointF back = placement.toPicture(placement.toContainer(point));
        EXPECT_NEAR(back.x(), point.x(), 1e-9);
        EXPECT_NEAR(back.y(), point.y(), 1e-9);
    }
}

TEST(PicturePlacement, BringsAPointOfThePictureToThePointerAsFarAsItScrolls) {
    PicturePlacement placement({4000, 3000}, {800, 600}, false);
    placement.bring({1000, 900}, {200, 300});
    EXPECT_EQ(placement.toContainer(QPointF(1000, 900)), QPointF(200, 300));
    placement.bring({10, 2990}, {700, 10});
    EXPECT_EQ(placement.scrolled(), QPoint(0, 2400));
    EXPECT_EQ(placement.zoom(), 100);
    EXPECT_EQ(PicturePlacement({4000, 3000}, {800, 600}, true).zoom(), 20);
}
