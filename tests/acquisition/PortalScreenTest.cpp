// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "base/RandomNumbers.h"
#include "base/Service.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

constexpr uint done = 0, cancelled = 1, refused = 2;

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
        QVariantMap results;
        if (code == done)
            results.insert(QStringLiteral("uri"), QUrl::fromLocalFile(file).toString());
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
    SeededRandomNumbers numbers;
    ServiceScope<RandomNumbers> scope{numbers};
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

TEST_F(PortalScreen, ARefusalAMissingPortalAndADamagedFileAreSaid) {
    const auto errorWith = [&](const QList<uint>& responses) {
        FakePortal portal;
        portal.file = file;
        portal.responses = responses;
        return errorNumberOf([] { portalScreen()->grab(false); });
    };
    EXPECT_EQ(errorWith({cancelled}), ErrorNumber::Interrupted);
    EXPECT_EQ(errorWith({refused, refused}), ErrorNumber::PermissionDenied);
    EXPECT_EQ(errorNumberOf([] { portalScreen()->grab(false); }), ErrorNumber::FileNotFound);
    QFile cut(file);
    ASSERT_TRUE(cut.resize(40));
    EXPECT_EQ(errorWith({done}), ErrorNumber::UnreadableFile);
    EXPECT_TRUE(QFile::exists(file));
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
