// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"
#include "imaging/ImageBox.h"

#include <QObject>
#include <QRectF>

class QComboBox;
class QLabel;

namespace tarsel {

class ImageBoxView;

/// The part of the bed that is scanned: a paper of the list, or a rectangle that the user drags on the
/// preview scan. The scanner's own area is what counts; this shows it and asks for another one.
class ScanAreaChoice final : public QObject {
    Q_OBJECT
public:
    ScanAreaChoice(QComboBox& papers, QLabel& text, QWidget& parent);

    ImageBoxView& view() const { return *m_view; }
    void show(const ScanOptions& options); ///< empty ones where no scanner is open
    /// Of the whole bed; null for none.
    void showPreview(const Picture& picture);
    bool hasPreview() const { return m_box.HasImage(); }

Q_SIGNALS:
    void changed(const std::vector<tarsel::ScanSetting>& settings);

private:
    void listPapers();
    void choosePaper(int index);
    void takeBand();
    void showNothing();
    void showArea();
    void showBand();
    void wantArea(const QRectF& area);
    QRectF onBed(const QRectF& band) const;
    static QString sizeText(const QSizeF& size); ///< of millimeters

    QComboBox& m_papers;
    QLabel& m_text;
    ImageBox m_box;
    ImageBoxView* m_view;
    ScanOptions m_options;
    QRectF m_bed;  ///< millimeters
    QRectF m_area; ///< of the bed
    bool m_isShowing = false;
};

} // namespace tarsel
