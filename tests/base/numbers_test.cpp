#include "base/decimal.h"
#include "base/failure.h"
#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <random>

namespace qbrpt {
namespace {

TEST(RoundToLong, TakesHalvesToTheEvenNeighbour) {
    const std::pair<double, std::int32_t> rows[] = {{0.5, 0},
                                                    {1.5, 2},
                                                    {2.5, 2},
                                                    {-0.5, 0},
                                                    {-1.5, -2},
                                                    {-2.5, -2},
                                                    {2.4999, 2},
                                                    {2.5001, 3},
                                                    {37780.5, 37780},
                                                    {37781.5, 37782},
                                                    {0, 0},
                                                    {2147483647.4, 2147483647},
                                                    {-2147483648.5, -2147483648}};
    for (const auto& [value, rounded] : rows) {
        SCOPED_TRACE(value);
        EXPECT_EQ(RoundToLong(value), rounded);
    }
}

TEST(RoundToLong, DoesNotHangOnTheHostsRoundingMode) {
    std::fesetround(FE_UPWARD);
    const std::int32_t rounded = RoundToLong(2.25);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(rounded, 2);
}

TEST(RoundToLong, OverflowsOutsideOf32Bits) {
    for (const double value : {2147483647.5, -2147483649.0, 1e300, -1e300, std::nan(""),
                               std::numeric_limits<double>::infinity()}) {
        SCOPED_TRACE(value);
        try {
            (void)RoundToLong(value);
            ADD_FAILURE() << "no failure";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::Overflow);
        }
    }
}

TEST(CheckedNumbers, OverflowAtTheirEnds) {
    EXPECT_EQ(CheckedLong(2147483647), 2147483647);
    EXPECT_EQ(CheckedLong(-2147483648LL), std::numeric_limits<std::int32_t>::min());
    EXPECT_THROW((void)CheckedLong(2147483648LL), Failure);
    EXPECT_THROW((void)CheckedLong(-2147483649LL), Failure);
    EXPECT_EQ(CheckedShort(32767), 32767);
    EXPECT_EQ(CheckedShort(-32768), -32768);
    EXPECT_THROW((void)CheckedShort(32768), Failure);
    EXPECT_THROW((void)CheckedShort(-32769), Failure);
}

TEST(DecimalText, HasUpToFifteenDigitsAndAPoint) {
    const std::pair<double, const char*> rows[] = {{0, "0"},
                                                   {-0.0, "0"},
                                                   {5, "5"},
                                                   {-5.25, "-5.25"},
                                                   {37787.416666666664, "37787.4166666667"},
                                                   {0.1 + 0.2, "0.3"},
                                                   {1.0 / 3, "0.333333333333333"},
                                                   {1500, "1500"},
                                                   {123456789012.0, "123456789012"},
                                                   {0.0001, "0.0001"}};
    for (const auto& [value, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(DecimalText(value), text);
    }
    EXPECT_EQ(DecimalText(std::int32_t{-2147483647} - 1), "-2147483648");
}

TEST(RoundTripText, ReadsBackAsTheSameNumber) {
    const std::pair<double, const char*> rows[] = {{0, "0"},
                                                   {0.1, "0.1"},
                                                   {37787.416666666664, "37787.416666666664"},
                                                   {1234567890, "1234567890"},
                                                   {1e20, "1e+20"},
                                                   {1e-9, "1e-09"}};
    for (const auto& [value, text] : rows)
        EXPECT_EQ(RoundTripText(value), text);
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    for (int i = 0; i < 10'000; ++i) {
        const double value =
            std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 200) - 130);
        EXPECT_EQ(std::strtod(RoundTripText(value).c_str(), nullptr), value);
    }
}

TEST(Decimal, RoundsOnTheWrittenDigits) {
    struct Row {
        double value;
        int places;
        double away;
        double even;
    };
    const Row rows[] = {{0.125, 2, 0.13, 0.12},  {0.135, 2, 0.14, 0.14}, {1.005, 2, 1.01, 1.0},
                        {2.5, 0, 3, 2},          {-2.5, 0, -3, -2},      {0.5, 0, 1, 0},
                        {1.5, 0, 2, 2},          {0.05, 0, 0, 0},        {1250, -2, 1300, 1200},
                        {99.95, 1, 100, 100},    {0, 2, 0, 0},           {49, -2, 0, 0},
                        {0.2500001, 1, 0.3, 0.3}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.value);
        Decimal away = DecimalOf(row.value);
        away.Round(row.places);
        EXPECT_EQ(away.Number(), row.away);
        Decimal even = DecimalOf(row.value);
        even.RoundToEven(row.places);
        EXPECT_EQ(even.Number(), row.even);
    }
}

} // namespace
} // namespace qbrpt
