// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/WorkQueue.h"

#include <QFileSystemModel>
#include <QHash>

namespace tarsel {

/// The folders of the file system. Whether a folder holds others is found out on a thread, when a view first
/// asks; until then it counts as one that does.
class FolderModel final : public QFileSystemModel {
    Q_OBJECT
public:
    explicit FolderModel(QObject* parent = nullptr);
    ~FolderModel() override; ///< waits for the folder in work

    bool hasChildren(const QModelIndex& parent = {}) const override;
    void lookAgain(const QModelIndex& folder); ///< it may hold folders by now

Q_SIGNALS:
    void foldersFound(); ///< hasChildren has other answers

private:
    void look(const QString& path) const;
    void take(const QString& path, bool holdsFolders);

    mutable QHash<QString, bool> m_holdsFolders; ///< by path, true while it is not known
    mutable WorkQueue m_looking{1};
};

} // namespace tarsel
