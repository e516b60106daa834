// SPDX-License-Identifier: GPL-3.0-or-later
// The players as programs: on a screen of their own (Xvfb), with input from xdotool.
#include "players/effects/Canvas.h"
#include "players/platform/Jpeg.h"
#include "players/platform/X11Connection.h"
#include "publishing/joined/JoinedOptions.h"
#include "publishing/joined/JoinedWriter.h"

#include <QBuffer>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

#ifdef TARSEL_PLAYERS_FOLDER

namespace tarsel::players {

namespace {

constexpr int width = 640, height = 480;
const joined::SaverOptions saverOptions{0x00663311, 1};

std::string jpegOf(QRgb color) {
    QImage image(201, 100, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    EXPECT_TRUE(image.save(&buffer, "JPG", 90));
    return buffer.data().toStdString();
}

std::string joinedTo(const char* player, const std::vector<std::string>& pictures,
                     const std::string& options) {
    QFile program(QStringLiteral(TARSEL_PLAYERS_FOLDER "/") + QString::fromLatin1(player));
    EXPECT_TRUE(program.open(QIODevice::ReadOnly)) << player;
    std::string file;
    joined::JoinedWriter writer([&](std::string_view bytes) { file += bytes; });
    writer.player(program.readAll().toStdString());
    for (const std::string& picture : pictures)
        writer.picture("Single", picture);
    EXPECT_TRUE(writer.finish(options));
    return file;
}

/// A built file in a folder of its own, as a user starts it.
class Built {
public:
    Built(const char* name, const std::string& bytes) : m_path(m_folder.filePath(QString::fromLatin1(name))) {
        QFile file(m_path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes.data(), qint64(bytes.size())) >= 0);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    /// By `wine` where it is a program of Windows.
    void start(QProcess& player, const QStringList& arguments = {}, const QString& wine = {}) const {
        player.setWorkingDirectory(QStringLiteral("/"));
        player.start(wine.isEmpty() ? m_path : wine,
                     (wine.isEmpty() ? QStringList() : QStringList(m_path)) + arguments);
        EXPECT_TRUE(player.waitForStarted());
    }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

/// What every player does that can't show anything: it ends, says why in one line, and fails.
void expectComplaint(QProcess& player, const char* reason, const std::string& what) {
    EXPECT_TRUE(player.waitForFinished(30000)) << what;
    EXPECT_EQ(player.exitStatus(), QProcess::NormalExit) << what;
    EXPECT_EQ(player.exitCode(), 1) << what;
    const QByteArray messages = player.readAllStandardError();
    EXPECT_EQ(messages.count('\n'), 1) << what << messages.toStdString();
    EXPECT_TRUE(messages.contains(reason)) << what << messages.toStdString();
}

TEST(BrokenPlayer, EndsWithOneLine) {
    const std::string options = joined::bytesOf(saverOptions);
    const std::string whole = joinedTo("linux/saver", {jpegOf(0xFF204060)}, options);
    const std::string bare = joinedTo("linux/saver", {}, options);
    const std::string nothing = "no pictures are joined";
    struct Case {
        std::string bytes;
        const char* name;
        std::string reason;
    };
    std::vector<Case> cases = {{bare, "a.scr", "there are no pictures"},
                               {whole, "a.exe", "has to end in .scr"},
                               {whole, "a.scr", "DISPLAY"}};
    const std::size_t program = bare.size() - 6 - 60; // a little less
    for (std::size_t size = program; size < whole.size(); size += 97)
        cases.push_back({whole.substr(0, size), "a.scr", nothing});
    std::string lying = whole;
    lying.replace(whole.size() - 11, 10, "9999999999");
    cases.push_back({lying, "a.scr", nothing});
    for (const auto& [bytes, name, reason] : cases) {
        const Built built(name, bytes);
        QProcess player;
        player.setProcessEnvironment({});
        built.start(player);
        expectComplaint(player, reason.c_str(), reason + ' ' + std::to_string(bytes.size()));
    }
}

class ShownPlayer : public testing::Test {
protected:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("TARSEL_REAL_SCREEN"))
            GTEST_SKIP() << "needs a screen of its own: TARSEL_REAL_SCREEN=1";
        m_connection.emplace();
        xdotool("mousemove 5 5");
    }

    static void xdotool(const std::string& words) {
        const auto arguments = QString::fromStdString(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments), 0);
    }

    static void moveQuickly(int times, int from) {
        std::string moves;
        for (int i = 1; i <= times; ++i)
            moves += " mousemove " + std::to_string(from + i) + " 100";
        xdotool(moves);
    }

    std::vector<std::uint32_t> seen(xcb_window_t window, int columns, int rows) const {
        const ReplyPointer<xcb_get_image_reply_t> reply(
            xcb_get_image_reply(*m_connection,
                                xcb_get_image(*m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                              std::uint16_t(columns), std::uint16_t(rows), ~0u),
                                nullptr));
        if (!reply)
            return {};
        const auto* const pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get()));
        std::vector<std::uint32_t> all(pixels, pixels + columns * rows);
        for (std::uint32_t& pixel : all)
            pixel |= black;
        return all;
    }

    /// Whether the screen comes to show this picture in its middle, within 30 seconds.
    bool shows(const std::string& jpeg) const {
        Picture expected{std::vector<std::uint32_t>(width * height), width, height};
        drawCentred(expected.canvas(), *decodeJpeg(jpeg, width, height), 0xFF113366);
        return comesTrue([&] { return seen(m_connection->screen().root, width, height) == expected.pixels; });
    }

    static bool comesTrue(const std::function<bool()>& condition) {
        for (int i = 0; i < 3000; ++i) {
            if (condition())
                return true;
            usleep(10000);
        }
        return false;
    }

    static void expectEnd(QProcess& player, const char* what) {
        EXPECT_TRUE(player.waitForFinished(30000)) << what;
        EXPECT_EQ(player.exitCode(), 0) << what << player.readAllStandardError().toStdString();
        player.kill();
        player.waitForFinished();
    }

    static bool runs(const QProcess& player) { return player.state() == QProcess::Running; }

    std::optional<X11Connection> m_connection;
    const std::string m_blue = jpegOf(0xFF2040C0);
    const std::string m_green = jpegOf(0xFF20C040);
    const Built m_saver{"a.scr",
                        joinedTo("linux/saver", {m_blue, "no JPEG", m_green}, joined::bytesOf(saverOptions))};
};

TEST_F(ShownPlayer, ASaverShowsItsPicturesAndEndsByInput) {
    for (const std::string end : {"key a", "click 1"}) {
        QProcess player;
        m_saver.start(player, {QStringLiteral("/S")});
        ASSERT_TRUE(shows(m_blue));
        ASSERT_TRUE(shows(m_green)); // the damaged one is skipped
        QProcess second;
        m_saver.start(second);
        expectEnd(second, "a second instance");
        moveQuickly(10, 100);
        EXPECT_TRUE(shows(m_blue) && runs(player));
        xdotool(end);
        expectEnd(player, end.c_str());
    }
    QProcess player;
    m_saver.start(player);
    ASSERT_TRUE(shows(m_blue));
    moveQuickly(30, 200);
    expectEnd(player, "many moves");
}

TEST_F(ShownPlayer, ASlideShowIsDrivenByKeysAndControls) {
    joined::SaverOptions options = saverOptions;
    options.interval = 30;
    const Built slide("a.exe", joinedTo("linux/slide", {m_blue, m_green}, joined::bytesOf(options)));
    QProcess player;
    slide.start(player);
    ASSERT_TRUE(shows(m_blue));
    xdotool("key Right");
    EXPECT_TRUE(shows(m_green));
    xdotool("key Prior");
    EXPECT_TRUE(shows(m_blue));
    moveQuickly(30, 100);
    const auto screen = [&] { return seen(m_connection->screen().root, width, height); };
    const auto panel = [&] { return screen()[(height - 64) * width + width / 2]; };
    EXPECT_TRUE(comesTrue([&] { return panel() != 0xFF113366; }));
    xdotool("mousemove 384 416 click 1 mousemove 5 5");
    EXPECT_TRUE(shows(m_green)); // once the controls are gone
    EXPECT_TRUE(runs(player));
    moveQuickly(5, 100);
    xdotool("mousemove 448 416 click 1");
    expectEnd(player, "the exit button");
}

TEST_F(ShownPlayer, AHostGetsTheScreenReducedInItsWindow) {
    X11Connection host;
    const xcb_window_t window = xcb_generate_id(host);
    xcb_create_window(host, XCB_COPY_FROM_PARENT, window, host.screen().root, 300, 200, width / 4, height / 4,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, host.screen().root_visual, 0, nullptr);
    xcb_map_window(host, window);
    xcb_flush(host);
    QProcess player;
    m_saver.start(player, {QStringLiteral("/P"), QString::number(window)});
    const std::uint32_t blue = decodeJpeg(m_blue, width, height)->pixels[0];
    const auto pixel = [&](std::size_t x, std::size_t y) {
        const auto pixels = seen(window, width / 4, height / 4);
        return pixels.empty() ? 0 : pixels[y * width / 4 + x];
    };
    EXPECT_TRUE(comesTrue(
        [&] { return pixel(80, 60) == blue && pixel(60, 50) == blue && pixel(30, 60) == 0xFF113366; }));
    xcb_destroy_window(host, window);
    xcb_flush(host);
    expectEnd(player, "the host's window is gone");
    QProcess lost;
    m_saver.start(lost, {QStringLiteral("/P"), QString::number(window)});
    expectComplaint(lost, "There is no window", "no host");
}

TEST_F(ShownPlayer, GreetingsStartWithTheirPicture) {
    for (const char* name : {"linux/simple", "linux/watery", "linux/raining-text", "linux/clock"}) {
        const Built greeting("a.exe", joinedTo(name, {m_blue}, *joined::bytesOf(joined::EffectOptions())));
        QProcess player;
        greeting.start(player);
        const std::uint32_t blue = decodeJpeg(m_blue, width, height)->pixels[0];
        EXPECT_TRUE(comesTrue([&] {
            const auto screen = seen(m_connection->screen().root, width, height);
            return screen[240 * width + 225] == blue && screen[0] == black;
        })) << name;
        xdotool("key Escape");
        expectEnd(player, name);
        const std::string good = *joined::bytesOf(joined::EffectOptions());
        const std::string broken[] = {joinedTo(name, {"no JPEG"}, good),
                                      joinedTo(name, {m_blue}, good.substr(1))};
        for (const std::string& bytes : broken) {
            const Built damaged("a.exe", bytes);
            damaged.start(player);
            expectComplaint(player, &bytes == broken ? "can't be shown" : "options are cut", name);
        }
    }
}

TEST_F(ShownPlayer, WindowsPlayersShowTheirPicturesUnderWine) {
    const QString wine = qEnvironmentVariable("TARSEL_WINE");
    if (wine.isEmpty())
        GTEST_SKIP() << "needs wine64 and the compiler of Windows";
    const std::string saver = joined::bytesOf(saverOptions);
    const std::string greeting = *joined::bytesOf(joined::EffectOptions());
    const struct {
        const char* program;
        const char* file;
        const std::string& options;
    } players[] = {
        {"windows/saver.exe", "a.scr", saver},     {"windows/slide.exe", "a.exe", saver},
        {"windows/simple.exe", "a.exe", greeting}, {"windows/watery.exe", "a.exe", greeting},
        {"windows/clock.exe", "a.exe", greeting},  {"windows/raining-text.exe", "a.exe", greeting}};
    for (const auto& [name, file, options] : players) {
        const Built built(file, joinedTo(name, {m_blue}, options));
        QProcess player;
        built.start(player, {QStringLiteral("/S")}, wine);
        const std::uint32_t expected = decodeJpeg(m_blue, width, height)->pixels[0];
        EXPECT_TRUE(comesTrue([&] { // decoders differ by 1
            const std::uint32_t shown = seen(m_connection->screen().root, width, height)[240 * width + 225];
            return ((shown ^ expected) & 0xF0F0F0) == 0;
        })) << name;
        QProcess second;
        built.start(second, {}, wine);
        expectEnd(second, "a second instance");
        EXPECT_TRUE(runs(player)) << name;
        xdotool("key a");
        expectEnd(player, name);
        const Built cut(file, joinedTo(name, {m_blue}, options.substr(1)));
        cut.start(player, {}, wine);
        expectComplaint(player, "options are cut", name);
    }
}

} // namespace

} // namespace tarsel::players

#endif
