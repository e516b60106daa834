// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "collections/forms/FolderTree.h"
#include "controls/ListControl.h"
#include "imaging/ImageBox.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Metafiles.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeDatabase>
#include <QTabBar>
#include <QTest>
#include <QUrl>
#include <condition_variable>
#include <mutex>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarsel::test {

namespace {

/// Lets a folder and what it contains answer no question for a status until released, like the drive of a
/// server that is gone. The window's thread is answered at once, and counted.
class SilentFolder {
public:
    explicit SilentFolder(const QString& path) : m_path(QFile::encodeName(path)) { change(this, true); }
    ~SilentFolder() { change(nullptr, false); }
    void release() { change(this, false); }
    bool isAsked() const { ///< a thread waits, or has waited
        const std::lock_guard lock(mutex);
        return m_isAsked;
    }
    int askedByWindow = 0;

    static void ask(const char* path) {
        std::unique_lock lock(mutex);
        if (!present || !QByteArray(path).startsWith(present->m_path))
            return;
        if (::gettid() == ::getpid()) {
            ++present->askedByWindow;
            return;
        }
        present->m_isAsked = true;
        released.wait(lock, [] { return !present || !present->m_isSilent; });
    }

private:
    void change(SilentFolder* next, bool isSilent) {
        const std::lock_guard lock(mutex);
        present = next;
        m_isSilent = isSilent;
        released.notify_all();
    }

    static inline std::mutex mutex;
    static inline std::condition_variable released;
    static inline SilentFolder* present = nullptr;
    const QByteArray m_path;
    bool m_isSilent = false, m_isAsked = false;
};

/// Folders and files that are typed, dropped, or listed when the window is first shown.
class Places : public WindowTest {};

} // namespace

TEST_F(Places, ATypedPathListsItsFolderAndSelectsItsFileAndAMissingOneIsNamed) {
    makePictures(3);
    start();
    child<QTabBar>(window(), "tbsBrowse").setCurrentIndex(1);
    const auto type = [&](const QString& text) {
        QTest::keyClick(&window(), Qt::Key_L, Qt::ControlModifier);
        auto& field = child<QLineEdit>(window(), "txtPath");
        EXPECT_TRUE(field.isVisible());
        field.setText(text);
        QTest::keyClick(&field, Qt::Key_Return);
    };
    type(pictures() + QStringLiteral("/photo02.jpg"));
    EXPECT_TRUE(waitFor([&] { return panel("filename") == "photo02.jpg"; }));
    EXPECT_EQ(listed().selectedRows(), std::vector<int>{1});
    EXPECT_EQ(child<FolderTree>(window(), "ftvBrowse").selectedFolder(), pictures());
    makePicture(pictures() + QStringLiteral("/new.jpg"));
    type(pictures() + QStringLiteral("/new.jpg"));
    EXPECT_TRUE(waitFor([&] { return panel("filename") == "new.jpg"; }))
        << "a folder on show is listed again";
    EXPECT_TRUE(QFile::rename(pictures() + QStringLiteral("/new.jpg"), pictures() + QStringLiteral("/new")));
    type(pictures() + QStringLiteral("/new"));
    EXPECT_TRUE(waitFor([&] { return panel("filename") == "new"; })) << "a picture, whatever its name";
    writeFileSafely(pictures() + QStringLiteral("/notes"), "no picture");
    type(pictures() + QStringLiteral("/notes"));
    EXPECT_TRUE(waitFor([&] { return panel("status") == "The folder list does not contain notes."; }));
    QDir().mkpath(path(".hidden"));
    type(path(".hidden"));
    auto& tree = child<FolderTree>(window(), "ftvBrowse");
    const auto lists = [&](const QString& folder) {
        return waitFor([&] { return panel("folder") == "Current Folder - " + folder.toStdString(); });
    };
    EXPECT_TRUE(lists(path(".hidden")));
    EXPECT_EQ(tree.selectedFolder(), path(".hidden"));
    type(pictures());
    EXPECT_TRUE(lists(pictures()));
    type(path("nowhere"));
    EXPECT_TRUE(
        waitFor([&] { return panel("status").find(path("nowhere").toStdString()) != std::string::npos; }));
    EXPECT_TRUE(waitFor([&] { return listed().count() == 3; }));
    QTest::keyClick(&window(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_TRUE(lists(QFileInfo(pictures()).path()));
    EXPECT_EQ(panel("status"), "");
    QDir().mkpath(path("few/below"));
    // Again and again: the model may drop a folder that its listing in work doesn't have yet.
    const auto holdsFolders = [&] {
        tree.selectFolder(path("few/below"));
        return tree.model()->hasChildren(tree.currentIndex());
    };
    EXPECT_TRUE(waitFor([&] { return !holdsFolders(); }));
    QDir().mkpath(path("few/below/new"));
    EXPECT_TRUE(waitFor(holdsFolders));
}

TEST_F(Places, APictureOfEachKindOfTheMenuEntryOpensAsTheArgument) {
    makePicture(path("pictures/source.jpg"));
    start();
    const QString entry = QString::fromUtf8(
        readWholeFile(QStringLiteral(TARSEL_ROOT "/packaging/desktop/tarsel-jpeg.desktop")));
    const QStringList kinds = entry.section(QStringLiteral("MimeType="), 1)
                                  .section(u'\n', 0, 0)
                                  .split(u';')
                                  .filter(QStringLiteral("image/"));
    EXPECT_GE(kinds.size(), 10);
    for (const QString& kind : kinds) {
        const QString extension = QMimeDatabase().mimeTypeForName(kind).preferredSuffix();
        const QString name = QStringLiteral("drawing.") + extension;
        const QString file = pictures() + u'/' + name;
        if (extension == u"wmf" || extension == u"emf") {
            writeFileSafely(file,
                            extension == u"wmf" ? wmf(redLeftHalf()) : emf(emfRecord(43, {0, 0, 19, 19})));
        } else {
            ImageBox box;
            box.LoadFromFile(path("pictures/source.jpg"));
            box.SaveToFile(file);
        }
        window().openFile(file);
        EXPECT_TRUE(waitFor([&] { return panel("filename") == name.toStdString(); })) << kind.toStdString();
    }
}

TEST_F(Places, AFolderThatDoesNotAnswerHoldsUpNothing) {
    makePictures(2);
    start();
    const QList<QUrl> photo{QUrl::fromLocalFile(pictures() + QStringLiteral("/photo02.jpg"))};
    const auto offer = [&](const char* list) {
        Q_EMIT child<ListControl>(window(), list).filesOffered(photo);
    };
    const auto expectAnswers = [&](const auto& ask, const auto& isDone) {
        SilentFolder server(pictures());
        ask();
        EXPECT_TRUE(waitFor([&] { return server.isAsked(); }));
        EXPECT_EQ(server.askedByWindow, 0);
        server.release();
        EXPECT_TRUE(waitFor(isDone));
    };
    const auto isListed = [&] { return listed().count() == 2 && !window().folderView().isRunning(); };
    const auto type = [&] {
        auto& field = child<QLineEdit>(window(), "txtPath");
        field.setText(pictures());
        QTest::keyClick(&field, Qt::Key_Return);
    };
    expectAnswers([&] { offer("lvFolder"); }, [&] { return panel("filename") == "photo02.jpg"; });
    EXPECT_EQ(listed().selectedRows(), std::vector<int>{1}) << "in its folder";
    listFolder(programFolder());
    expectAnswers(type, isListed);
    listFolder(programFolder());
    expectAnswers([&] { window().openFile(photo[0].toLocalFile()); },
                  [&] { return panel("filename") == "photo02.jpg"; });
    writeFileSafely(path("pictures/list.ibf"), '"' + photo[0].toLocalFile().toUtf8() + "\"\r\n");
    expectAnswers([&] { window().openFile(path("pictures/list.ibf")); },
                  [&] { return basket().count() == 1; });
    close();
    expectAnswers([&] { start(); }, isListed);

    Q_EMIT child<ListControl>(window(), "lvFolder").filesOffered({QUrl(QStringLiteral("http://host/a.jpg"))});
    EXPECT_EQ(panel("status"), "1 address was skipped: it is not on this computer.");
    SilentFolder server(pictures());
    when([&] { return server.isAsked(); }, [&] { click(window(), "cmdCancelAdding"); });
    offer("lvPages");
    EXPECT_EQ(basket().count(), 0) << "and it ended before the answer";
    when([&] { return server.isAsked(); }, [&] { server.release(); });
    offer("lvPages");
    ASSERT_EQ(texts(basket()), "photo02");
    EXPECT_NE(basket().subItem(0, BasketColumn::FileSize), QString());
    EXPECT_EQ(server.askedByWindow, 0);
}

} // namespace tarsel::test

/// The program's own functions come before those of the C library.
extern "C" Q_DECL_EXPORT int statx(int folder, const char* path, int flags, unsigned mask,
                                   struct statx* status) noexcept {
    tarsel::test::SilentFolder::ask(path);
    return int(::syscall(SYS_statx, folder, path, flags, mask, status));
}
