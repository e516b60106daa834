// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "base/Service.h"

class QLocale;

namespace tarsel {

/// How the user writes dates and times.
class Locale {
public:
    virtual ~Locale() = default;
    virtual DateForms dateForms() = 0;
};

/// The short date with a four-digit year, the long time without its time zone.
DateForms dateFormsOf(const QLocale& locale);

/// The locale of the user's system.
class SystemLocale final : public Locale {
public:
    DateForms dateForms() override;
};

/// The same on every system: month, day and year.
class PlainLocale final : public Locale {
public:
    DateForms dateForms() override;
};

} // namespace tarsel
