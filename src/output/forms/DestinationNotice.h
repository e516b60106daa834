// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QPushButton;

namespace tarsel {

/// Where the files of a batch go. What the user should know of these folders before the run is reported here:
/// that they hold the sources too, or that one is read-only or missing, with a button that creates it.
class DestinationNotice final : public QWidget {
    Q_OBJECT
public:
    explicit DestinationNotice(QWidget* parent = nullptr);

    /// The folders that the files go to and those of their sources.
    void show(const QStringList& folders, const QStringList& sourceFolders = {});
    /// False while a folder is missing or can't be written to.
    bool isUsable() const { return m_usable; }

Q_SIGNALS:
    void usableChanged(bool usable);
    void folderCreated();

private:
    void showSharedFolders(const QStringList& sourceFolders);
    void showProblem();
    void createFolders();
    void setUsable(bool usable);

    QLabel* m_destination;
    QLabel* m_holdsSources;
    QLabel* m_problem;
    QPushButton* m_create;
    QStringList m_folders;
    bool m_usable = true;
};

} // namespace tarsel
