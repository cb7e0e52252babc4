#include "sample/sample.h"

#include "adapters/database/cancel.h"
#include "base/failure.h"
#include "sample/customers.h"
#include "sample/ledgers.h"
#include "sample/moments.h"
#include "sample/place.h"
#include "sample/schema.h"
#include "sample/sessions.h"

#include <algorithm>

namespace qbrpt::sample {

namespace {

constexpr int FirstDate = 45658; ///< 1 January 2025
constexpr int MostDays = 36500;
constexpr int MostSessions = 100000;
constexpr int FormerSupervisor = SupervisorCount + 1; ///< deleted from the list of supervisors

void Check(const SampleOptions& options) {
    if (options.days < 1 || options.days > MostDays)
        throw Failure(FailureNumber::InvalidArgument,
                      "The number of days must lie between 1 and " + std::to_string(MostDays) + ".");
    if (options.sessionsPerDay < 0 || options.sessionsPerDay > MostSessions)
        throw Failure(FailureNumber::InvalidArgument, "The number of sessions a day must lie between 0 and " +
                                                          std::to_string(MostSessions) + ".");
}

// Staff come a while before the doors open and leave when all is tidied up.
Day OpenDay(int index, Random& random) {
    constexpr int formerEvery = 9;
    Day day;
    day.work = index + 1;
    day.date = FirstDate + index;
    day.shifts[0].user = index % SupervisorCount + 1;
    day.shifts[1].user = index % formerEvery == 4 ? FormerSupervisor : (index + 2) % SupervisorCount + 1;
    day.shifts[0].minutes = (ShiftChange - Opening) / SecondsPerMinute + random.Between(0, 25);
    day.shifts[1].minutes = (Closing - ShiftChange) / SecondsPerMinute + random.Between(5, 40);
    return day;
}

void Fill(Writer& writer, const SampleOptions& options) {
    constexpr double shareOfIndexes = 0.2;
    const auto tell = [&options](double share) {
        if (options.progress) options.progress(share);
    };
    for (const std::string_view statement : TableStatements())
        writer.Run(statement);
    Inserter queries(writer, "saved_query", 2);
    for (const SavedQueryText& query : SavedQueries())
        queries.Add(query.name, query.sql);

    Random random(options.seed);
    Customers customers(writer, random, options.sessionsPerDay, FirstDate);
    Sessions sessions(writer, random, options.sessionsPerDay);
    Ledgers ledgers(writer, random);
    Sheets sheets(writer);
    int extra = 0;
    const int tellEvery = std::max(1, options.days / 100);
    for (int i = 0; i < options.days; ++i) {
        database::StopIfCancelled();
        Day day = OpenDay(i, random);
        // A slack day follows a busy one, so that the whole is what was asked for.
        constexpr int mostExtra = 6; // an n-th of the day's sessions
        const int bound = options.sessionsPerDay / mostExtra;
        const bool last = i + 1 == options.days;
        extra = i % 2 == 1 ? -extra : last ? 0 : random.Between(-bound, bound);
        sessions.Add(day, options.sessionsPerDay + extra, last, customers);
        ledgers.AddMoney(day);
        sheets.Add(day);
        ledgers.Close(day);
        if (i % tellEvery == 0) tell((1 - shareOfIndexes) * i / options.days);
    }
    customers.Close(FirstDate + options.days - 1);
    for (const std::string_view statement : IndexStatements()) {
        database::StopIfCancelled();
        writer.Run(statement);
    }
    tell(1);
}

} // namespace

void MakeSampleDatabase(const SampleOptions& options) {
    Check(options);
    Place place(options.file, options.overwrite);
    {
        Writer writer(place.TemporaryName());
        Fill(writer, options);
        writer.Finish();
    }
    database::StopIfCancelled();
    place.Take();
}

} // namespace qbrpt::sample
