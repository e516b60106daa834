// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramFolder.h"
#include "app/ProgramIdentity.h"
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"

#include <QApplication>

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

} // namespace

int main(int argc, char** argv) {
    using namespace tarsel;
    reportFileSizeLimitAsError();
    Application application(argc, argv);
    QApplication::setApplicationName(programIdentity::name);
    QApplication::setApplicationDisplayName(programIdentity::title);
    QApplication::setApplicationVersion(QStringLiteral(TARSEL_VERSION));

    QtDesktop desktop;
    const DesktopScope scope(desktop);
    QString programFolder;
    if (!trap("main", [&] { programFolder = makeProgramFolder(); }))
        return 1;
    frmMain window({programFolder, samplesFolder(),
                    [&] { desktop.seedRandomNumbers(quint32(QDateTime::currentMSecsSinceEpoch())); }});
    if (!window.Form_Load())
        return 1;
    QObject::connect(&window, &frmMain::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    window.show();
    return QApplication::exec();
}
