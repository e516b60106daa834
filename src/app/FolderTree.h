#pragma once

#include <QTreeView>
#include <memory>

class QAbstractFileIconProvider;
class QFileSystemModel;

namespace tarsel {

/// The tree of the file system's folders.
class FolderTree final : public QTreeView {
    Q_OBJECT
public:
    explicit FolderTree(QWidget* parent = nullptr);
    ~FolderTree() override;

    /// Selects a folder, or the nearest one above it that exists. Tells folderSelected as a click does.
    void selectFolder(const QString& path);
    QString selectedFolder() const; ///< empty while none is selected

Q_SIGNALS:
    void folderSelected(const QString& path);

private:
    void bringToView();

    QFileSystemModel* m_model;
    std::unique_ptr<QAbstractFileIconProvider> m_icons;
};

} // namespace tarsel
