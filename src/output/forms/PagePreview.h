// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/PrintPages.h"

#include <QWidget>
#include <vector>

namespace tarsel {

/// A page as it will be printed, drawn by the code that prints it.
class PagePreview final : public QWidget {
    Q_OBJECT
public:
    explicit PagePreview(QWidget* parent = nullptr);

    struct Page {
        Paper paper;
        PrintLayout layout;
        std::vector<PrintPicture> pictures; ///< in the order of their places; null ones are left out
    };
    void show(Page page);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Page m_page;
};

} // namespace tarsel
