// Subscribers with their subscriptions, and prepaid cards.
#pragma once

#include "sample/books.h"
#include "sample/random.h"
#include "sample/writer.h"

#include <vector>

namespace qbrpt::sample {

/// All who use the café other than by the minute. Minutes that they use are taken from a subscription or a
/// card; new ones are bought as the old run out. Some subscribers, and one kind of subscription, have been
/// deleted: others still point to them.
class Customers {
public:
    Customers(Writer& writer, Random& random, int sessionsPerDay, int firstDate);

    /// Makes `session` one of a subscriber.
    void UseSubscription(Session& session, Day& day);
    /// Makes `session` one of a prepaid card.
    void UseCard(Session& session, Day& day);
    /// Writes what has added up, and cards that nobody has bought yet.
    void Close(int lastDate);

private:
    struct Subscription {
        int id = 0;
        int member = 0;
        int kind = 0; ///< membership identifier
        double begin = 0;
        double until = 0;
        int boughtMinutes = 0;
        int usedMinutes = 0;
        long long paid = 0;
        long long owed = 0;
        bool ended = false;
    };
    struct Card {
        int subscription = 0;
        int account = 0;
        int boughtMinutes = 0;
        int usedMinutes = 0;
        double begin = 0;
    };

    double EarlierMoment(int firstDate, int days);
    std::size_t Subscribe(int member, double moment);
    std::size_t SubscribeEarlier(int member, int firstDate);
    void Pay(Subscription& subscription, long long amount, const Session& session, Day& day);
    std::size_t MakeCard(double moment);
    void WriteSubscriptions();
    void WriteCards(int lastDate);

    Writer& mWriter;
    Random& mRandom;
    Inserter mMembersTime;
    Inserter mPayments;
    int mNextSubscription = 1;
    std::vector<Subscription> mSubscriptions;
    std::vector<std::size_t>
        mCurrent; ///< by member from 1: the place of the subscription in use, and 1; 0 is none
    std::vector<Card> mCards;
    std::vector<std::size_t> mCardsInUse;
};

} // namespace qbrpt::sample
