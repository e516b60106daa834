// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"

#include <QObject>

class QComboBox;

namespace tarsel {

/// The options that people change, on the controls of a form that are named after them: the lists cboSource,
/// cboMode and cboResolution, and spnBrightness and spnContrast with their sliders. A row is hidden with its
/// label where the scanner lacks its option.
class ScanControls final : public QObject {
    Q_OBJECT
public:
    explicit ScanControls(QWidget& form);

    void show(const ScanOptions& options);

Q_SIGNALS:
    void changed(const std::vector<tarsel::ScanSetting>& settings);

private:
    void connectList(const char* name);
    void connectNumber(const char* name);
    void showList(const char* name, const ScanOption* option);
    void showNumber(const char* name, const ScanOption* option);
    void showRow(const char* name, const ScanOption* option, std::initializer_list<const char*> prefixes);
    void reportChoice(const char* name, const ScanValue& value);
    void reportNumber(const char* name, double value);

    QWidget& m_form;
    ScanOptions m_options;
    bool m_isShowing = false;
};

} // namespace tarsel
