// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPersistentModelIndex>
#include <QTimer>
#include <QTreeView>
#include <memory>

class QAbstractFileIconProvider;

namespace tarsel {

class FolderModel;

/// The tree of the file system's folders.
class FolderTree final : public QTreeView {
    Q_OBJECT
public:
    explicit FolderTree(QWidget* parent = nullptr);
    ~FolderTree() override;
    FolderTree(const FolderTree&) = delete;
    FolderTree& operator=(const FolderTree&) = delete;

    /// Selects a folder that exists and answers. Emits folderSelected as a click does, also for the folder
    /// that is selected already.
    void selectFolder(const QString& folder);
    QString selectedFolder() const; ///< empty while none is selected

Q_SIGNALS:
    void folderSelected(const QString& path);

protected:
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showNamesOnly();
    void keepSelectionInView();
    void keepNamesComplete();
    void choose(const QModelIndex& folder);
    void chooseAgain(const QModelIndex& clicked);
    void selectHiddenFolder(const QString& folder);
    void centreCurrentFolder();
    void fitColumn();

    FolderModel* m_model;
    std::unique_ptr<QAbstractFileIconProvider> m_icons;
    QString m_selected;
    QPersistentModelIndex m_currentAtPress; ///< when the mouse button went down; invalid after its click
    QTimer m_settle{this};
    QTimer m_fit{this};
    bool m_following = false; ///< the selection is kept in view until the user scrolls or clicks
};

} // namespace tarsel
