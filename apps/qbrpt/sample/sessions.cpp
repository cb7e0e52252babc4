#include "sample/sessions.h"

#include "sample/moments.h"
#include "sample/words.h"

#include <algorithm>
#include <set>
#include <string>

namespace qbrpt::sample {

namespace {

constexpr int MinuteStep = 5; ///< minutes are sold in fives
constexpr long long MinuteCents = 5;
constexpr int UserPointingNowhere = 99;

int HostCount(int sessionsPerDay) {
    constexpr int fewest = 8;
    constexpr int most = 250;
    constexpr int sessionsPerHost = 20;
    return std::clamp(sessionsPerDay / sessionsPerHost, fewest, most);
}

std::string HostName(int host) {
    constexpr int every = 10;
    return host % every == 0 ? "VIP " + std::to_string(host / every) : "جهاز " + std::to_string(host);
}

} // namespace

Sessions::Sessions(Writer& writer, Random& random, int sessionsPerDay)
    : mRandom(random), mHosts(HostCount(sessionsPerDay)), mLog(writer, "local_log", 17),
      mDeleted(writer, "local_log_delete", 17), mOrders(writer, "cafe_orders", 4),
      mPrints(writer, "print_log", 9) {
    Inserter hosts(writer, "host_src", 2);
    for (int host = 1; host <= mHosts; ++host)
        hosts.Add(host, HostName(host));
}

// Every host's day is cut into equal slots with one session in each, so that no two sessions of a host
// overlap.
std::vector<Session> Sessions::Plan(int count, bool last) {
    constexpr int mostBroken = 12; // an n-th of the hosts
    const int hosts = mHosts - (mRandom.Chance(35) ? mRandom.Between(1, 1 + mHosts / mostBroken) : 0);
    const int firstHost = mRandom.Between(0, mHosts - 1);
    const int slots = std::max(1, (count + hosts - 1) / hosts);
    const int slotSeconds = (Closing - Opening) / slots;
    constexpr int longestMinutes = 180;
    const int steps =
        std::clamp(slotSeconds / SecondsPerMinute / MinuteStep - 1, 1, longestMinutes / MinuteStep);
    std::vector<Session> plan(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        Session& session = plan[static_cast<std::size_t>(i)];
        session.host = (firstHost + i % hosts) % mHosts + 1;
        session.useMinutes = mRandom.Between(1, steps) * MinuteStep;
        const int free = std::max(1, slotSeconds - session.useMinutes * SecondsPerMinute);
        session.begin = Opening + (i / hosts) * slotSeconds + mRandom.Between(0, free - 1);
        const int idle = mRandom.Chance(20) ? mRandom.Between(1, std::max(1, session.useMinutes / 3)) : 0;
        session.idleMinutes = idle;
        session.end = session.begin + session.useMinutes * SecondsPerMinute - mRandom.Between(0, 59);
        const bool inLastSlot = i / hosts == (count - 1) / hosts;
        if (last && inLastSlot && (session.host % 4 == 0 || i + 1 == count)) session.end.reset();
    }
    std::stable_sort(plan.begin(), plan.end(),
                     [](const Session& a, const Session& b) { return a.begin < b.begin; });
    return plan;
}

void Sessions::Fill(Session& session, Day& day, Customers& customers) {
    session.minuteCost = MinuteCents;
    if (!session.end) {
        session.useMinutes = 0;
        session.idleMinutes = 0;
        return;
    }
    constexpr int general = 55;
    constexpr int subscribers = 85;
    const int kind = mRandom.Between(0, 99);
    if (kind >= general) {
        session.minuteCost = 0;
        if (kind < subscribers)
            customers.UseSubscription(session, day);
        else
            customers.UseCard(session, day);
    }
    if (mRandom.Chance(6)) {
        session.pages = mRandom.Between(1, 12);
        session.pageCost = mRandom.Chance(80) ? 25 : 100;
    }
}

void Sessions::Order(Session& session, int id) {
    if (!session.end || !mRandom.Chance(20)) return;
    for (int count = mRandom.Between(1, 3); count > 0; --count) {
        const Good& good = AnyGood(mRandom);
        const int items = mRandom.Chance(80) ? 1 : mRandom.Between(2, 4);
        mOrders.Add(id, good.name, static_cast<double>(items), good.price);
        session.orders += static_cast<long long>(good.price * 100) * items;
    }
}

void Sessions::Print(Session& session, int id, const Day& day) {
    const bool unused = mRandom.Rarely(3);
    if (session.pages == 0 && !unused) return;
    const std::string machine = HostName(session.host);
    const int pages = std::max(session.pages, 1);
    const int printed = mRandom.Chance(95) ? pages : pages - 1;
    const double moment = At(day.date, session.begin + mRandom.Between(0, 299));
    // A job that no use was charged with, or by a supervisor who is no longer there.
    std::optional<int> use;
    if (session.pages > 0) use = id;
    const int user =
        mRandom.Rarely(20) ? UserPointingNowhere : day.shifts[session.begin < ShiftChange ? 0 : 1].user;
    mPrints.Add(PrinterName(mRandom), machine, moment, static_cast<double>(pages),
                static_cast<double>(printed), DocumentName(mRandom), user, use, day.work);
}

void Sessions::Delete(const Session& session, const Day& day) {
    Session copy = session;
    copy.end = copy.end.value_or(copy.begin + MinuteStep * SecondsPerMinute);
    copy.begin += mRandom.Between(1, 59);
    Write(mDeleted, mNextId++, copy, day);
}

void Sessions::Write(Inserter& table, int id, const Session& session, const Day& day) {
    std::optional<double> end;
    if (session.end) end = At(day.date, *session.end);
    const bool finished = session.end.has_value();
    table.Add(id, session.host, session.member, day.shifts[session.begin < ShiftChange ? 0 : 1].user,
              day.work, At(day.date, session.begin), end, static_cast<double>(session.useMinutes),
              static_cast<double>(session.idleMinutes), Money(session.minuteCost),
              static_cast<double>(session.pages), Money(session.pageCost), Money(session.orders),
              Money(session.discount), finished ? Money(session.Paid()) : 0.0, session.kind,
              session.subscription);
}

void Sessions::Add(Day& day, int count, bool last, Customers& customers) {
    std::set<int> hosts;
    for (Session& session : Plan(count, last)) {
        const int id = mNextId++;
        Fill(session, day, customers);
        Order(session, id);
        const long long quarters = session.Paid() / 25;
        if (session.end && quarters >= 4 && mRandom.Chance(4))
            session.discount = 25LL * mRandom.Between(1, static_cast<int>(std::min(quarters / 2, 20LL)));
        Print(session, id, day);
        Write(mLog, id, session, day);
        hosts.insert(session.host);
        if (session.end) day.Count(session);
        if (mRandom.Rarely(4)) Delete(session, day);
    }
    day.hostsUsed = static_cast<int>(hosts.size());
}

} // namespace qbrpt::sample
