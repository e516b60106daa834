// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/PrintServer.h"

#include "base/SafeFileWriter.h"

#include <QDir>
#include <QTest>
#include <csignal>
#include <cups/cups.h>

namespace tarsel::test {

namespace {

/// Files of the server's folder, for which "@" stands.
constexpr const char* files[][2] = {
    {"cupsd.conf", "Listen @/cups.sock\nDefaultAuthType None\n<Location />\nAllow all\n</Location>\n"
                   "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n"},
    {"cups-files.conf", "ServerRoot @/root\nServerBin @/bin\nRequestRoot @/spool\nTempDir @/spool/tmp\n"
                        "CacheDir @/cache\nStateDir @/state\nErrorLog @/log\nAccessLog @/access\n"
                        "PageLog @/pages\n"},
    // Under its final name the document is complete.
    {"bin/backend/keep",
     "#!/bin/sh\n[ $# -eq 0 ] || { cat ${6:+\"$6\"} >@/part && mv @/part @/printed.pdf; }\n"},
    {"paper.ppd", R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*Manufacturer: "Test"
*ModelName: "Paper"
*NickName: "Paper"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*ColorDevice: True
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*CloseUI: *PageSize
*DefaultImageableArea: A4
*ImageableArea A4/A4: "28.35 28.35 566.93 813.54"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595.28 841.89"
)PPD"}};

} // namespace

PrintServer::~PrintServer() {
    resume();
    m_server.terminate();
    m_server.waitForFinished();
}

void PrintServer::makeFolder() const {
    for (const char* folder : {"root", "bin/backend", "spool/tmp", "cache", "state"})
        QDir().mkpath(path(folder));
    for (const char* programs : {"filter", "daemon", "notifier"})
        QFile::link(QStringLiteral("/usr/lib/cups/") + QLatin1String(programs),
                    path("bin/") + QLatin1String(programs));
    for (const auto& [name, text] : files)
        writeFileSafely(path(name), QByteArray(text).replace('@', m_folder.path().toUtf8()));
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QFile::setPermissions(path("bin/backend/keep"), own);
    QFile::setPermissions(m_folder.path(), own | QFile::ExeOther); // filters run as another user
}

bool PrintServer::start() {
    if (!QFileInfo::exists(QStringLiteral("/usr/lib/cups/filter/pdftopdf")))
        return false;
    makeFolder();
    m_server.start(QStringLiteral("/usr/sbin/cupsd"),
                   {QStringLiteral("-f"), QStringLiteral("-c"), path("cupsd.conf"), QStringLiteral("-s"),
                    path("cups-files.conf")});
    const QString socket = path("cups.sock");
    if (!m_server.waitForStarted() || !QTest::qWaitFor([&] { return QFileInfo::exists(socket); }))
        return false;
    qputenv("CUPS_SERVER", socket.toUtf8()); // for threads to come
    cupsSetServer(socket.toUtf8().constData());
    return runAdmin({QStringLiteral("-p"), printer, QStringLiteral("-E"), QStringLiteral("-v"),
                     QStringLiteral("keep:/"), QStringLiteral("-P"), path("paper.ppd")});
}

int PrintServer::jobCount() {
    cups_job_t* jobs = nullptr;
    const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, qPrintable(printer), 0, CUPS_WHICHJOBS_ALL);
    cupsFreeJobs(std::max(count, 0), jobs);
    return count;
}

void PrintServer::pause() const {
    ::kill(pid_t(m_server.processId()), SIGSTOP);
}

void PrintServer::resume() const {
    ::kill(pid_t(m_server.processId()), SIGCONT);
}

bool PrintServer::runAdmin(const QStringList& arguments) {
    return QProcess::execute(QStringLiteral("/usr/sbin/lpadmin"), arguments) == 0;
}

} // namespace tarsel::test
