// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

class QAbstractItemModel;
class QLineEdit;

namespace tarsel {

class ActionTable;
class FileQuestion;
struct TypedPath;

/// Buttons for the folders that every user has, and a field for the path of any other.
class PlacesBar final : public QWidget {
    Q_OBJECT
public:
    /// `folders` is a QFileSystemModel, from which typed paths are completed; `question` outlives the bar.
    PlacesBar(QAbstractItemModel* folders, FileQuestion& question, const ActionTable& actions,
              QWidget* parent);

    void showFolder(const QString& folder); ///< as the one that is listed

Q_SIGNALS:
    void folderChosen(const QString& folder);
    void fileChosen(const QString& path);    ///< after its folder
    void pathRefused(const QString& reason); ///< empty once another path was accepted

private:
    void connectPlace(const char* action, const std::function<QString()>& place);
    void goTo(const QString& text);
    void follow(const TypedPath& typed);

    const ActionTable& m_actions;
    QLineEdit* m_path;
    QString m_folder;
    FileQuestion& m_question;
    bool m_isRefused = false;
};

} // namespace tarsel
