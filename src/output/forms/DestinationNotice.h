// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QWidget>

class QLabel;
class QPushButton;

namespace tarsel {

/// Where the files of a batch go; a folder that is missing or read-only is reported here before the run, a
/// missing one with a button that creates it.
class DestinationNotice final : public QWidget {
    Q_OBJECT
public:
    explicit DestinationNotice(QWidget* parent = nullptr);

    void show(const QStringList& folders);
    /// False while a folder is missing or can't be written to.
    bool isUsable() const { return m_usable; }

Q_SIGNALS:
    void usableChanged(bool usable);
    void folderCreated();

private:
    void showProblem();
    void createFolders();
    void setUsable(bool usable);

    QLabel* m_destination;
    QLabel* m_problem;
    QPushButton* m_create;
    QStringList m_folders;
    bool m_usable = true;
};

} // namespace tarsel
