// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "bench/LoopTimes.h"
#include "collections/forms/ImageBoxView.h"
#include "imaging/SaveFormats.h"
#include "output/BackgroundSave.h"
#include "output/forms/frmSaveAdvanced.h"

#include <QApplication>
#include <QComboBox>
#include <QSlider>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>

// The interactive save on a picture of 24 megapixels: time from the choice of a format and colours to the
// first painted result and to the exact one, and a slider that is dragged from one end to the other.

namespace {

using namespace tarsel;

constexpr QSize pictureSize(6000, 4000);
constexpr int dragInterval = 16; // milliseconds

class SaveBench {
public:
    explicit SaveBench(frmSaveAdvanced& dialog) :
        m_dialog(dialog), m_view(*dialog.findChild<ImageBoxView*>(QStringLiteral("ibOptimized"))) {
        m_beat.start(1);
        QObject::connect(&m_beat, &QTimer::timeout, [this] { look(); });
    }

    void measure(const char* layout) {
        std::printf(
            "\n%s\n\n| format, colors | seen after, ms | exact after, ms | again, ms | longest block, ms |\n"
            "|---|---|---|---|---|\n",
            layout);
        auto& formats = *m_dialog.findChild<QComboBox*>(QStringLiteral("cboFormat"));
        auto& colors = *m_dialog.findChild<QComboBox*>(QStringLiteral("cboColorFormat"));
        formats.setCurrentIndex(formats.count() - 1);
        settle();
        for (int format = 0; format < formats.count(); ++format) {
            choose(formats, format, format == 0 ? formats.count() - 1 : format - 1, formats.itemText(format));
            for (int entry = 1; entry < colors.count(); ++entry)
                choose(colors, entry, entry - 1,
                       formats.currentText() + QStringLiteral(", ") + colors.itemText(entry));
            colors.setCurrentIndex(0); // some formats share what is remembered
            settle();
        }
        formats.setCurrentText(QStringLiteral("JPG"));
        colors.setCurrentIndex(0);
        settle();
        drag();
    }

private:
    void choose(QComboBox& box, int entry, int before, const QString& name) {
        QElapsedTimer clock;
        clock.start();
        m_seen = 0;
        m_wasCurrent = true;
        box.setCurrentIndex(entry);
        double block = runUntil([&] { return m_seen > 0 || m_dialog.isExact(); });
        const double seen = milliseconds(clock);
        block = std::max(block, settle());
        const double exact = milliseconds(clock);
        box.setCurrentIndex(before);
        settle();
        clock.restart();
        box.setCurrentIndex(entry);
        settle();
        std::printf("| %s | %.0f | %.0f | %.0f | %.0f |\n", qPrintable(name), seen, exact,
                    milliseconds(clock), block);
        std::fflush(stdout);
    }

    void drag() {
        auto& slider = *m_dialog.findChild<QSlider*>(QStringLiteral("sldJPGQuality"));
        slider.setValue(1);
        settle();
        double block = 0;
        m_seen = 0;
        const int before = m_dialog.roundTripsBegun();
        QElapsedTimer clock;
        clock.start();
        slider.setSliderDown(true);
        for (int quality = 2; quality <= 100; ++quality) {
            slider.setValue(quality);
            block =
                std::max(block, runUntil([&] { return clock.elapsed() >= (quality - 1) * dragInterval; }));
        }
        slider.setSliderDown(false);
        const int seen = m_seen, begun = m_dialog.roundTripsBegun() - before;
        clock.restart();
        block = std::max(block, settle());
        std::printf(
            "\nA slider over 99 steps in 1.6 s: %d round trips begun, %d dropped before; %d pictures seen, "
            "exact %.0f ms after its release, longest block %.0f ms\n",
            begun, 99 - begun, seen, milliseconds(clock), block);
    }

    /// Counts the pictures that come to the screen.
    void look() {
        if (std::exchange(m_wasCurrent, m_view.isCurrent()) != m_view.isCurrent())
            m_seen += m_view.isCurrent();
    }

    double settle() {
        return runUntil([this] { return m_dialog.isExact() && m_view.isSharp(); });
    }

    frmSaveAdvanced& m_dialog;
    ImageBoxView& m_view;
    int m_seen = 0; ///< pictures
    bool m_wasCurrent = true;
    QTimer m_beat; ///< so that the loop comes round also when nothing happens
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QtDesktop desktop;
    const QTemporaryDir home;
    ImageBox box;
    box.Tag = home.filePath(QStringLiteral("photo.jpg"));
    writePicture(box.Tag, pictureSize);
    box.LoadFromFile(box.Tag);
    settings::BatchSave batch;
    BackgroundSave background;
    for (const bool isFitted : {true, false}) {
        settings::SaveAdvanced settings;
        settings.PreviewLayout = quint8(isFitted ? PreviewLayout::BestFit : PreviewLayout::ActualSize);
        frmSaveAdvanced dialog({box, box.Tag, home.path()}, settings, batch, background);
        dialog.show();
        dialog.resize(1600, 1000);
        SaveBench(dialog).measure(isFitted ? "Best Fit" : "Actual Size");
        dialog.close();
    }
    return 0;
}
