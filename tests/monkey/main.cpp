// SPDX-License-Identifier: GPL-3.0-or-later
//
// window_monkey SEED INPUTS FOLDER [MINUTES]
//
// Starts the real main window over a folder of pictures and makes random inputs there; tests/monkey/run
// starts it again and again. Exit status 0 when the window lived through all of them, 3 when a modal window
// could not be left.
#include "app/MemoryArenas.h"
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "configuration/ConfigRecord.h"
#include "tests/monkey/Monkey.h"

#include <QApplication>
#include <QDesktopServices>
#include <QTemporaryDir>
#include <cstdio>

namespace {

/// Files and links that the program opens by the desktop go nowhere.
class Nowhere final : public QObject {
    Q_OBJECT
public Q_SLOTS:
    void open(const QUrl&) { ++opened; }

public:
    Nowhere() {
        for (const QString& scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~Nowhere() override {
        for (const QString& scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }
    int opened = 0;

private:
    const QStringList schemes{QStringLiteral("file"), QStringLiteral("http"), QStringLiteral("https"),
                              QStringLiteral("mailto")};
};

} // namespace

int main(int argc, char** argv) {
    using namespace tarsel;
    limitMemoryArenas();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 4) {
        std::fprintf(stderr, "usage: window_monkey SEED INPUTS FOLDER [MINUTES]\n");
        return 2;
    }
    Nowhere nowhere;
    const QTemporaryDir programFolder;
    QtDesktop desktop;
    frmMain window({programFolder.path(), arguments[3], {}});
    if (!window.Form_Load())
        return 1;
    constexpr int endless = 1'000'000;
    QObject::connect(
        &window, &frmMain::ended, &application, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    window.show();
    const test::Monkey monkey(window, arguments[3], arguments[1].toUInt(),
                              {arguments[2].toInt(), arguments.size() > 4 ? arguments[4].toInt() : endless});
    QApplication::exec();

    std::printf(
        "%d inputs, %d of them while editing, longest block %d ms (%s), %d times the desktop was asked\n",
        monkey.made(), monkey.editingInputs(), monkey.longestBlock(), qPrintable(monkey.longestActivity()),
        nowhere.opened);
    for (auto it = monkey.windows.begin(); it != monkey.windows.end(); ++it)
        std::printf("  %6d %s\n", it.value(), qPrintable(it.key()));
    if (monkey.trap().isEmpty())
        return 0;
    std::printf("could not be left: %s\n", qPrintable(monkey.trap()));
    return 3;
}

#include "main.moc"
