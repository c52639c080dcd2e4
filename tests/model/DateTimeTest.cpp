#include "Support.h"

#include <Pegasus/Common/CIMDateTime.h>

#include <gtest/gtest.h>

#include <vector>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

CIMDateTime at(const char* text) {
    return CIMDateTime(String(text));
}

constexpr const char* zeroInterval = "00000000000000.000000:000";

TEST(CIMDateTime, RoundTripsTexts) {
    for (const char* same :
         {zeroInterval, "99999999235959.999999:000", "19700101000000.000000+000",
          "20240229235959.123456-480", "00000101000000.000000+000", "99991231235959.999999+999",
          "20001231120000.123***+060", "20001231120000.******+060", "200012311200**.******+060",
          "2000123112****.******+060", "20001231******.******+060", "200012********.******+060",
          "2000**********.******-060", "**************.******+000", "00000001020304.1*****:000",
          "00000001******.******:000", "**************.******:000"}) {
        EXPECT_EQ(text(at(same).toString()), same);
    }
    EXPECT_EQ(text(at("20000101000000.000000-000").toString()), "20000101000000.000000+000");
    EXPECT_EQ(text(CIMDateTime().toString()), zeroInterval);
    EXPECT_TRUE(at(zeroInterval).isInterval());
    EXPECT_FALSE(at("20000101000000.000000-000").isInterval());
}

TEST(CIMDateTime, RefusesOtherShapes) {
    for (const char* bad :
         {"", "20000101000000.000000+00", "20000101000000.000000+0000", "20000101000000,000000+000",
          "20000101000000.000000 000", "2000010100000a.000000+000", "00000000000000.000000:001",
          "20000101000000.000000+0*0", "2000**01000000.000000+000", "20000101000000.***000+000",
          "20000101000***.******+000", "**************.000000+000", "200001010000**.000000+000",
          "0000****020304.000000:000", "20000101000000.000000+00x"}) {
        EXPECT_EQ(thrownBy<InvalidDateTimeFormatException>([&] { at(bad); }),
                  "invalid datetime format")
            << bad;
    }
    CIMDateTime value = at("20000101000000.000000+000");
    EXPECT_NE(thrownBy<InvalidDateTimeFormatException>([&] { value.set("x"); }), "no exception");
    EXPECT_EQ(text(value.toString()), zeroInterval);
}

TEST(CIMDateTime, RefusesImpossibleValues) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"00000000000000.000000+000", "illegal month number"},
        {"20001301000000.000000+000", "illegal month number"},
        {"20000100000000.000000+000", "illegal day number"},
        {"20010229000000.000000+000", "illegal day number"},
        {"19000229000000.000000+000", "illegal day number"},
        {"20000431000000.000000+000", "illegal day number"},
        {"20000101240000.000000+000", "illegal hours number "},
        {"20000101006000.000000+000", "illegal minutes number "},
        {"00000000000060.000000:000", "illegal seconds number "}};
    for (const auto& [bad, reason] : cases) {
        EXPECT_EQ(thrownBy<DateTimeOutOfRangeException>([&, value = bad] { at(value); }),
                  std::string("DateTime is out of range : ") + reason);
    }
}

TEST(CIMDateTime, CountsMicrosecondsInUtc) {
    const Uint64 unixEpoch = 62167219200000000;
    EXPECT_EQ(at("19700101000000.000000+000").toMicroSeconds(), unixEpoch);
    EXPECT_EQ(at("19700101010000.000001+060").toMicroSeconds(), unixEpoch + 1);
    EXPECT_EQ(at("19691231230000.000000-060").toMicroSeconds(), unixEpoch);
    EXPECT_EQ(at("00000001000000.000001:000").toMicroSeconds(), 86400000001u);
    EXPECT_EQ(text(CIMDateTime(unixEpoch, false).toString()), "19700101000000.000000+000");
    EXPECT_EQ(text(CIMDateTime(86400000001, true).toString()), "00000001000000.000001:000");

    const Uint64 endOfYears = 315569520000000000;
    const Uint64 endOfDays = 8640000000000000000;
    EXPECT_EQ(text(CIMDateTime(endOfYears - 1, false).toString()), "99991231235959.999999+000");
    EXPECT_EQ(text(CIMDateTime(endOfDays - 1, true).toString()), "99999999235959.999999:000");
    EXPECT_NE(thrownBy<DateTimeOutOfRangeException>([&] { CIMDateTime(endOfYears, false); }),
              "no exception");
    EXPECT_NE(thrownBy<DateTimeOutOfRangeException>([&] { CIMDateTime(endOfDays, true); }),
              "no exception");
}

TEST(CIMDateTime, AgreesWithTheCalendarOnEveryDay) {
    Uint64 microseconds = 0;
    for (const char* first : {"00000101000000.000000+000", "18991201000000.000000+000",
                              "19991201000000.000000+000", "23991201000000.000000+000"}) {
        microseconds = at(first).toMicroSeconds();
        for (int day = 0; day < 500; ++day, microseconds += 86400000000) {
            const CIMDateTime value(microseconds, false);
            ASSERT_EQ(CIMDateTime(value.toString()).toMicroSeconds(), microseconds)
                << value.toString();
        }
    }
}

TEST(CIMDateTime, ComparesInUtcAndLetsStarsMatch) {
    struct Case {
        const char *x, *y;
        int order;
    };
    const std::vector<Case> cases = {{"20000101120000.000000+000", "20000101130000.000000+060", 0},
                                     {"20000101120000.000000+000", "20000101120000.000000+060", 1},
                                     {"20000101120000.000000+000", "20000101120000.000001+000", -1},
                                     {"20000101120000.******+000", "20000101120000.999999+000", 0},
                                     {"2000010112****.******+060", "20000101113000.000000+000", 0},
                                     {"200001********.******+000", "20000131235959.000000+000", 0},
                                     {"00000001000000.000000:000", "00000002000000.000000:000", -1},
                                     {"00000001******.******:000", "00000001235959.000000:000", 0}};
    for (const auto& [x, y, order] : cases) {
        EXPECT_EQ(at(x) == at(y), order == 0) << x << ' ' << y;
        EXPECT_EQ(at(x) != at(y), order != 0) << x << ' ' << y;
        EXPECT_EQ(at(x) < at(y), order < 0) << x << ' ' << y;
        EXPECT_EQ(at(x) <= at(y), order <= 0) << x << ' ' << y;
        EXPECT_EQ(at(x) > at(y), order > 0) << x << ' ' << y;
        EXPECT_EQ(at(x) >= at(y), order >= 0) << x << ' ' << y;
    }
    EXPECT_EQ(thrownBy<TypeMismatchException>(
                  [] { return at(zeroInterval) == at("20000101000000.000000+000"); }),
              "type mismatch: Trying to compare CIMDateTime objects of differing types");
}

TEST(CIMDateTime, Calculates) {
    const CIMDateTime start = at("20000228230000.000000+060");
    const CIMDateTime twoHours = at("00000000020000.000000:000");
    const CIMDateTime finish = start + twoHours;
    EXPECT_EQ(text(finish.toString()), "20000229010000.000000+060");
    EXPECT_EQ(text((finish - start).toString()), "00000000020000.000000:000");
    EXPECT_EQ(CIMDateTime::getDifference(start, finish), 7200000000);
    EXPECT_EQ(CIMDateTime::getDifference(finish, start), -7200000000);
    CIMDateTime moved = finish;
    moved -= twoHours;
    moved += at(zeroInterval);
    EXPECT_EQ(text(moved.toString()), text(start.toString()));

    EXPECT_NE(thrownBy<DateTimeOutOfRangeException>([&] { start - finish; }), "no exception");
    EXPECT_NE(thrownBy<DateTimeOutOfRangeException>([&] { at(zeroInterval) - twoHours; }),
              "no exception");
    EXPECT_NE(thrownBy<TypeMismatchException>([&] { start + finish; }), "no exception");
    EXPECT_NE(thrownBy<TypeMismatchException>([&] { twoHours - start; }), "no exception");
    EXPECT_NE(thrownBy<InvalidDateTimeFormatException>(
                  [&] { CIMDateTime::getDifference(start, twoHours); }),
              "no exception");
}

TEST(CIMDateTime, MultipliesAndDividesIntervals) {
    CIMDateTime interval = at("00000000020000.000000:000");
    interval *= 36;
    EXPECT_EQ(text(interval.toString()), "00000003000000.000000:000");
    EXPECT_EQ(interval / at("00000000070000.000000:000"), 10u);
    interval /= 7;
    EXPECT_EQ(text(interval.toString()), "00000000101708.571428:000");
    const CIMDateTime zero, time = at("20000101000000.000000+000");
    EXPECT_EQ(thrownBy<Exception>([&] { interval / 0; }), "Can not divide CIMDateTime by zero");
    EXPECT_EQ(thrownBy<Exception>([&] { interval / zero; }), "Can not divide CIMDateTime by zero");
    EXPECT_NE(thrownBy<TypeMismatchException>([&] { time * 2; }), "no exception");
    EXPECT_NE(thrownBy<TypeMismatchException>([&] { time / interval; }), "no exception");
}

TEST(CIMDateTime, KnowsTheTime) {
    const CIMDateTime before = CIMDateTime::getCurrentDateTime();
    const CIMDateTime after = CIMDateTime::getCurrentDateTime();
    EXPECT_LE(before.toMicroSeconds(), after.toMicroSeconds());
    EXPECT_FALSE(before.isInterval());
    EXPECT_TRUE(at("20240101000000.000000+000") < before);
}

}  // namespace
