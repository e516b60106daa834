// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QObject>
#include <QString>

namespace tarsel {

/// The texts of the status line, by panel key: "filename", "pages", "resolution", "queue", "metadata",
/// "folder", "status". The window shows them; loops write them.
class StatusLine : public QObject {
    Q_OBJECT
public:
    void setPanel(const QString& key, const QString& text);
    QString panel(const QString& key) const { return m_panels.value(key); }

Q_SIGNALS:
    void panelChanged(const QString& key, const QString& text);

private:
    QHash<QString, QString> m_panels;
};

} // namespace tarsel
