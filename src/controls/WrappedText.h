// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

namespace tarsel {

/// Text to read and copy, on the window's own colour. Unlike a label it also breaks a path that is wider than
/// the window; it is as high as its lines, and scrolls where they are more than some.
class WrappedText final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit WrappedText(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitHeight();
    int lineHeight() const;

    int m_lines = 1;
};

} // namespace tarsel
