// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "output/BatchSave.h"
#include "tasks/TaskList.h"
#include "tests/support/Boxes.h"
#include "tests/support/RecordedProgress.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"

#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <initializer_list>
#include <string>

namespace tarsel::test {

/// A smooth picture, different for each seed: one that JPEG keeps recognisable.
Picture shadedPicture(int width, int height, int seed = 0);

/// A basket of small pictures in a folder of its own, and a run over it.
class TestBasket {
public:
    TestBasket();

    QString path(const char* name) const { return m_folder.filePath(text(name)); }
    QString folder() const { return m_folder.path() + QLatin1Char('/'); }
    /// Makes a JPEG picture (by its extension) and a row for it, named without its extension.
    QString addPicture(const char* name, int width = 24, int height = 16,
                       const std::function<void(ImageBox&)>& edit = {});
    void addPictures(std::initializer_list<const char*> names);
    /// A row for a file of this name, which may be missing.
    void addRow(const char* name, const char* rowText);
    void addRow(const QString& path, const QString& rowText);
    QString writeFile(const char* name, const QByteArray& bytes) const;
    void addTask(const char* kind, const char* key, std::initializer_list<const char*> columns);
    void halveSizes() { addTask("3", "resize", {"False", "50"}); }
    /// Names of parts, in the destination folder.
    void nameByParts(const char* prefix, const char* suffix = "[No Prefix]");
    void importExif(const char* name, const QByteArray& records);

    /// Runs the batch; returns its result.
    bool run();
    // Of the last run, one word a row, blanks between them.
    std::string states() const;
    std::string targets() const; ///< file names alone
    QStringList reasons() const;
    /// Routine and error of each report, in lines.
    QString errors() const;
    /// Names of the files in the folder, hidden ones too, in their order, blanks between them.
    std::string files(const char* subFolder = "") const;
    /// Of the picture in a file of this folder.
    int width(const char* name) const;

    TestDesktop desktop;
    ListView pages;
    TaskList tasks;
    ImageBox box;
    RecordedProgress progress;
    settings::BatchSave settings;
    BatchRun slice;
    std::vector<RowResult> results;

private:
    QTemporaryDir m_folder;
};

} // namespace tarsel::test
