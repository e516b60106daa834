// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/WindowTest.h"

#include "base/ErrorTrap.h"
#include "collections/forms/FolderTree.h"
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
        close();
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
    m_window = std::make_unique<frmMain>(
        frmMain::StartupOptions{.programFolder = programFolder(),
                                .samplesFolder = samples,
                                .manualFolder = QStringLiteral(TARSEL_ROOT "/docs/manual")});
    EXPECT_TRUE(m_window->Form_Load());
    m_window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    return *m_window;
}

void WindowTest::startListing(int count) {
    makePictures(count);
    start();
    listFolder(pictures());
}

void WindowTest::startWithBasket(int count) {
    startListing(count);
    addAll();
}

void WindowTest::close() {
    m_window->endAtOnce();
    m_window.reset();
}

void WindowTest::listFolder(const QString& folder) {
    child<FolderTree>(window(), "ftvBrowse").selectFolder(folder);
    const std::string shown = FolderView::tr("Current Folder - %1").arg(folder).toStdString();
    EXPECT_TRUE(waitFor([&] { return panel("folder") == shown && !window().folderView().isRunning(); }));
}

std::string WindowTest::panel(const char* key) {
    return window().workspace().sbMain.panel(QLatin1String(key)).toStdString();
}

std::string WindowTest::texts(const ListView& list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts << list.row(row).text;
    return texts.join(QLatin1Char(' ')).toStdString();
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

void WindowTest::when(const std::function<bool()>& condition, const std::function<void()>& action) {
    m_watch.disconnect();
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this, condition, action] {
        if (!condition())
            return;
        m_watch.stop();
        action();
    });
    m_watch.start(0);
}

} // namespace tarsel::test
