// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "imaging/ImageBox.h"
#include "tasks/TaskList.h"

#include <QObject>

namespace tarsel {

enum class MetadataTab { Exif = 0, Iptc = 1 };

/// Loads the picture of a list's row into ibMain, applies the task basket to it when the preview is an
/// optimised one, and fills the metadata lists and the status panels.
class Preview final : public QObject {
    Q_OBJECT
public:
    struct Lists {
        const ListView& lvFolder; ///< two panels describe its selected row, whatever list the picture is from
        ListView& lvExif;
        ListView& lvIPTC;
        TaskList& tasks;
        ImageBox& ibMain;
        StatusLine& sbMain;
    };

    explicit Preview(Lists lists);

    bool OptimizedPreview = false;

    /// Shows row `row` of either list; a row that is on show already is left alone.
    void ShowRow(ListView& list, int row);
    /// Loads a file into the box. False, with the box empty and the panels unchanged, when it can't be read.
    /// Trapped as "FrmMain.fncReadFile".
    bool fncReadFile(const QString& path);
    /// Brings the picture up to date after a change of the task basket or of the preview's type.
    void rebuild();
    /// Loads the picture on show once more, after a change of how pictures are prepared.
    void reload();
    /// Path of the picture on show; empty before the first one.
    const QString& shownPath() const { return m_shownPath; }

Q_SIGNALS:
    void pictureChanged();
    void metadataRead(tarsel::MetadataTab tab);

private:
    bool load(const QString& path);
    void runTasks(const QString& path);
    void completeResolution(ListView& list, int row) const;
    void listMetadata(const QString& path);
    void showPanels();

    Lists m_lists;
    Picture m_original; ///< as loaded, without the tasks
    QString m_shownPath;
};

} // namespace tarsel
