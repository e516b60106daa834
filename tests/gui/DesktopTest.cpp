// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"
#include "base/ErrorSubject.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"
#include "configuration/ConfigRecord.h"
#include "configuration/ProgramFolder.h"
#include "output/BackgroundSave.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tarsel::test {

TEST(QtDesktopTest, IsOnlineByAnInterfaceOtherThanTheLoopback) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"lo", "unknown", false}, {"eth0", "up", true}, {"eth0", "down", false}, {"ppp0", "unknown", true}};
    for (const auto& [interface, state, online] : cases) {
        const QTemporaryDir network;
        const QString folder = network.filePath(QLatin1String(interface));
        QDir().mkpath(folder);
        writeFileSafely(folder + QStringLiteral("/operstate"), QByteArray(state) + '\n');
        EXPECT_EQ(QtSystemServices(network.path()).isOnline(), online) << interface << ' ' << state;
    }
    EXPECT_FALSE(QtSystemServices(QStringLiteral("/no/such/folder")).isOnline());
}

TEST(QtDesktopTest, TheBusyPointerIsAStateThatOneCallTakesBack) {
    QtEventLoop eventLoop;
    eventLoop.setBusyPointer(true);
    eventLoop.setBusyPointer(true);
    EXPECT_TRUE(QGuiApplication::overrideCursor());
    eventLoop.setBusyPointer(false);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST(QtDesktopTest, MessageBoxesShowTheirTextAsItStandsAndReturnTheAnswer) {
    QtDesktop desktop;
    QString shown;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        shown = box->text();
        EXPECT_GT(box->width(), box->fontMetrics().horizontalAdvance(box->windowTitle()) + 100);
        box->button(QMessageBox::Cancel)->click();
    });
    EXPECT_EQ(desktop.dialogs.messageBox(QStringLiteral("<b>a</b>\nb"), MessageIcon::Question,
                                         MessageButtons::OkCancel, QString(50, u'n')),
              MessageAnswer::Cancel);
    EXPECT_EQ(shown.toStdString(), "<b>a</b>\nb");
    QTimer::singleShot(0, qApp, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    EXPECT_EQ(desktop.dialogs.messageBox(shown, MessageIcon::Question, MessageButtons::YesNo, {}),
              MessageAnswer::No);
    QStringList keys;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        for (const QAbstractButton* each : box->buttons())
            keys << QKeySequence::mnemonic(each->text()).toString();
        box->button(QMessageBox::Discard)->click();
    });
    EXPECT_EQ(desktop.dialogs.messageBox(shown, MessageIcon::Question, MessageButtons::SaveDiscardCancel, {}),
              MessageAnswer::Discard);
    keys.sort();
    EXPECT_EQ(keys.join(u' ').toStdString(), "Alt+C Alt+D Alt+S");
}

TEST(QtDesktopTest, AnErrorInAHandlerOfInputDoesNotNameTheFileAtWork) {
    const ErrorSubject atWork(QStringLiteral("a.jpg"));
    QString reported;
    QTimer::singleShot(0, qApp, [&] { reported = namingSubject(QStringLiteral("Disk full")); });
    QtEventLoop().yield();
    EXPECT_EQ(reported.toStdString(), "Disk full");
    EXPECT_EQ(namingSubject(reported).toStdString(), "a.jpg: Disk full");
}

TEST(QtDesktopTest, TheFirstSaveDialogStartsWhereTheLastSessionEndedAndReturnsPathAndFilter) {
    const QTemporaryDir folder;
    QtDesktop desktop;
    const QScopedValueRollback lastSession(ConfigRecord.LastFolder, folder.path());
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->directory().path(), folder.path());
        EXPECT_EQ(dialog->nameFilters().join(u'|'), QStringLiteral("Lists (*.a *.c)|All files (*.*)"));
        dialog->selectNameFilter(dialog->nameFilters().at(1));
        dialog->selectFile(folder.filePath(QStringLiteral("list")));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    const auto choice = desktop.dialogs.saveFileDialog(
        {QStringLiteral("Save Basket"), QStringLiteral("Lists (*.a;*.c)|*.a;*.c|All files|*.*|"), {}});
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->path, folder.filePath(QStringLiteral("list")));
    EXPECT_EQ(choice->filterIndex, 2);

    const QScopedValueRollback fresh(ConfigPath, folder.filePath(QStringLiteral("settings")));
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->directory().path(), visibleFolder(folder.path())) << "not the program folder";
        dialog->reject();
    });
    EXPECT_FALSE(QtDesktop().dialogs.saveFileDialog({QStringLiteral("Save Basket"), {}, {}}));
}

TEST(QtDesktopTest, ANameWithQuotesIsSavedAsProposedAndAFolderThatIsGoneIsNotAskedFor) {
    const QTemporaryDir folder;
    const QScopedValueRollback lastSession(ConfigRecord.LastFolder, folder.path());
    const QString name = QStringLiteral("say \"hi\" there");
    EXPECT_EQ(unusedNameBeside(folder.filePath(QStringLiteral("50%2C %1.jpg"))).toStdString(),
              folder.filePath(QStringLiteral("50%2C %1-1")).toStdString());
    for (const QString& proposed : {folder.path(), folder.path() + QStringLiteral("/gone")}) {
        QTimer::singleShot(0, qApp, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_TRUE(dialog);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        const auto choice = QtDesktop().dialogs.saveFileDialog(
            {QStringLiteral("Save"), {}, proposed + QLatin1Char('/') + name});
        ASSERT_TRUE(choice);
        EXPECT_EQ(choice->path.toStdString(), folder.filePath(name).toStdString());
    }
}

TEST(QtDesktopTest, AFolderThatTakesNoFilesIsRefusedAndTheDialogComesBack) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    const QTemporaryDir folder;
    QFile(folder.path()).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    const QString wanted = folder.filePath(QStringLiteral("list"));
    EXPECT_NE(QFileInfo(unusedNameBeside(wanted)).path(), folder.path());
    QString refusal;
    QTimer::singleShot(0, qApp, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->selectFile(wanted);
        QTimer::singleShot(100, qApp, [&] { // once it is there
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            refusal = box->text();
            QTimer::singleShot(100, qApp, [] { QApplication::activeModalWidget()->close(); });
            box->accept();
        });
        QMetaObject::invokeMethod(dialog, "accept");
    });
    EXPECT_FALSE(QtDesktop().dialogs.saveFileDialog({QStringLiteral("Save Basket"), {}, wanted}));
    EXPECT_EQ(refusal.toStdString(), "You may not write to the folder " + folder.path().toStdString() + ".");
    QFile(folder.path()).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST(QtDesktopTest, AWindowIsClosedByItsExactTitle) {
    QtDesktop desktop;
    QWidget window;
    window.setWindowTitle(QStringLiteral("Success"));
    window.show();
    EXPECT_FALSE(desktop.system.closeWindowTitled(QStringLiteral("Succes")));
    EXPECT_TRUE(desktop.system.closeWindowTitled(QStringLiteral("Success")));
    EXPECT_FALSE(window.isVisible());
}

} // namespace tarsel::test
