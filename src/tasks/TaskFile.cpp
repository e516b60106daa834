// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskFile.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/SaveFileDialog.h"
#include "base/clsFile.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel::modSaveOpenImageList {

namespace {

// A record of the file: kind, key, p1 to p17.
QStringList fieldsOf(const TaskRow& row) {
    return QStringList{row.kind, row.key} + QStringList(row.columns.begin(), row.columns.end());
}

TaskRow rowOf(const QStringList& fields) {
    TaskRow row{fields.at(0), fields.at(1), {}};
    std::copy(fields.begin() + 2, fields.end(), row.columns.begin());
    return row;
}

void readRecords(clsFile& file, TaskList& tasks, bool genericIcons, int& record) {
    for (; !file.fEof(); ++record) {
        const TaskRow row = rowOf(file.read_EditingList());
        tasks.appendAsRead(row, genericIcons ? QStringLiteral("generic") : row.key);
    }
}

void writeTaskBasket(const QString& path, const TaskList& tasks) {
    clsFile file;
    if (!file.OpenForWrite(path))
        throw *file.openError();
    for (int index = 0; index < tasks.count(); ++index)
        file.write_EditingList(fieldsOf(tasks.row(index)));
    file.closefile();
}

/// The first task with a double quote, from 1, or 0. The format has no escape for one.
int taskWithQuote(const TaskList& tasks) {
    for (int index = 0; index < tasks.count(); ++index)
        if (fieldsOf(tasks.row(index)).join(QString()).contains(QLatin1Char('"')))
            return index + 1;
    return 0;
}

/// `message`: English, in the context "TaskFile".
bool showUnlessDone(bool done, const char* message) {
    if (!done)
        service<Dialogs>().messageBox(QCoreApplication::translate("TaskFile", message),
                                      MessageIcon::Information, MessageButtons::Ok, ApplicationName);
    return done;
}

} // namespace

bool isTaskFile(const QString& path) {
    return path.endsWith(taskFileExtension, Qt::CaseInsensitive);
}

void readTaskBasket(const QString& path, TaskList& tasks, bool genericIcons) {
    tasks.clear();
    clsFile file;
    if (!file.OpenForRead(path))
        throw *file.openError();
    int record = 1;
    try {
        readRecords(file, tasks, genericIcons, record);
    } catch (TrappedError& error) {
        error.description = QCoreApplication::translate("TaskFile", "%1, record %2: %3")
                                .arg(path, QString::number(record), error.description);
        throw;
    }
}

bool fncSaveTaskBasket(const QString& path, TaskList& tasks) {
    const QString target = withExtension(path, taskFileExtension);
    const bool done = tasks.count() > 0 && !trap("modSaveOpenImageList.fncSaveTaskBasket",
                                                 [&] { writeTaskBasket(target, tasks); });
    if (const int number = done ? taskWithQuote(tasks) : 0)
        service<Dialogs>().messageBox(
            QCoreApplication::translate(
                "TaskFile", "Task %1 has a double quote, which a task basket file can't keep: when "
                            "it is opened, the text ends there.\nPlease use other quotes, and save "
                            "the file again.")
                .arg(number),
            MessageIcon::Exclamation, MessageButtons::Ok, ApplicationName);
    else if (done)
        tasks.markSaved();
    return showUnlessDone(done,
                          QT_TRANSLATE_NOOP("TaskFile", "Error saving editing list!\nPlease try again!"));
}

bool fncOpenTaskBasket(const QString& path, TaskList& tasks, bool genericIcons) {
    const bool done =
        !trap("modSaveOpenImageList.fncOpenTaskBasket", [&] { readTaskBasket(path, tasks, genericIcons); });
    tasks.markSaved(); // of a failed read the user has changed nothing either
    return showUnlessDone(done, QT_TRANSLATE_NOOP("TaskFile", "Error opening editing list!\n"
                                                              "Please select a valid image list file."));
}

} // namespace tarsel::modSaveOpenImageList
