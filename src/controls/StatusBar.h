// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StatusLine.h"

#include <QHash>
#include <QSet>
#include <QStatusBar>
#include <vector>

class QLabel;

namespace tarsel {

/// One panel of a status line, as the window's table of panels states it.
struct StatusPanel {
    const char* key;
    QString initialText;
    QString toolTip;
    const char* icon;    ///< name of a line icon; empty for none
    int stretch;         ///< share of the room
    bool yields = false; ///< its text is cut where there is little room; the others keep theirs
    Qt::TextElideMode elide = Qt::ElideRight;
};

/// Shows the panels of a StatusLine, side by side in the order of the table.
class StatusBar final : public QStatusBar {
    Q_OBJECT
public:
    StatusBar(StatusLine& line, const std::vector<StatusPanel>& panels, QWidget* parent = nullptr);

    /// What a panel shows.
    QString text(const QString& key) const;
    /// Long texts don't keep the window wide.
    QSize minimumSizeHint() const override { return {0, QStatusBar::minimumSizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void addPanel(const StatusPanel& panel);
    void showPanel(const QString& key, const QString& text);

    /// Keeps short texts from being cut in favour of a long one.
    void shareRoom();

    QHash<QString, QLabel*> m_labels;
    QSet<QLabel*> m_yielding;
};

} // namespace tarsel
