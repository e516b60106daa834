// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "tests/gui/DialogScript.h"

#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

namespace tarsel::test {

/// Starts the real main window in a fresh program folder of its own, with a folder of small pictures.
class WindowTest : public testing::Test {
protected:
    WindowTest();
    ~WindowTest() override;

    QString programFolder() const { return m_home.filePath(QStringLiteral("program")); }
    QString pictures() const { return m_home.filePath(QStringLiteral("pictures")); }
    QString path(const char* name) const { return m_home.filePath(QString::fromLatin1(name)); }

    /// Writes a JPEG of one colour with a diagonal.
    static void makePicture(const QString& file, QSize size = {64, 48});
    void makePictures(int count);

    /// Form_Load and the first showing. `samples` is the folder listed at the first start.
    frmMain& start(const QString& samples = {});
    void close(); ///< without a question
    frmMain& window() { return *m_window; }
    /// Starts with that many pictures listed, photo01.jpg and so on.
    void startListing(int count);
    void startWithBasket(int count);

    ListView& listed() { return window().workspace().lvFolder; }
    ListView& basket() { return window().workspace().lvPages; }
    std::string panel(const char* key);
    /// The texts of all rows, with blanks between them.
    static std::string texts(const ListView& list);

    /// Shows a folder by a selection in the tree and waits until it is listed.
    void listFolder(const QString& folder);
    void selectAllOf(const char* list);
    /// Adds every picture of the listed folder to the basket.
    void addAll();

    /// Lets the window work until the condition holds; false after some seconds.
    static bool waitFor(const std::function<bool()>& condition);
    /// Acts once in the middle of other work, as soon as the condition holds.
    void when(const std::function<bool()>& condition, const std::function<void()>& action);

    QtDesktop desktop;
    DialogScript script;

private:
    QTemporaryDir m_home;
    std::unique_ptr<frmMain> m_window;
    QTimer m_watch;
};

} // namespace tarsel::test
