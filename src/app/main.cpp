// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DisplayFailure.h"
#include "app/HomeFolder.h"
#include "app/MemoryArenas.h"
#include "app/ProgramOptions.h"
#include "app/QtDesktop.h"
#include "app/StartFolder.h"
#include "app/TerminationSignals.h"
#include "app/frmMain.h"
#include "base/IgnoringErrors.h"
#include "base/ProgramIdentity.h"
#include "base/SafeFileWriter.h"
#include "base/Translation.h"
#include "configuration/ProgramFolder.h"
#include "controls/IndicatorStyle.h"
#include "help/Manual.h"

#include <QApplication>
#include <QIcon>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <thread>

namespace {

/// Event handlers that don't trap run with their errors ignored; no error ends the program.
class Application final : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        bool handled = false;
        tarsel::ignoringErrors([&] { handled = QApplication::notify(receiver, event); });
        return handled;
    }
};

/// Everything is stored. A thread may still read from a file system that doesn't answer, and would be waited
/// for as long.
void endInTime(int status) {
    static constexpr std::chrono::seconds longestWait(2);
    std::thread([status] {
        std::this_thread::sleep_for(longestWait);
        std::_Exit(status);
    }).detach();
}

} // namespace

int main(int argc, char** argv) {
    using namespace tarsel;
    if (const std::optional<int> status = answerHelp(argc, argv))
        return *status;
    limitMemoryArenas();
    reportFileSizeLimitAsError();
    const bool homeAnswers = takeHomeThatAnswers();
    std::optional<DisplayFailure> displayFailure(std::in_place);
    Application application(argc, argv);
    displayFailure.reset();
    QApplication::setApplicationName(programIdentity::name);
    // No display name: X11 would append it to the title of every window.
    QApplication::setApplicationVersion(QStringLiteral(TARSEL_VERSION));
    installTranslation();
    const std::optional<QStringList> operands = operandsOf(QApplication::arguments());
    if (!operands)
        return 2;
    installIndicatorStyle();
    // By the name, docks and Wayland find the program's entry and its icon.
    QGuiApplication::setDesktopFileName(programIdentity::name);
    QApplication::setWindowIcon(
        QIcon::fromTheme(programIdentity::name, QIcon(QStringLiteral(":/tarsel-jpeg.svg"))));

    QtDesktop desktop;
    desktop.dialogs.holdReports();
    const StartFolder folder(makeProgramFolder, homeAnswers);
    frmMain window({folder.path(), samplesFolder(),
                    [&] { desktop.randomNumbers.seed(quint32(QDateTime::currentMSecsSinceEpoch())); },
                    QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                        QStringLiteral("/thumbnails"),
                    folder.remark(), manualFolder()});
    if (!window.Form_Load())
        return 1;
    // exit, since quit would ask windows again, and a message box without a Cancel button refuses.
    QObject::connect(
        &window, &frmMain::ended, &application, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    const TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::terminationRequested, &window, [&] {
        desktop.dialogs.sessionEnds = true;
        window.endAtOnce();
    });
    // The session may yet go on: settings are stored here, the window is closed when the session ends.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window, [&] {
        const QScopedValueRollback sessionEnds(desktop.dialogs.sessionEnds, true);
        window.prepareSessionEnd();
    });
    window.show();
    QTimer::singleShot(0, &window, [&desktop] { desktop.dialogs.showHeldReports(); });
    // After the window has shown the last folder.
    if (!operands->isEmpty())
        QTimer::singleShot(0, &window, [&window, file = operands->front()] { window.openFile(file); });
    const int status = QApplication::exec();
    if (!window.isWriting())
        endInTime(status);
    return status;
}
