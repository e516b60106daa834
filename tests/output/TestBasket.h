// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "imaging/ImageBox.h"
#include "output/BatchSave.h"
#include "tasks/TaskList.h"
#include "tests/support/TestDesktop.h"

#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <initializer_list>
#include <string>

namespace tarsel::test {

/// A smooth picture, different for each seed: one that JPEG keeps recognisable.
Picture shadedPicture(int width, int height, int seed = 0);

/// A bar that remembers what it showed.
class RecordingProgress final : public Progress {
public:
    int maximum = 0;
    std::vector<int> values;
    bool visible = false;

    void start(int newMaximum, int value) override {
        maximum = newMaximum;
        visible = true;
        values.push_back(value);
    }
    void setValue(int value) override { values.push_back(value); }
    void hide() override { visible = false; }
};

/// A basket of small pictures in a folder of its own, and a run over it.
class TestBasket {
public:
    TestBasket();

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString folder() const { return m_folder.path() + QLatin1Char('/'); }
    /// Makes a JPEG picture (by its extension) and a row for it, named without its extension.
    QString addPicture(const QString& name, int width = 24, int height = 16,
                       const std::function<void(ImageBox&)>& edit = {});
    void addRow(const QString& path, const QString& text);
    void addTask(const QString& kind, const QString& key, std::initializer_list<const char*> columns);

    /// Runs the batch; gives what it returned.
    bool run();
    // Of the last run, one word a row, blanks between them.
    std::string states() const;
    std::string targets() const; ///< file names alone
    QStringList reasons() const;
    /// Names of the files in the folder, hidden ones too, in their order, blanks between them.
    std::string files(const QString& subFolder = {}) const;

    TestDesktop desktop;
    ListView pages;
    TaskList tasks;
    ImageBox box;
    RecordingProgress progress;
    BatchSave settings;
    BatchRun slice;
    std::vector<RowResult> results;

private:
    QTemporaryDir m_folder;
};

/// The picture in a file.
ImageBox loaded(const QString& path);

} // namespace tarsel::test
