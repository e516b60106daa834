// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace tarsel::test {

/// A CUPS server of its own in a temporary folder, with one printer, which keeps the PDF document that comes
/// out of the filters of CUPS. The printer has A4 paper and can't reach 10 mm on each side.
class PrintServer {
public:
    static inline const QString printer = QStringLiteral("TarselTest");

    ~PrintServer();
    /// The server is that of this process then. False where CUPS is missing or can't run.
    bool start();
    void removePrinter() const { runAdmin({QStringLiteral("-x"), printer}); }
    static int jobCount(); ///< of all that it ever had
    void pause() const;    ///< it answers nothing from here on
    void resume() const;
    bool hasPrinted() const { return QFileInfo::exists(printed()); }
    QString printed() const { return path("printed.pdf"); }

private:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    void makeFolder() const;
    static bool runAdmin(const QStringList& arguments);

    QTemporaryDir m_folder;
    QProcess m_server;
};

} // namespace tarsel::test
