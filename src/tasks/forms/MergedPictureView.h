// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/NewestWork.h"
#include "controls/ValueControl.h"
#include "imaging/fncLoadPicture.h"

#include <QLabel>
#include <optional>

namespace tarsel {

/// A small view of the picture of a file, from which a colour can be picked. Its value is the file's path.
/// The picture is read on a thread of its own.
class MergedPictureView final : public QLabel, public ValueControl {
    Q_OBJECT
public:
    explicit MergedPictureView(QWidget* parent = nullptr);

    QVariant value() const override { return m_path; }
    void setValue(const QVariant& path) override;
    void choose(const QString& path); ///< by the user: also a file shown already is read and signalled again
    void onChange(const std::function<void()>& changed) override;
    void setPicking(bool picking);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void pathChanged();
    void shown(const QString& size); ///< "640 x 480"; empty when no picture is shown
    void colorPicked(int color);
    void pickEnded();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct Request {
        QString path;
        Size box;
    };

    void showFile(const QString& path);
    void requestPicture();
    void read(const Request& request, const std::stop_token& stop);
    void take(const QString& path, const Picture& picture, Size sourceSize);

    QString m_path;
    QImage m_drawn; ///< what the label shows
    bool m_isPicking = false;
    std::optional<NewestWork<Request>> m_work; // last, so that it ends first
};

} // namespace tarsel
