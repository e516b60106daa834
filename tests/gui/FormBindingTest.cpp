// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FormBinding.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

struct Settings {
    qint32 angle = -170;
    double scale = 0.25;
    quint8 mode = 2;
    auto operator<=>(const Settings&) const = default;
};

constexpr FormField<Settings> fields[] = {
    {"angle", &Settings::angle},
    {"scale", &Settings::scale, StoreMoment::BeforeChecks},
    {"mode", &Settings::mode, StoreMoment::OnChange},
};

} // namespace

/// The kinds of controls and fields that the save dialog doesn't have; each is stored at its own moment.
TEST(FormBindings, StoreEachFieldAtItsMoment) {
    QWidget form;
    const auto named = [&](auto* control, const char* name) {
        control->setObjectName(QLatin1String(name));
        return control;
    };
    auto* angle = named(new QSpinBox(&form), "angle");
    auto* scale = named(new QDoubleSpinBox(&form), "scale");
    auto* mode = named(new QComboBox(&form), "mode");
    angle->setRange(-180, 180);
    mode->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    Settings record;
    FormBinding<Settings> binding(form, record, fields);
    EXPECT_EQ(binding.shown(), record);
    angle->setValue(45);
    scale->setValue(1.5);
    mode->setCurrentIndex(1);
    EXPECT_EQ(record, (Settings{-170, 0.25, 1}));
    binding.store(StoreMoment::BeforeChecks);
    EXPECT_EQ(record, (Settings{-170, 1.5, 1}));
    binding.store(StoreMoment::AfterChecks);
    EXPECT_EQ(record, (Settings{45, 1.5, 1}));
}

} // namespace tarsel::test
