#include "sample/books.h"

#include "sample/moments.h"

#include <algorithm>

namespace qbrpt::sample {

Shift& Day::ShiftAt(int second) {
    return shifts[second < ShiftChange ? 0 : 1];
}

void Day::Count(const Session& session) {
    Shift& shift = ShiftAt(session.begin);
    ++shift.sessions;
    shift.useMinutes += session.useMinutes;
    (session.member ? shift.memberMinutes : shift.localMinutes) += session.useMinutes;
    shift.pages += session.pages;
    shift.print += session.PrintCost();
    shift.main += session.TimeCost() + session.orders;
    shift.discount += session.discount;
    ++uses[static_cast<std::size_t>(session.kind)];
    firstBegin = std::min(firstBegin.value_or(session.begin), session.begin);
    lastBegin = std::max(lastBegin.value_or(session.begin), session.begin);
}

long long Day::Sum(long long Shift::*figure) const {
    return shifts[0].*figure + shifts[1].*figure;
}

long long Day::Total() const {
    return Sum(&Shift::main) + Sum(&Shift::print) + Sum(&Shift::members) + Sum(&Shift::prepaid) +
           Sum(&Shift::other) - Sum(&Shift::discount);
}

Sheets::Sheets(Writer& writer)
    : mDays(writer, "host_log_time", 2), mSheets(writer, "daily_sheet", 13),
      mCounts(writer, "total_use_count", 6), mShifts(writer, "supervisor_day", 12) {}

void Sheets::Add(const Day& day) {
    const auto moment = [&day](std::optional<int> second) -> std::optional<double> {
        if (!second) return std::nullopt;
        return At(day.date, *second);
    };
    const auto sum = [&day](long long Shift::*figure) { return Money(day.Sum(figure)); };
    const auto count = [&day](std::size_t kind) { return static_cast<double>(day.uses[kind]); };
    const auto number = [](auto value) { return static_cast<double>(value); };

    mDays.Add(day.work, number(day.date));
    mSheets.Add(day.work, number(day.date), number(day.shifts[0].minutes + day.shifts[1].minutes),
                moment(day.firstBegin), moment(day.lastBegin), sum(&Shift::main), sum(&Shift::print),
                sum(&Shift::members), sum(&Shift::prepaid), sum(&Shift::other), sum(&Shift::discount),
                Money(day.Total()), number(day.hostsUsed));
    mCounts.Add(day.work, number(day.Sum(&Shift::pages)), count(1), count(0), count(2),
                number(day.Sum(&Shift::useMinutes)));
    for (const Shift& shift : day.shifts)
        if (shift.sessions > 0)
            mShifts.Add(day.work, shift.user, number(shift.minutes), number(shift.useMinutes),
                        number(shift.localMinutes), number(shift.memberMinutes), Money(shift.print),
                        Money(shift.main), Money(shift.discount), Money(shift.members), Money(shift.other),
                        Money(shift.prepaid));
}

} // namespace qbrpt::sample
