#include "service/period_clause.h"

#include "base/numbers.h"
#include "service/report_run.h"
#include "support/period_text.h"

namespace qbrpt {

PeriodForm FormOfPeriod(std::int32_t d1, std::int32_t d2, Given given) {
    const auto isGiven = [given](std::int32_t bound) {
        return given == Given::Positive ? bound > 0 : bound != 0;
    };
    if (isGiven(d1) && isGiven(d2) && d1 != d2) return PeriodForm::Range;
    return isGiven(d1) ? PeriodForm::Single : PeriodForm::All;
}

std::string PeriodClause(const ClauseWords& words, PeriodForm form, std::int32_t d1, std::int32_t d2) {
    if (form == PeriodForm::All) return {};
    std::string clause(words.head);
    if (form == PeriodForm::Range)
        clause += " BETWEEN " + DecimalText(d1) + " AND " + DecimalText(d2);
    else
        clause += " = " + DecimalText(d1);
    return clause.append(words.tail);
}

PeriodDates FetchPeriodDates(ErrorTrap& trap, const Ref<DAO::Database>& db, std::int32_t d1,
                             std::int32_t d2) {
    PeriodDates dates;
    trap.Step([&] { dates.from = RoundToLong(GetWorkDate(db, d1)); });
    if (d2 != 0 && d2 != d1)
        trap.Step([&] { dates.to = RoundToLong(GetWorkDate(db, d2)); });
    else
        dates.to = dates.from;
    return dates;
}

std::string PeriodWords(const PeriodDates& dates) {
    return GetPeriodText(dates.from, dates.to, true, false);
}

} // namespace qbrpt
