// SPDX-License-Identifier: GPL-3.0-or-later
// tarsel-screenshots [--dark] [--font-20] [--dialogs] [--edit] [--task=KEY] WIDTH HEIGHT PICTURES PREFIX:
// pictures of the main window with the pictures of a folder, of each dialog, and of the window with each task
// previewed, as PREFIX and the window's name; by --font-20 with a font of 20 points. By --task, of the window
// with this task alone. Texts are in the language of the environment.
// tarsel-screenshots --red-eye IN LEFT TOP RIGHT BOTTOM OUT: what the correction of a red eye makes of a
// picture.
#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "base/ProgramIdentity.h"
#include "base/Translation.h"
#include "collections/forms/FolderTree.h"
#include "configuration/ConfigFile.h"
#include "controls/IndicatorStyle.h"
#include "controls/ListControl.h"
#include "docs/screenshots/SampleDialogs.h"
#include "imaging/ImageBox.h"
#include "output/forms/frmSaveAdvanced.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QToolButton>
#include <cstdio>

namespace {

using namespace tarsel;

/// Colours as usual desktops have them in the dark.
QPalette darkPalette() {
    QPalette palette(QColor(62, 66, 70), QColor(51, 55, 59));
    palette.setColor(QPalette::Base, QColor(31, 34, 37));
    palette.setColor(QPalette::AlternateBase, QColor(38, 41, 45));
    palette.setColor(QPalette::Highlight, QColor(42, 110, 168));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(49, 54, 59));
    palette.setColor(QPalette::ToolTipText, QColor(239, 240, 241));
    return palette;
}

void settle(const std::function<bool()>& ready) {
    const QDeadlineTimer limit(20000);
    while (!ready() && !limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    for (const QDeadlineTimer rest(600); !rest.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

void save(QWidget& window, const QString& prefix) {
    const QString file = prefix + window.objectName() + QStringLiteral(".png");
    if (!window.grab().save(file))
        std::fprintf(stderr, "%s: could not be written\n", qPrintable(file));
}

/// Settings of somebody who has used the program for a while.
void prepareSettings(const QString& programFolder, const QString& pictures) {
    loadConfiguration(programFolder);
    ConfigRecord.LastFolder = pictures;
    ConfigRecord.FolderThumbWidth = ConfigRecord.FolderThumbHeight = 112;
    ConfigRecord.BasketThumbWidth = ConfigRecord.BasketThumbHeight = 48;
    ConfigRecord.BatchSave.DestinationFolder = pictures;
    subSaveSetup();
}

void fillWindow(frmMain& window) {
    ListView& listed = window.workspace().lvFolder;
    settle([&] { return listed.count() > 0 && !window.folderView().isRunning(); });
    listed.selectAll();
    window.findChild<QToolButton*>(QStringLiteral("cmdAddToQueue"))->click();
    settle([&] { return window.workspace().lvPages.count() >= listed.count(); });
    listed.selectOnly(0);
    Q_EMIT window.findChild<ListControl*>(QStringLiteral("lvFolder"))->rowClicked();
    settle([&] { return window.workspace().ibMain.HasImage(); });
}

void saveDialogs(frmMain& window, const QString& prefix) {
    SampleDialogs samples(window.workspace().lvPages, ConfigRecord);
    for (const auto& dialog : samples.all(&window)) {
        dialog->show();
        const auto* interactive = qobject_cast<frmSaveAdvanced*>(dialog.get());
        settle([&] { return !interactive || interactive->isExact(); });
        save(*dialog, prefix);
        dialog->close();
    }
}

void click(frmMain& window, const QString& button) {
    window.findChild<QAbstractButton*>(button)->click();
    settle([&] { return !window.preview().isBusy(); });
}

void saveTask(frmMain& window, const QString& key, const QString& prefix) {
    click(window, QStringLiteral("CmdPreviewEdit"));
    click(window, key);
    click(window, QStringLiteral("cmdApply"));
    save(window, prefix);
}

void saveTasks(frmMain& window, const QString& prefix) {
    click(window, QStringLiteral("CmdPreviewEdit"));
    save(window, prefix + QStringLiteral("Nothing-"));
    for (const TaskKind& kind : taskKinds()) {
        const QString key = QString::fromLatin1(kind.panelKey);
        if (!window.findChild<QAbstractButton*>(key))
            continue;
        click(window, key);
        click(window, QStringLiteral("cmdApply"));
        save(window, prefix + key + QLatin1Char('-'));
        click(window, QStringLiteral("cmdReset"));
    }
}

int correctRedEye(const QStringList& operands) {
    ImageBox box;
    box.LoadFromFile(operands[0]);
    box.SelectRectangle(operands[1].toInt(), operands[2].toInt(), operands[3].toInt(), operands[4].toInt());
    box.SelectionActive = true;
    box.RedEyeCorrection();
    box.SaveToFile(operands[5]);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(programIdentity::name);
    QApplication::setStyle(new IndicatorStyle);
    installTranslation();
    QStringList operands = QApplication::arguments().mid(1);
    if (operands.removeAll(QStringLiteral("--dark")) > 0)
        QApplication::setPalette(darkPalette());
    if (operands.removeAll(QStringLiteral("--font-20")) > 0) {
        QFont font = QApplication::font();
        font.setPointSize(20);
        QApplication::setFont(font);
    }
    const bool dialogs = operands.removeAll(QStringLiteral("--dialogs")) > 0;
    QString task;
    for (const QString& option : operands.filter(QStringLiteral("--task="))) {
        task = option.section(QLatin1Char('='), 1);
        operands.removeAll(option);
    }
    const bool tasks = operands.removeAll(QStringLiteral("--edit")) > 0;
    if (operands.removeAll(QStringLiteral("--red-eye")) > 0 && operands.size() == 6)
        return correctRedEye(operands);
    if (operands.size() != 4) {
        std::fprintf(stderr,
                     "expected [--dark] [--font-20] [--dialogs] [--edit] [--task=KEY] WIDTH HEIGHT PICTURES "
                     "PREFIX\n");
        return 2;
    }
    QtDesktop desktop;
    const QTemporaryDir home;
    prepareSettings(home.path(), operands[2]);
    frmMain window({home.path(), {}, {}});
    if (!window.Form_Load())
        return 1;
    window.resize(operands[0].toInt(), operands[1].toInt());
    window.show();
    fillWindow(window);
    if (task.isEmpty())
        save(window, operands[3]);
    else
        saveTask(window, task, operands[3]);
    if (dialogs)
        saveDialogs(window, operands[3]);
    if (tasks)
        saveTasks(window, operands[3]);
    window.close();
    return 0;
}
