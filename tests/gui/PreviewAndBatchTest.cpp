// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Basket.h"
#include "collections/Preview.h"
#include "collections/Workspace.h"
#include "controls/ProgressBar.h"
#include "output/BatchSave.h"
#include "tests/gui/WindowTest.h"

#include <QDir>
#include <QImage>

namespace tarsel::test {

namespace {

/// Transparent on the left, blue on the right: what shows through tells what the picture was laid on.
void makeGlass(const QString& path) {
    QImage image(40, 30, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < 30; ++y)
        for (int x = 20; x < 40; ++x)
            image.setPixelColor(x, y, Qt::blue);
    EXPECT_TRUE(image.save(path)) << path.toStdString();
}

/// The picture of a file, saved again with an orientation.
void makeTurned(const QString& from, const QString& path) {
    ImageBox box;
    box.LoadFromFile(from);
    EXPECT_TRUE(box.ExifSet(QStringLiteral("Orientation"), QStringLiteral("6")));
    box.SaveToFile(path);
}

} // namespace

TEST_F(WindowTest, ThePreviewShowsThePixelsThatTheBatchEncodes) {
    makePictures(1);
    makeGlass(path("glass.png"));
    makeTurned(path("glass.png"), path("glass.tif"));
    makeTurned(pictures() + QStringLiteral("/photo01.jpg"), path("turned.jpg"));
    makeTurned(pictures() + QStringLiteral("/photo01.jpg"), path("turned.jpe"));
    Workspace workspace;
    Preview preview({workspace.lvFolder, workspace.lvPages, workspace.lvExif, workspace.lvIPTC,
                     workspace.tasks, workspace.ibMain, workspace.sbMain});
    preview.OptimizedPreview = true;
    TaskRow canvas{QStringLiteral("12"), QStringLiteral("canvas"), {}};
    int column = 1;
    for (const char* value : {"255", "1", "2", "3", "4"}) // on red
        canvas.column(column++) = QLatin1String(value);
    workspace.tasks.append(canvas);
    BatchSave settings;
    settings.ProcessEditingList = 1;
    settings.DestinationFolder = path("out/");
    QDir().mkpath(settings.DestinationFolder);
    for (const quint8 upright : {0, 1}) {
        preview.upright = upright == 1;
        settings.UprightByExif = upright;
        for (const char* name : {"glass.png", "glass.tif", "turned.jpg", "turned.jpe"}) {
            ListRow row;
            row.tag = path(name);
            row.text = QLatin1String(name);
            ListView pages(basketHeaders());
            pages.add(row);
            ProgressBar bar;
            std::vector<RowResult> results;
            preview.ShowRow(pages, 0);
            ASSERT_TRUE(waitFor([&] { return !preview.isBusy(); })) << name;
            ASSERT_TRUE(fncSaveSinglePage(pages, workspace.tasks.lvEditBatch, workspace.ibTemp, bar, settings,
                                          {}, results));
            EXPECT_EQ(rowStateText(results.at(0).state), QStringLiteral("written")) << name;
            EXPECT_TRUE(workspace.ibTemp.picture() == workspace.ibMain.picture()) << name << ' ' << upright;
            if (QLatin1String(name) == QLatin1String("glass.png")) {
                EXPECT_EQ(workspace.ibMain.PixelColor(9, 9), 0xFFFFFF);
            }
            const bool isTurned = upright == 1 && !QLatin1String(name).endsWith(QLatin1String("png"));
            EXPECT_EQ(workspace.ibMain.Width() < workspace.ibMain.Height(), isTurned) << name;
        }
    }
}

} // namespace tarsel::test
