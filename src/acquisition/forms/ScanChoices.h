// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScanOption.h"

#include <QMetaType>
#include <vector>

class QComboBox;

Q_DECLARE_METATYPE(tarsel::ScanValue)

namespace tarsel {

/// What a list offers for an option: its choices, or usual resolutions within its range. The present value is
/// always among them.
std::vector<ScanValue> offeredChoices(const ScanOption& option);

/// The usual modes and sources in words of ours; others as the driver has them. Numbers with their unit.
QString choiceText(const ScanOption& option, const ScanValue& choice);

/// The list, with the present value chosen. Each entry's data is its ScanValue. Left as it is while it would
/// be the same, so that an open list stays.
void fillChoices(QComboBox& list, const ScanOption& option);

/// 0 for what isn't a number.
double numberOf(const ScanValue& value);
/// In the type of the option.
ScanValue numberFor(const ScanOption& option, double number);

} // namespace tarsel
