// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "help/Manual.h"

#include <QDialog>
#include <memory>
#include <vector>

namespace tarsel {

namespace Ui {
class frmManual;
}

/// The window of the manual: contents and search on the left, the page on the right. It stays usable while a
/// modal dialog of the program is open.
class frmManual final : public QDialog {
    Q_OBJECT
public:
    explicit frmManual(Manual manual, QWidget* owner = nullptr);
    ~frmManual() override;
    frmManual(const frmManual&) = delete;
    frmManual& operator=(const frmManual&) = delete;

    /// "page" or "page#anchor"; the start page for an unknown one.
    void showPlace(const QString& place);
    QString place() const; ///< of what is on show

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A page that was visited, and how far it was scrolled when it was left.
    struct Visit {
        QString page, anchor;
        int scrolled = -1; ///< -1: the anchor says where
    };

    void fillContents();
    void connectParts();
    void addKeys();
    void follow(const QUrl& link);
    void visit(const Visit& visit);
    void step(int by);
    void display(const Visit& visit);
    void selectInContents(const QString& page);
    void search(const QString& words);
    void openFirstFound();
    void standAboveModalWindow();

    Manual m_manual;
    std::unique_ptr<Ui::frmManual> m_ui;
    std::vector<Visit> m_visits;
    size_t m_current = 0; ///< of m_visits
};

} // namespace tarsel
