// The uses of hosts, with what was ordered and printed meanwhile.
#pragma once

#include "sample/books.h"
#include "sample/customers.h"
#include "sample/random.h"
#include "sample/writer.h"

#include <vector>

namespace qbrpt::sample {

class Sessions {
public:
    Sessions(Writer& writer, Random& random, int sessionsPerDay);

    /// Writes `count` sessions and counts them into the day. On the last day some are still running.
    void Add(Day& day, int count, bool last, Customers& customers);

private:
    std::vector<Session> Plan(int count, bool last);
    void Fill(Session& session, Day& day, Customers& customers);
    void Order(Session& session, int id);
    void Print(Session& session, int id, const Day& day);
    void Delete(const Session& session, const Day& day);
    static void Write(Inserter& table, int id, const Session& session, const Day& day);

    Random& mRandom;
    int mHosts;
    int mNextId = 1;
    Inserter mLog;
    Inserter mDeleted;
    Inserter mOrders;
    Inserter mPrints;
};

} // namespace qbrpt::sample
