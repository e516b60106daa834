// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "app/StartFolder.h"
#include "app/frmMain.h"

#include <QApplication>
#include <QEvent>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdio>

// From the start of the process to the first painted window, and on to the last thumbnail of a folder.

namespace {

using namespace tarsel;

/// Of the clock that the starting process reads as well.
double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Notes when the window was painted first.
class FirstPaint final : public QObject {
public:
    double at = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (at == 0 && event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [this] { at = now(); }); // after the painting
        }
        return false;
    }
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: start_bench FOLDER START    (seconds of the monotonic clock)\n");
        return 2;
    }
    const double start = QByteArray(argv[2]).toDouble();
    QApplication application(argc, argv);
    const QtDesktop desktop;
    const QTemporaryDir home;
    const StartFolder folder([&home] { return home.path(); });
    frmMain window({folder.path(), QString::fromLocal8Bit(argv[1]), {}});
    if (!window.Form_Load())
        return 1;
    FirstPaint painted;
    window.installEventFilter(&painted);
    window.show();
    while (painted.at == 0 || window.workspace().lvFolder.isEmpty() || window.folderView().isRunning())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("first painted %.0f ms, listed %.0f ms\n", (painted.at - start) * 1e3, (now() - start) * 1e3);
    window.endAtOnce();
    return 0;
}
