// The figures of one day, which the day's sheets are written from.
#pragma once

#include "sample/writer.h"

#include <array>
#include <optional>

namespace qbrpt::sample {

/// One use of a host. Times are seconds from the midnight of the day, money is in cents.
struct Session {
    int host = 0;
    int begin = 0;
    std::optional<int> end;
    int useMinutes = 0;
    int idleMinutes = 0;
    std::optional<int> member;
    std::optional<int> subscription;
    int kind = 0; ///< 0 general, 1 prepaid card, 2 subscriber
    long long minuteCost = 0;
    int pages = 0;
    long long pageCost = 0;
    long long orders = 0;
    long long discount = 0;

    [[nodiscard]] long long TimeCost() const { return minuteCost * useMinutes; }
    [[nodiscard]] long long PrintCost() const { return pageCost * pages; }
    [[nodiscard]] long long Paid() const { return TimeCost() + PrintCost() + orders - discount; }
};

/// One supervisor's part of a day.
struct Shift {
    int user = 0;
    int minutes = 0;
    int sessions = 0; ///< finished ones, as all sums below
    long long useMinutes = 0;
    long long localMinutes = 0;
    long long memberMinutes = 0;
    long long pages = 0;
    long long print = 0;
    long long main = 0; ///< time and orders
    long long discount = 0;
    long long members = 0; ///< payments of subscribers
    long long other = 0;   ///< income from outside
    long long prepaid = 0; ///< cards sold
};

struct Day {
    int work = 0; ///< work identifier
    int date = 0; ///< day number
    std::array<Shift, 2> shifts;
    std::array<int, 3> uses{}; ///< finished sessions by kind
    int hostsUsed = 0;
    std::optional<int> firstBegin;
    std::optional<int> lastBegin;

    [[nodiscard]] Shift& ShiftAt(int second);
    /// Counts a finished session in.
    void Count(const Session& session);
    [[nodiscard]] long long Sum(long long Shift::*figure) const;
    /// All that came in.
    [[nodiscard]] long long Total() const;
};

/// Writes the sheets of a day.
class Sheets {
public:
    explicit Sheets(Writer& writer);
    void Add(const Day& day);

private:
    Inserter mDays;
    Inserter mSheets;
    Inserter mCounts;
    Inserter mShifts;
};

} // namespace qbrpt::sample
