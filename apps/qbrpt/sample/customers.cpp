#include "sample/customers.h"

#include "sample/moments.h"
#include "sample/words.h"

#include <algorithm>
#include <array>
#include <string>

namespace qbrpt::sample {

namespace {

constexpr int DeletedKind = MembershipKindCount + 1; ///< sold once, and gone from the list of kinds
constexpr int CardKind = MembershipKindCount + 2;
constexpr MembershipKind DeletedKindAsSold{"عرض قديم", 900, 35, 30};
constexpr int DeletedMembers = 7; ///< per cent
constexpr int FirstSerial = 1001;
constexpr int UnsoldCards = 120;
constexpr std::size_t CardsAround = 25;

struct CardOffer {
    int minutes;
    long long cents;
};
constexpr std::array<CardOffer, CardAccountCount> CardOffers{{{300, 1500}, {600, 2500}, {1200, 4500}}};

std::string Digits(Random& random, int count) {
    std::string digits;
    for (int i = 0; i < count; ++i)
        digits += static_cast<char>('0' + random.Between(0, 9));
    return digits;
}

} // namespace

Customers::Customers(Writer& writer, Random& random, int sessionsPerDay, int firstDate)
    : mWriter(writer), mRandom(random), mMembersTime(writer, "members_time", 3),
      mPayments(writer, "members_payment", 5) {
    constexpr int fewest = 40;
    constexpr int most = 3000;
    const int count = std::min(fewest + sessionsPerDay / 4, most);
    Inserter members(writer, "members", 2);
    for (int id = 1; id <= count; ++id) {
        const std::string name = PersonName(random);
        if (!random.Chance(DeletedMembers)) members.Add(id, name);
    }
    mCurrent.assign(static_cast<std::size_t>(count) + 1, 0);
    // Most have subscribed in the weeks before the first day, as has a stock of cards been sold by then.
    constexpr int subscribed = 85;
    for (int id = 1; id <= count; ++id)
        if (random.Chance(subscribed))
            mCurrent[static_cast<std::size_t>(id)] = SubscribeEarlier(id, firstDate) + 1;
    while (mCardsInUse.size() < CardsAround)
        mCardsInUse.push_back(MakeCard(EarlierMoment(firstDate, 60)));

    Inserter kinds(writer, "membership", 2);
    for (int i = 0; i < MembershipKindCount; ++i)
        kinds.Add(i + 1, MembershipKindAt(i).name);
    kinds.Add(CardKind, std::string_view("بطاقة مسبقة الدفع"));
}

double Customers::EarlierMoment(int firstDate, int days) {
    const int date = firstDate - mRandom.Between(1, days);
    return At(date, mRandom.Between(Opening, Closing - 1));
}

void Customers::UseSubscription(Session& session, Day& day) {
    const int member = mRandom.Between(1, static_cast<int>(mCurrent.size()) - 1);
    const double moment = At(day.date, session.begin);
    std::size_t& current = mCurrent[static_cast<std::size_t>(member)];
    if (current != 0) {
        Subscription& old = mSubscriptions[current - 1];
        if (old.usedMinutes + session.useMinutes > old.boughtMinutes || moment > old.until) {
            old.ended = true;
            current = 0;
        }
    }
    if (current == 0) current = Subscribe(member, moment) + 1;
    Subscription& subscription = mSubscriptions[current - 1];
    if (subscription.paid == 0)
        Pay(subscription, mRandom.Chance(15) ? subscription.owed / 2 : subscription.owed, session, day);
    else if (subscription.owed > 0 && mRandom.Chance(10))
        Pay(subscription, subscription.owed, session, day);
    subscription.usedMinutes += session.useMinutes;
    session.kind = 2;
    session.member = member;
    session.subscription = subscription.id;
}

std::size_t Customers::Subscribe(int member, double moment) {
    const bool deleted = mRandom.Chance(3);
    const int index = mRandom.Between(0, MembershipKindCount - 1);
    const MembershipKind& kind = deleted ? DeletedKindAsSold : MembershipKindAt(index);
    Subscription made;
    made.id = mNextSubscription++;
    made.member = member;
    made.kind = deleted ? DeletedKind : index + 1;
    made.begin = moment;
    made.until = moment + kind.days;
    made.boughtMinutes = kind.minutes;
    made.owed = static_cast<long long>(kind.price) * 100;
    mMembersTime.Add(made.id, made.kind, std::nullopt);
    mSubscriptions.push_back(made);
    return mSubscriptions.size() - 1;
}

std::size_t Customers::SubscribeEarlier(int member, int firstDate) {
    const std::size_t place = Subscribe(member, 0);
    Subscription& made = mSubscriptions[place];
    const double days = made.until;
    made.begin = EarlierMoment(firstDate, static_cast<int>(days));
    made.until = made.begin + days;
    made.paid = mRandom.Chance(10) ? made.owed / 2 : made.owed;
    made.owed -= made.paid;
    return place;
}

void Customers::Pay(Subscription& subscription, long long amount, const Session& session, Day& day) {
    subscription.paid += amount;
    subscription.owed -= amount;
    day.ShiftAt(session.begin).members += amount;
    mPayments.Add(subscription.member, subscription.kind, At(day.date, session.begin), Money(amount),
                  day.work);
}

void Customers::UseCard(Session& session, Day& day) {
    constexpr int newCustomers = 12;
    const auto place = static_cast<std::size_t>(mRandom.Between(0, static_cast<int>(CardsAround) - 1));
    const Card& held = mCards[mCardsInUse[place]];
    if (held.usedMinutes + session.useMinutes > held.boughtMinutes || mRandom.Chance(newCustomers)) {
        mCardsInUse[place] = MakeCard(At(day.date, session.begin));
        const int account = mCards[mCardsInUse[place]].account;
        day.ShiftAt(session.begin).prepaid += CardOffers[static_cast<std::size_t>(account - 1)].cents;
    }
    Card& card = mCards[mCardsInUse[place]];
    card.usedMinutes += session.useMinutes;
    session.kind = 1;
    session.subscription = card.subscription;
}

std::size_t Customers::MakeCard(double moment) {
    const int account = mRandom.Between(0, CardAccountCount - 1);
    Card card;
    card.subscription = mNextSubscription++;
    card.account = account + 1;
    card.boughtMinutes = CardOffers[static_cast<std::size_t>(account)].minutes;
    card.begin = moment;
    mCards.push_back(card);
    mMembersTime.Add(card.subscription, CardKind, static_cast<int>(mCards.size()));
    return mCards.size() - 1;
}

void Customers::Close(int lastDate) {
    WriteSubscriptions();
    WriteCards(lastDate);
}

void Customers::WriteSubscriptions() {
    Inserter infos(mWriter, "members_info", 8);
    for (const Subscription& each : mSubscriptions) {
        const std::string_view name =
            each.kind == DeletedKind ? DeletedKindAsSold.name : MembershipKindAt(each.kind - 1).name;
        infos.Add(each.member, name, each.begin, static_cast<double>(each.usedMinutes),
                  static_cast<double>(each.boughtMinutes), each.ended, Money(each.paid), Money(each.owed));
    }
}

void Customers::WriteCards(int lastDate) {
    Inserter accounts(mWriter, "pp_src", 4);
    for (int i = 0; i < CardAccountCount; ++i)
        accounts.Add(i + 1, CardAccountAt(i), false, static_cast<double>(lastDate - 400));
    Inserter cards(mWriter, "pp_dat", 12);
    constexpr int idDigits = 10;
    constexpr int passDigits = 6;
    constexpr double expiryDays = 180;
    int id = 0;
    const auto add = [&](const Card& card, std::optional<double> begin) {
        ++id;
        const std::string number = Digits(mRandom, idDigits);
        const std::string pass = Digits(mRandom, passDigits);
        const bool expired = begin && *begin + expiryDays < lastDate;
        cards.Add(id, card.account, FirstSerial + id, number, pass, mRandom.Rarely(5), begin, expired,
                  static_cast<double>(card.boughtMinutes), 1.0, static_cast<double>(card.usedMinutes),
                  expiryDays);
    };
    for (const Card& card : mCards)
        add(card, card.begin);
    for (int i = 0; i < UnsoldCards; ++i) {
        const int account = i % CardAccountCount;
        Card card;
        card.account = account + 1;
        card.boughtMinutes = CardOffers[static_cast<std::size_t>(account)].minutes;
        add(card, std::nullopt);
    }
}

} // namespace qbrpt::sample
