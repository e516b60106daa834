// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/QtDesktop.h"
#include "app/frmMain.h"
#include "tests/gui/DialogScript.h"

#include <QTemporaryDir>
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
    void close(); ///< as by the close box
    frmMain& window() { return *m_window; }

    /// Shows a folder by a selection in the tree and waits until it is listed.
    void listFolder(const QString& folder);
    void selectAllOf(const char* list);
    /// Adds every picture of the listed folder to the basket.
    void addAll();

    /// Lets the window work until the condition holds; false after some seconds.
    static bool waitFor(const std::function<bool()>& condition);

    QtDesktop desktop;
    DialogScript script;

private:
    QTemporaryDir m_home;
    DesktopScope m_scope{desktop};
    std::unique_ptr<frmMain> m_window;
};

} // namespace tarsel::test
