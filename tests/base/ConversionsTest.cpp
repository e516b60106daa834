// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "base/Locale.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/Text.h"

#include <QLocale>
#include <cmath>

using namespace tarsel;
using test::errorNumberOf;
using test::text;

TEST(Conversions, NumbersAreReadInEveryWritingThatUsersAndFilesHave) {
    const std::pair<const char*, double> cases[] = {
        {"0", 0},     {" 42 ", 42},  {"+7", 7},    {"-7", -7},       {".5", .5},
        {"5.", 5},    {"1e3", 1e3},  {"007", 7},   {"2.5E-1", 0.25}, {"-1.5e+2", -150},
        {"&H0F", 15}, {"&hff", 255}, {"1e-999", 0}};
    for (const auto& [written, value] : cases) {
        EXPECT_EQ(toDouble(text(written)), value) << written;
        EXPECT_TRUE(isNumeric(text(written))) << written;
    }
    for (const char* written : {"", " ", "abc", "12px", "1,5", "--1", "+-1", "-", ".", "e5", "inf", "nan",
                                "&H", "&HG", "1 2", "\xD9\xA3", "0x10", "True"}) {
        EXPECT_EQ(errorNumberOf([&] { toDouble(text(written)); }), ErrorNumber::TypeMismatch) << written;
        EXPECT_FALSE(isNumeric(text(written))) << written;
    }
}

TEST(Conversions, HalvesGoToTheEvenNeighbourAndWhatIsBeyondTheTypeOverflows) {
    EXPECT_EQ(roundToInt(0.5), 0);
    EXPECT_EQ(roundToInt(1.5), 2);
    EXPECT_EQ(roundToInt(-1.5), -2);
    EXPECT_EQ(toInt16(text("12.5")), 12);
    EXPECT_EQ(toByte(text("255.49")), 255);
    EXPECT_EQ(toInt16(text("32767.4")), 32767);
    EXPECT_EQ(toInt16(text("-32768")), -32768);
    EXPECT_EQ(toInt32(text("-2147483648")), std::numeric_limits<qint32>::min());
    void (*const overflows[])() = {[] { toInt16(text("32768")); },  [] { toInt16(text("32767.5")); },
                                   [] { toInt32(text("1e300")); },  [] { toByte(text("-1")); },
                                   [] { toDouble(text("1e999")); }, [] { roundToInt(std::nan("")); }};
    for (const auto overflow : overflows)
        EXPECT_EQ(errorNumberOf(overflow), ErrorNumber::Overflow) << &overflow - overflows;
}

TEST(Conversions, FlagsTravelAsTrueAndFalse) {
    for (const bool value : {true, false})
        EXPECT_EQ(toBool(fromBool(value)), value);
    EXPECT_TRUE(toBool(text("TRUE")) && toBool(text("-1")));
    EXPECT_FALSE(toBool(text(" 0 ")));
    for (const char* written : {"yes", ""})
        EXPECT_EQ(errorNumberOf([&] { toBool(text(written)); }), ErrorNumber::TypeMismatch) << written;
}

TEST(Conversions, TheNumberAtTheStartOfATextIsFoundWithoutFailing) {
    const std::pair<const char*, double> cases[] = {
        {"640 X 480", 640}, {" 1 234,5", 1234}, {"12.5mm", 12.5}, {"", 0},
        {"mm", 0},          {"-3-4", -3},       {"1e999", 0},     {"&HFFxyz", 255}};
    for (const auto& [written, value] : cases)
        EXPECT_EQ(leadingNumber(text(written)), value) << written;
}

TEST(Conversions, NumbersAreFormattedAwayFromZeroAtTies) {
    // 2.675 as written, although the nearest double is below
    const std::tuple<double, const char*, const char*> cases[] = {{0.5, "0", "1"},
                                                                  {2.5, "0", "3"},
                                                                  {-2.5, "0", "-3"},
                                                                  {0.0005, "0", "0"},
                                                                  {0.125, "0.00", "0.13"},
                                                                  {2.675, "0.00", "2.68"},
                                                                  {9.995, "0.00", "10.00"},
                                                                  {0.004, "0.00", "0.00"},
                                                                  {-0.004, "0.00", "0.00"},
                                                                  {1234567, "#,##0", "1,234,567"},
                                                                  {999.5, "#,##0", "1,000"},
                                                                  {999, "#,##0", "999"},
                                                                  {0, "#,##0", "0"},
                                                                  {-1234.4, "#,##0", "-1,234"},
                                                                  {0.04, "0.0", "0.0"},
                                                                  {0.05, "0.0", "0.1"},
                                                                  {1e20, "0", "100000000000000000000"}};
    for (const auto& [value, pattern, expected] : cases)
        EXPECT_EQ(formatNumber(value, text(pattern)).toStdString(), expected) << value << ' ' << pattern;
}

TEST(Conversions, DoublesAreWrittenWithFifteenDigitsAndReadBack) {
    EXPECT_EQ(numberText(0.1 + 0.2), text("0.3"));
    EXPECT_EQ(numberText(100), text("100"));
    EXPECT_EQ(numberText(-0.0), text("0"));
    EXPECT_EQ(numberText(1.0 / 3), text("0.333333333333333"));
    for (const double value : {0.0, 1.5, -2.25, 1e-7, 123456789012345.0, 1e20})
        EXPECT_EQ(toDouble(numberText(value)), value);
}

TEST(Conversions, DatesFollowTheirPatterns) {
    const QDateTime afternoon(QDate(2004, 3, 7), QTime(15, 5, 9));
    const QDateTime midnight(QDate(2024, 12, 31), QTime(0, 0, 0));
    const QDateTime noon(QDate(999, 1, 2), QTime(12, 30, 1));
    const std::tuple<QDateTime, const char*, const char*> cases[] = {
        {afternoon, "m.d.yyyy", "3.7.2004"},
        {afternoon, "m.d.yyyy h.mm.ss AM/PM", "3.7.2004 3.05.09 PM"},
        {afternoon, "m/d/yyyy h:mm:ss AM/PM", "3/7/2004 3:05:09 PM"},
        {afternoon, "h:mm:ss AM/PM", "3:05:09 PM"},
        {afternoon, "hh:mm:ss", "15:05:09"},
        {afternoon, "mm:ss", "05:09"},
        {afternoon, "mm/dd", "03/07"},
        {midnight, "m/d/yyyy h:mm:ss AM/PM", "12/31/2024 12:00:00 AM"},
        {noon, "m/d/yyyy h:mm:ss AM/PM", "1/2/0999 12:30:01 PM"},
        {QDateTime(), "m/d/yyyy", "12/30/1899"}};
    for (const auto& [date, pattern, expected] : cases)
        EXPECT_EQ(formatDate(date, text(pattern)).toStdString(), expected) << pattern;
    EXPECT_EQ(shortDateText(afternoon, {text("d.M.yyyy"), {}}), text("7.3.2004"));
    EXPECT_EQ(shortDateText(QDateTime(), {text("M/d/yyyy"), {}}), text("12/30/1899"));
}

TEST(Conversions, EveryFormattedDateIsReadBack) {
    for (const QDate day : {QDate(2004, 3, 7), QDate(1899, 12, 30), QDate(2024, 2, 29), QDate(1999, 12, 31)})
        for (const QTime time :
             {QTime(0, 0), QTime(0, 59, 59), QTime(11, 59), QTime(12, 0), QTime(23, 5, 9)}) {
            const QDateTime date(day, time);
            const auto readBack = [&](const char* pattern) {
                return toDate(formatDate(date, text(pattern)));
            };
            for (const char* pattern : {"m.d.yyyy h.mm.ss AM/PM", "m/d/yyyy h:mm:ss AM/PM"})
                EXPECT_EQ(readBack(pattern), date) << qPrintable(formatDate(date, text(pattern)));
            for (const char* pattern : {"m.d.yyyy", "m/d/yyyy"})
                EXPECT_EQ(readBack(pattern).date(), day) << pattern;
            EXPECT_EQ(readBack("h:mm:ss AM/PM"), QDateTime(emptyDate().date(), time));
            EXPECT_EQ(toDate(date.toString(Qt::ISODate)), date);
        }
}

TEST(Conversions, AShortDateMayHoldBlanksAndWhatIsNotADateFails) {
    const DateForms forms{text("yyyy. MM. dd."), text("H:mm:ss")};
    EXPECT_EQ(toDate(text("2004. 03. 07."), forms).date(), QDate(2004, 3, 7));
    EXPECT_EQ(toDate(text("2004. 03. 07. 15:05:09"), forms), QDateTime(QDate(2004, 3, 7), QTime(15, 5, 9)));
    for (const char* written :
         {"", "yesterday", "2/30/2004", "13/13/2004", "3/7/2004 25:00:00", "7", "2004:03:07"})
        EXPECT_EQ(errorNumberOf([&] { toDate(text(written)); }), ErrorNumber::TypeMismatch) << written;
}

TEST(Conversions, TheUsersDatesGetFourDigitYearsAndNoTimeZone) {
    const std::tuple<QLocale, const char*, const char*> cases[] = {
        {QLocale::c(), "M/d/yyyy", "h:mm:ss AP"}, {QLocale(QLocale::German), "dd.MM.yyyy", "HH:mm:ss"}};
    for (const auto& [locale, date, time] : cases) {
        EXPECT_EQ(dateFormsOf(locale).shortDate.toStdString(), date);
        EXPECT_EQ(dateFormsOf(locale).longTime.toStdString(), time);
    }
}
