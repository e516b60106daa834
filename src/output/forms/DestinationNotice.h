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

Q_SIGNALS:
    void folderCreated();

private:
    void showProblem();
    void createFolders();

    QLabel* m_destination;
    QLabel* m_problem;
    QPushButton* m_create;
    QStringList m_folders;
};

} // namespace tarsel
