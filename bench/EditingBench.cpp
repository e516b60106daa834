// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "bench/LoopTimes.h"
#include "collections/forms/FolderTree.h"
#include "collections/forms/ImageBoxView.h"
#include "configuration/ConfigRecord.h"
#include "controls/FieldControl.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

// The live preview of each task on a picture of 24 megapixels: time from the change of an option to the first
// painted result and to the full one, and how often the picture is painted while an option changes 60 times a
// second.

namespace {

using namespace tarsel;

constexpr QSize pictureSize(6000, 4000);
constexpr int rounds = 15;
constexpr int dragSteps = 60;
constexpr int dragInterval = 16; // milliseconds

struct Task {
    const char* item; ///< of the panel
    const char*
        control; ///< whose value changes; null for a task without options, which is previewed by its button
    int first, step, values;
};

constexpr Task tasks[] = {
    {"Resize", "txtScale", 50, 1, 40},      {"Canvas", "txtCanvasCustom_1", 50, 10, 40},
    {"Crop", "txtCropLeft", 100, 20, 40},   {"Rotate", "txtDegrees", 5, 1, 80},
    {"Flip", "optFlip", 0, 1, 2},           {"Invert", nullptr, 0, 0, 1},
    {"Contrast", "sldContrast", 20, 1, 60}, {"Sharpen", "sldSharpen", 1, 1, 10},
    {"Blur", "sldBlur", 1, 1, 10},          {"Brightness", "sldBrightness", 20, 1, 60},
    {"Text", "txtTextAngle", 0, 1, 90},     {"Watermark", "sldWatermarkTransparency", 10, 1, 80},
    {"Mask", "sldMask", 10, 1, 80},         {"Shadow", "OptShadow", 0, 1, 8},
    {"Frame", "OptFrameImage", 0, 1, 8},
};

/// Notes when the view has painted the picture that was shown last.
class Painted final : public QObject {
public:
    explicit Painted(const ImageBoxView& view) : m_view(view) { view.viewport()->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && m_view.isCurrent()) {
            isCurrent = true;
            isSharp = m_view.isSharp();
            ++count;
        }
        return QObject::eventFilter(watched, event);
    }

    bool isCurrent = false;
    bool isSharp = false;
    int count = 0;

private:
    const ImageBoxView& m_view;
};

class EditingBench {
public:
    explicit EditingBench(frmMain& window) :
        m_window(window), m_view(*window.findChild<ImageBoxView*>(QStringLiteral("PicViewImage"))),
        m_painted(m_view) {
        m_beat.start(1);
        QObject::connect(&window.preview(), &Preview::pictureChanged, &m_beat,
                         [this] { m_painted.isCurrent = m_painted.isSharp = false; });
    }

    void open(const QString& folder) {
        QElapsedTimer sinceStart;
        sinceStart.start();
        runUntil([&] { return sinceStart.elapsed() > 1000; }); // the window lists the last folder
        window().findChild<FolderTree*>(QStringLiteral("ftvBrowse"))->selectFolder(folder);
        ListView& rows = window().workspace().lvFolder;
        runUntil([&] {
            return rows.count() == 1 && rows.row(0).tag.startsWith(folder) &&
                   !window().folderView().isRunning();
        });
        window().preview().ShowRow(rows, 0);
        settle();
        click("CmdPreviewEdit");
        settle();
        const ImageBox& box = window().workspace().ibMain;
        std::printf("%d x %d pixels, drawn as %d x %d\n\n", box.Width(), box.Height(),
                    m_view.placement().drawn().width, m_view.placement().drawn().height);
    }

    void measure(const Task& task) {
        click(task.item);
        settle();
        std::vector<double> first, full;
        double block = 0;
        for (int round = 0; round <= rounds; ++round) {
            m_painted.isCurrent = m_painted.isSharp = false;
            QElapsedTimer clock;
            clock.start();
            change(task, round + 1);
            const double changed = milliseconds(clock);
            const double firstBlock = runUntil([this] { return m_hasResult && m_painted.isCurrent; });
            const double seen = milliseconds(clock);
            const double fullBlock = settle();
            const double done = milliseconds(clock);
            if (!task.control)
                click("cmdReset");
            if (round == 0) // makes what the following ones keep
                continue;
            first.push_back(seen);
            full.push_back(done);
            block = std::max({block, changed, firstBlock, fullBlock});
        }
        std::printf("| %s | %.0f | %.0f | %.0f | %.0f | %.0f | %s |\n", task.item, median(first),
                    std::ranges::max(first), median(full), std::ranges::max(full), block,
                    task.control ? qPrintable(QString::number(paintsOfDrag(task))) : "");
        std::fflush(stdout);
        click("cmdReset");
        settle();
    }

private:
    frmMain& window() { return m_window; }

    void click(const char* name) {
        auto* button = m_window.findChild<QAbstractButton*>(QLatin1String(name));
        if (!button)
            qFatal("no button %s", name);
        button->click();
    }

    void change(const Task& task, int round) {
        m_hasResult = false;
        const auto shown = QObject::connect(&m_window.preview(), &Preview::pictureChanged, &m_beat,
                                            [this] { m_hasResult = true; });
        QObject::disconnect(std::exchange(m_shown, shown));
        if (!task.control)
            return click("cmdApply");
        FieldControl control(m_window, task.control);
        const int value = task.first + round % task.values * task.step;
        if (control.value().typeId() == QMetaType::QString)
            control.setValue(QString::number(value));
        else
            control.setValue(value);
    }

    double settle() {
        return runUntil(
            [this] { return !m_window.preview().isBusy() && m_view.isSharp() && m_painted.isSharp; });
    }

    /// How often another result is painted in a second.
    int paintsOfDrag(const Task& task) {
        m_painted.count = 0;
        QElapsedTimer clock;
        clock.start();
        for (int step = 0; step < dragSteps; ++step) {
            change(task, step);
            runUntil([&] { return clock.elapsed() >= (step + 1) * dragInterval; });
        }
        const int count = m_painted.count;
        settle();
        return count;
    }

    frmMain& m_window;
    ImageBoxView& m_view;
    Painted m_painted;
    QTimer m_beat; ///< so that the loop comes round also when nothing happens
    bool m_hasResult = false;
    QMetaObject::Connection m_shown;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QtDesktop desktop;
    const QTemporaryDir home;
    const QTemporaryDir pictures;
    writePicture(pictures.filePath(QStringLiteral("photo.jpg")), pictureSize);
    frmMain window({home.path(), home.path(), {}});
    if (!window.Form_Load())
        return 1;
    writePicture(home.filePath(QStringLiteral("mark.jpg")), {600, 400});
    ConfigRecord.Tasks.WatermarkImage = home.filePath(QStringLiteral("mark.jpg"));
    ConfigRecord.Tasks.Text = QStringLiteral("A text over the picture");
    ConfigRecord.Tasks.ResizeMode = 1;
    ConfigRecord.Tasks.CropSelect = 1;
    window.resize(1600, 1000);
    window.show();
    EditingBench bench(window);
    bench.open(pictures.path());
    std::printf(
        "| task | first result: median, ms | worst | full result: median, ms | worst | longest block, ms "
        "| painted in a second of dragging |\n|---|---|---|---|---|---|---|\n");
    for (const Task& task : tasks)
        if (argc < 2 || QLatin1String(argv[1]) == QLatin1String(task.item))
            bench.measure(task);
    window.close();
    return 0;
}
