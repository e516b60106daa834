// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QFont>

namespace tarsel::test {

/// The program's font in another size, until the end of the scope.
class FontSize {
public:
    explicit FontSize(int points) {
        QFont font = m_usual;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~FontSize() { QApplication::setFont(m_usual); }
    FontSize(const FontSize&) = delete;
    FontSize& operator=(const FontSize&) = delete;

private:
    const QFont m_usual = QApplication::font();
};

} // namespace tarsel::test
