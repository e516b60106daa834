// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/WindowTest.h"

#include "app/FolderTree.h"
#include "base/ErrorTrap.h"
#include "configuration/ConfigRecord.h"
#include "controls/ListControl.h"

#include <QAbstractItemView>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace tarsel::test {

WindowTest::WindowTest() {
    ConfigRecord = {};
    CancelRequested = false;
    ApplicationName.clear();
    QDir().mkpath(programFolder());
    QDir().mkpath(pictures());
}

WindowTest::~WindowTest() {
    if (m_window)
        m_window->close();
    m_window.reset();
    EXPECT_EQ(script.unexpected.join(QLatin1Char('|')).toStdString(), "");
}

void WindowTest::makePicture(const QString& file, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(40, 120, 200));
    QPainter(&image).drawLine(0, 0, size.width(), size.height());
    ASSERT_TRUE(image.save(file, "jpg", 90));
}

void WindowTest::makePictures(int count) {
    for (int i = 1; i <= count; ++i)
        makePicture(QStringLiteral("%1/photo%2.jpg").arg(pictures()).arg(i, 2, 10, QLatin1Char('0')));
}

frmMain& WindowTest::start(const QString& samples) {
    m_window = std::make_unique<frmMain>(frmMain::Surroundings{programFolder(), samples, {}});
    EXPECT_TRUE(m_window->Form_Load());
    m_window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    return *m_window;
}

void WindowTest::close() {
    m_window->close();
    m_window.reset();
}

void WindowTest::listFolder(const QString& folder) {
    child<FolderTree>(window(), "ftvBrowse").selectFolder(folder);
    const QString panel = QStringLiteral("Current Folder - ") + folder;
    EXPECT_TRUE(waitFor([&] {
        return window().workspace().sbMain.panel(QStringLiteral("folder")) == panel &&
               !window().folderView().isRunning();
    }));
}

void WindowTest::selectAllOf(const char* list) {
    QAbstractItemView* view = child<ListControl>(window(), list).view();
    view->setFocus();
    QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
}

void WindowTest::addAll() {
    selectAllOf("lvFolder");
    click(window(), "cmdAddToQueue");
}

bool WindowTest::waitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 20000);
}

} // namespace tarsel::test
