// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "base/Stop.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr uint done = 0, cancelled = 1, refused = 2;
constexpr uint silence = 99, gone = 98; ///< no answer; the portal ends instead
constexpr uint deaf = 97;               ///< not even the request is acknowledged

/// Answers requests for pictures of the screen, on a bus of its own, as the portal of a desktop does.
class FakePortal final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Screenshot")
public:
    FakePortal() :
        m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("portal"))) {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                             QDBusConnection::ExportAllSlots);
        m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }
    ~FakePortal() override { QDBusConnection::disconnectFromBus(QStringLiteral("portal")); }

    QList<uint> responses; ///< of the requests to come
    QString file;          ///< with the picture
    QString address;       ///< reported instead of the file's
    bool ownHandle = false;
    QList<bool> interactive; ///< as asked

public Q_SLOTS:
    QDBusObjectPath Screenshot(const QString&, const QVariantMap& options) {
        interactive.append(options.value(QStringLiteral("interactive")).toBool());
        const QString sender = message().service().mid(1).replace(u'.', u'_');
        const QString token =
            ownHandle ? QStringLiteral("own") : options.value(QStringLiteral("handle_token")).toString();
        const QString handle =
            QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
        QDBusMessage response = QDBusMessage::createSignal(
            handle, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        const uint code = responses.takeFirst();
        if (code == gone)
            m_bus.unregisterService(QStringLiteral("org.freedesktop.portal.Desktop"));
        setDelayedReply(code == deaf);
        if (code == gone || code == silence || code == deaf)
            return QDBusObjectPath(handle);
        QVariantMap results;
        if (code == done)
            results.insert(QStringLiteral("uri"),
                           address.isEmpty() ? QUrl::fromLocalFile(file).toString() : address);
        response << code << results;
        const QDBusConnection bus = m_bus;
        if (ownHandle) // a client can't know the name before the reply
            QTimer::singleShot(50, this, [bus, response] { bus.send(response); });
        else
            bus.send(response);
        return QDBusObjectPath(handle);
    }

private:
    QDBusConnection m_bus;
};

QRect areaOf(const std::vector<Monitor>& monitors, const char* name) {
    const auto found = std::ranges::find(monitors, QLatin1String(name), &Monitor::name);
    return found == monitors.end() ? QRect() : found->area;
}

class PortalScreen : public testing::Test {
protected:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("TARSEL_PRIVATE_BUS"))
            GTEST_SKIP() << "needs a D-Bus of its own: dbus-run-session";
        image.fill(qRgb(10, 20, 30));
        image.setPixel(3, 2, qRgb(200, 100, 50));
        file = folder.filePath(QStringLiteral("Screenshot von heute.png"));
        ASSERT_TRUE(image.save(file));
    }

    QTemporaryDir folder;
    QString file;
    QImage image{7, 5, QImage::Format_RGB888};
};

} // namespace

TEST_F(PortalScreen, APictureComesAtOnceOrAfterTheUserWasAsked) {
    for (const bool ownHandle : {false, true}) {
        ASSERT_TRUE(image.save(file));
        FakePortal portal;
        portal.file = file;
        portal.ownHandle = ownHandle;
        portal.responses = {refused, done};
        const ScreenPicture screen = portalScreen()->grab(false);
        EXPECT_EQ(portal.interactive, (QList<bool>{false, true}));
        EXPECT_EQ(screen.picture.width(), 7);
        EXPECT_EQ(screen.picture.view().pixel(3, 2)[1], 100);
        ASSERT_FALSE(screen.monitors.empty());
        EXPECT_TRUE(QRect(0, 0, 7, 5).contains(screen.monitors.front().area));
        EXPECT_FALSE(QFile::exists(file)) << "made for this request";
    }
}

TEST_F(PortalScreen, WhatKeepsThePictureAwayIsSaid) {
    const auto errorWith = [&](const QList<uint>& responses, const QString& address = {}) {
        FakePortal portal;
        portal.file = file;
        portal.address = address;
        portal.responses = responses;
        const TrappedError error = errorOf([] { portalScreen()->grab(false); });
        EXPECT_TRUE(portal.responses.isEmpty());
        return error;
    };
    const auto is = [](const TrappedError& error, qint32 number, const QString& text) {
        EXPECT_EQ(error.number, number);
        EXPECT_TRUE(error.description.contains(text)) << error.description.toStdString();
        EXPECT_FALSE(error.description.contains(u"()")) << error.description.toStdString();
    };
    is(errorWith({cancelled}), ErrorNumber::Interrupted, QStringLiteral("was not allowed"));
    is(errorWith({refused, refused}), ErrorNumber::PermissionDenied, QStringLiteral("the desktop refused"));
    is(errorWith({refused, cancelled}), ErrorNumber::Interrupted, QStringLiteral("was not allowed"));
    is(errorWith({gone}), ErrorNumber::FileNotFound, QStringLiteral("has no portal"));
    is(errorOf([] { portalScreen()->grab(false); }), ErrorNumber::FileNotFound,
       QStringLiteral("has no portal"));
    is(errorWith({done, done}, QStringLiteral("portal:picture")), ErrorNumber::PermissionDenied,
       QStringLiteral("the desktop refused"));
    const QString missing = folder.filePath(QStringLiteral("not there.png"));
    is(errorWith({done}, QUrl::fromLocalFile(missing).toString()), ErrorNumber::FileNotFound, missing);
    const QString pipe = folder.filePath(QStringLiteral("pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    is(errorWith({done}, QUrl::fromLocalFile(pipe).toString()), ErrorNumber::InvalidCall, pipe);
    QFile cut(file);
    ASSERT_TRUE(cut.resize(40));
    is(errorWith({done}), ErrorNumber::UnreadableFile, file);
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(PortalScreen, ADesktopThatDoesntAnswerIsGivenUp) {
    for (const uint code : {silence, deaf}) {
        FakePortal portal;
        portal.responses = {code};
        const TrappedError error =
            errorOf([] { portalScreen(std::chrono::milliseconds(1200))->grab(false); });
        EXPECT_EQ(error.number, ErrorNumber::PermissionDenied);
        EXPECT_TRUE(error.description.contains(u"within 2 seconds")) << error.description.toStdString();
        EXPECT_TRUE(portal.responses.isEmpty());
    }
}

TEST_F(PortalScreen, OnAnotherThreadAStopEndsTheWait) {
    FakePortal portal;
    portal.responses = {silence, done};
    portal.file = file;
    std::stop_source stop;
    qint32 stopped = 0;
    int width = 0;
    const auto run = [](const std::function<void()>& work) {
        const std::unique_ptr<QThread> thread(QThread::create(work));
        QEventLoop loop; // in which the portal answers
        QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
        thread->start();
        loop.exec();
        thread->wait();
    };
    const auto screen = portalScreen();
    QTimer::singleShot(200, [&] { stop.request_stop(); });
    run([&] {
        const StopScope scope(stop.get_token());
        stopped = errorNumberOf([&] { screen->grab(false); });
    });
    EXPECT_EQ(stopped, ErrorNumber::Interrupted);
    run([&] { width = screen->grab(false).picture.width(); });
    EXPECT_EQ(width, 7);
}

TEST_F(PortalScreen, OfAPictureAtAnyScaleEachMonitorIsAPart) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (screens.size() != 2)
        GTEST_SKIP() << "needs the two screens of left-at-2.json";
    for (const double scale : {0.5, 1.0, 1.5, 3.0}) {
        const QSize size = (QSizeF(1200, 620) * scale).toSize(); // of both, the left one being 500 wide
        ASSERT_TRUE(QImage(size, QImage::Format_RGB888).save(file));
        FakePortal portal;
        portal.file = file;
        portal.responses = {done};
        const ScreenPicture screen = portalScreen()->grab(false);
        const auto at = [scale](int place) { return int(std::lround(place * scale)); };
        EXPECT_EQ(areaOf(screen.monitors, "right"),
                  QRect(QPoint(at(500), at(120)), QPoint(at(1200) - 1, at(620) - 1)));
        EXPECT_EQ(areaOf(screen.monitors, "left"), QRect(QPoint(0, 0), QPoint(at(500) - 1, at(400) - 1)));
    }
    EXPECT_EQ(areaOf(portalScreen()->monitors(), "left"), QRect(0, 0, 500, 400));
}

TEST_F(PortalScreen, AFileThatIsOlderThanTheRequestStays) {
    QFile old(file);
    ASSERT_TRUE(old.open(QIODevice::ReadWrite));
    ASSERT_TRUE(old.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    old.close();
    FakePortal portal;
    portal.file = file;
    portal.responses = {done};
    EXPECT_EQ(portalScreen()->grab(false).picture.width(), 7);
    EXPECT_TRUE(QFile::exists(file));
}

#include "PortalScreenTest.moc"
