// The filter of a command on work identifiers, and the dates that its title names.
#pragma once

#include "base/ref.h"
#include "platform/DAO.h"
#include "support/error_trap.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qbrpt {

/// The three shapes of a period: all days, one day, from one day to another.
enum class PeriodForm : std::uint8_t { All, Single, Range };

/// What makes a bound count as given.
enum class Given : std::uint8_t { NotZero, Positive };

/// A range for two given bounds that differ; a single day, the first, for a given first bound; else all.
[[nodiscard]] PeriodForm FormOfPeriod(std::int32_t d1, std::int32_t d2, Given given = Given::NotZero);

/// The words of one command's filter, to the last blank: `head` " BETWEEN " d1 " AND " d2 `tail`, or
/// `head` " = " d1 `tail`.
struct ClauseWords {
    std::string_view head;
    std::string_view tail;
};

/// Empty for PeriodForm::All. Bounds go in as given, not sorted.
[[nodiscard]] std::string PeriodClause(const ClauseWords& words, PeriodForm form, std::int32_t d1,
                                       std::int32_t d2);

/// Whole date numbers, the nearest day of each bound.
struct PeriodDates {
    std::int32_t from = 0;
    std::int32_t to = 0;
};

/// Looks up the dates of two work identifiers, each look-up a statement of the caller's `trap`. The second
/// date is the first where `d2` is 0 or the same day.
[[nodiscard]] PeriodDates FetchPeriodDates(ErrorTrap& trap, const Ref<DAO::Database>& db, std::int32_t d1,
                                           std::int32_t d2);

/// The period of `dates` as a title names it: in Arabic, without times of day.
[[nodiscard]] std::string PeriodWords(const PeriodDates& dates);

} // namespace qbrpt
