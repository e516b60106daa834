// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Boxes.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <sys/types.h>

namespace tarsel::test {

/// What one run of the real program gave.
struct ProgramRun {
    int status = -1; ///< exit status; minus the signal's number for a killed one
    QByteArray output;
    QByteArray messages;

    QStringList lines() const; ///< of the output
    QList<QJsonObject>
    objects() const; ///< one for each line of the output; an empty one for a line that is not an object
};

/// Runs the real program in a folder, without a display and with nothing of the environment but PATH.
ProgramRun runProgram(const QStringList& arguments, const QString& folder,
                      const std::function<void()>& beforeStart = {}); ///< runs in the new process

/// Runs a line of the shell in a folder, where "$TARSEL" is the program: for arguments that are not UTF-8, or
/// a folder that goes away.
ProgramRun runShell(const char* line, const QString& folder);

/// Starts it and returns its process id. Results and messages go to the file "output" in the folder, results
/// to the descriptor `output` when there is one.
pid_t startProgram(const QStringList& arguments, const QString& folder, int output = -1);

/// Waits for its end: exit status, or minus the signal's number.
int endOf(pid_t process);

/// Writes a small JPEG picture.
void makePicture(const QString& path, int width = 24, int height = 16, const QString& artist = {});

/// Words of a command line, parted by blanks.
QStringList commandLine(const char* words);

/// A folder with pictures a.jpg, b.jpg, c.jpg of 24 x 16, 26 x 16 and 28 x 16.
class PictureFolder {
public:
    PictureFolder();
    QString path(const QString& name = {}) const { return m_folder.filePath(name); }
    QString path(const char* name) const { return path(QString::fromUtf8(name)); }
    /// Names of all files, hidden ones too, in their order, blanks between them.
    std::string files(const char* subFolder = "") const;
    ImageBox loaded(const char* name) const { return test::loaded(path(name)); }
    ProgramRun run(const QStringList& arguments, const std::function<void()>& beforeStart = {}) const {
        return runProgram(arguments, m_folder.path(), beforeStart);
    }
    ProgramRun run(const char* words) const { return run(commandLine(words)); }

private:
    QTemporaryDir m_folder;
};

} // namespace tarsel::test
