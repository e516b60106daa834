// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/Program.h"

#include "tests/support/TestPictures.h"

#include <QDir>
#include <QJsonDocument>
#include <QProcess>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarsel::test {

namespace {
QString program() {
    return QStringLiteral(TARSEL_PROGRAM);
}
} // namespace

QStringList ProgramRun::lines() const {
    return QString::fromUtf8(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QList<QJsonObject> ProgramRun::objects() const {
    QList<QJsonObject> objects;
    for (const QString& line : lines())
        objects << QJsonDocument::fromJson(line.toUtf8()).object();
    return objects;
}

namespace {

ProgramRun runProcess(const QString& executable, const QStringList& arguments, const QString& folder,
                      const std::function<void()>& beforeStart = {}) {
    QProcess process;
    QProcessEnvironment environment;
    environment.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    environment.insert(QStringLiteral("TARSEL"), program());
    const QTemporaryDir temporary;
    environment.insert(QStringLiteral("TMPDIR"), temporary.path());
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.setChildProcessModifier(beforeStart);
    process.start(executable, arguments);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(100'000)) << "the program hangs";
    EXPECT_TRUE(QDir(temporary.path()).isEmpty()) << "temporary files are left";
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -process.exitCode(),
            process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

ProgramRun runProgram(const QStringList& arguments, const QString& folder,
                      const std::function<void()>& beforeStart) {
    return runProcess(program(), arguments, folder, beforeStart);
}

ProgramRun runShell(const char* line, const QString& folder) {
    return runProcess(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QString::fromUtf8(line)}, folder);
}

pid_t startProgram(const QStringList& arguments, const QString& folder, int output) {
    QList<QByteArray> words{program().toLocal8Bit()};
    for (const QString& argument : arguments)
        words << argument.toLocal8Bit();
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const QByteArray place = folder.toLocal8Bit();
    const QByteArray outputFile = place + "/output";
    const pid_t child = ::fork();
    if (child == 0) {
        const int file = ::open(outputFile.constData(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        ::dup2(output < 0 ? file : output, STDOUT_FILENO);
        ::dup2(file, STDERR_FILENO);
        if (::chdir(place.constData()) == 0)
            ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    return child;
}

int endOf(pid_t process) {
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

void makePicture(const QString& path, int width, int height, const QString& artist) {
    ImageBox box = boxWith(pictureOf(width, height, 3, [](int x, int y) {
        return Rgb{std::uint8_t(x * 3 + y * 5), std::uint8_t(x * 4 + y * 5), std::uint8_t(x * 5 + y * 5)};
    }));
    if (!artist.isEmpty()) {
        EXPECT_TRUE(box.ExifSet(QStringLiteral("Artist"), artist));
    }
    box.SaveToFile(path);
}

PictureFolder::PictureFolder() {
    makePicture(path("a.jpg"), 24);
    makePicture(path("b.jpg"), 26);
    makePicture(path("c.jpg"), 28);
}

std::string PictureFolder::files(const char* subFolder) const {
    return QDir(path(subFolder))
        .entryList(QDir::Files | QDir::Hidden, QDir::Name)
        .join(QLatin1Char(' '))
        .toStdString();
}

QStringList commandLine(const char* words) {
    return QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace tarsel::test
