// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "base/StatusLine.h"
#include "collections/PreviewWorker.h"
#include "imaging/ImageBox.h"
#include "tasks/EditedPicture.h"
#include "tasks/TaskList.h"

#include <QElapsedTimer>
#include <QObject>

namespace tarsel {

enum class MetadataTab { Exif = 0, Iptc = 1 };

/// The one owner of the preview's box: loads the picture of a list's row into ibMain, applies the task basket
/// to it, and fills the metadata lists and the status panels. Loading and tasks run in the background; of
/// requests that follow each other the newest wins, and what comes back for another one is dropped.
class Preview final : public QObject, public EditedPicture {
    Q_OBJECT
public:
    struct Lists {
        /// Two panels describe its selected row, whatever list the picture is from; without one, the picture.
        ListView& lvFolder;
        ListView& lvPages;
        ListView& lvExif;
        ListView& lvIPTC;
        TaskList& tasks;
        ImageBox& ibMain;
        StatusLine& sbMain;
    };

    explicit Preview(Lists lists);

    bool OptimizedPreview = false; ///< pictures are shown with the tasks applied
    Size view{1920, 1080};         ///< pixels of the screen that the picture is shown on
    bool upright = false;          ///< pictures are turned by their EXIF orientation, from the next load on
    QuickPictureReader readStored; ///< finds what stands in for a picture that is slow to read

    /// Shows row `row` of either list; a row that is shown already, or about to be, is left alone. A file
    /// that can't be read leaves the box empty and the panels unchanged.
    void ShowRow(ListView& list, int row);
    /// The same for the picture of a row that the program has added: the two panels describe that picture.
    void showAdded(ListView& list, int row);
    /// Shows a new picture, as it is, whose file `path` is still being written. A row of that file is loaded
    /// by reload().
    void showNew(const Picture& picture, const QString& path);
    /// Shows the picture again as OptimizedPreview says.
    void rebuild();
    /// Loads the picture of the row shown last again, after a change of how pictures are prepared.
    void reload();
    /// Shows no picture, unless the one on show is that of the selected row of either list.
    void dropUnselected();
    /// Whether the lists of metadata say something of the picture on show.
    bool listsMetadata() const { return !m_lists.lvIPTC.isEmpty(); }
    /// Says in the status line which metadata the picture on show has.
    void showMetadataPanel();
    /// Whether the status line has the size of the picture on show instead of the file's.
    void describeEdited(bool edited);
    /// As loaded, without the tasks.
    const Picture& original() const { return m_original; }
    /// Drops what is being loaded.
    void stop();
    /// What is to be seen now. While a large picture is being read, the box is still empty.
    const PreviewPicture& shown() const { return m_shown; }
    /// Path of the picture shown last; empty before the first one.
    const QString& shownPath() const { return m_shownPath; }
    /// Path of the picture that is to be shown, whether it can be loaded or not.
    const QString& wantedPath() const { return m_wantedPath; }

    // --- EditedPicture
    ImageBox& box() override { return m_lists.ibMain; }
    bool isBusy() const override { return m_pending.has_value(); }
    bool showsTasks() const override { return OptimizedPreview; }
    void showOriginal() override { showSnapshot(m_original); }
    /// Whatever OptimizedPreview says.
    void showTasks(bool editing) override;
    void showSnapshot(const Picture& snapshot) override;
    void showPreview(const Picture& start, const TaskRow& row, PreviewReason reason) override;

Q_SIGNALS:
    void loadingBegun(const QString& path);
    void replaced();           ///< by the picture of another file, or by none
    void settled(bool failed); ///< what was done to the picture on show is done
    void pictureChanged();
    void metadataRead(tarsel::MetadataTab tab);
    void metadataAbsent(); ///< the format of the picture on show has none that are listed

private:
    struct Pending {
        quint64 number;
        QString path; ///< empty when something is done to the picture on show
        bool isPreview = false;
        bool isQuiet = false; ///< neither the pointer nor a message says how it goes
    };

    void show(bool withTasks, bool editing = false);
    void load(const QString& path, bool withTasks);
    PreviewWorker::Request requestFor(const Picture& start) const;
    void addTasks(PreviewWorker::Request& request, bool editing) const;
    void send(PreviewWorker::Request request);
    void follow(PreviewWorker::Request request);
    void apply(PreviewWorker::Result result);
    void takeResult(PreviewWorker::Result result);
    void takePicture(PreviewWorker::Result& result);
    void describe(const QString& path);
    void completeResolution(ListView& list, const QString& path) const;
    void listMetadata(const QString& path);
    const QString& describedPath() const;
    void showFilePanels();
    void showFailure(const QString& text);
    void showResolution();
    void clear();
    void drop(); ///< the same without a signal

    Lists m_lists;
    Picture m_original;
    PreviewPicture m_shown;
    QString m_shownPath;
    QString m_wantedPath;     ///< of the row shown last, whether its picture could be loaded or not
    QString m_fileResolution; ///< as the panel shows it while nobody edits
    bool m_describesEdited = false;
    QString
        m_describedPath; ///< of the row of lvFolder that two panels describe; empty for the picture on show
    QString m_nextDescribedPath;
    QString m_failureText; ///< of the status line, when the last load failed
    quint64 m_lastNumber = 0;
    std::optional<Pending> m_pending;
    std::optional<PreviewWorker::Request> m_followUp; ///< waits for a preview that has become old
    QElapsedTimer m_standstill;                       ///< while options change and nothing new is seen
    PreviewWorker m_worker;
};

} // namespace tarsel
