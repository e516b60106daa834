// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QTimer>
#include <QWidget>

class QLayout;

namespace tarsel {

class ActionTable;
class FocusSlider;
class FolderView;
class ListControl;

/// The list of the pictures in the chosen folder, with its buttons and its menu. The folder
/// view learns here which rows are in view.
class FolderPane final : public QWidget {
    Q_OBJECT
public:
    FolderPane(FolderView& view, ListView& lvFolder, const ActionTable& actions, QWidget* parent = nullptr);

    ListControl& lvFolder() const { return *m_list; }
    void setForm(int folderView); ///< 0 thumbnails, else details
    /// Selects and shows a picture of the listed folder, as soon as it has a row. A complete listing without
    /// it is reported.
    void selectFile(const QString& path);

Q_SIGNALS:
    void thumbnailSizeChosen(QSize size);    ///< by the user, who has come to rest
    void fileMissing(const QString& reason); ///< a file that was to be selected is not listed
    void cmdAddToQueue();
    void formChosen(int folderView);                 ///< by the user: 0 thumbnails, 3 details
    void rowChosen(tarsel::ListView& list, int row); ///< to be shown; -1 for none

private:
    QLayout* makeBar();
    void connectList();
    void connectActions();
    void connectSize();
    void cmdThumbnailFolder();
    void cmdDetailFolder();
    void chooseRow();
    void showForm();
    void showHint();
    void showThumbnailSize();
    void resizeThumbnails(int side);
    void zoom(int angle);
    void takeThumbnailSize();
    void selectWantedFile();

    FolderView& m_view;
    const ActionTable& m_actions;
    ListControl* m_list;
    FocusSlider* m_size;
    QSize m_proportions; ///< of thumbnails, which the slider keeps
    QTimer m_rest;       ///< runs while the size is being changed
    int m_wheelAngle = 0;
    QString m_wantedFile; ///< waits for its row
};

} // namespace tarsel
