#include "sample/ledgers.h"

#include "sample/moments.h"

#include <algorithm>
#include <string>

namespace qbrpt::sample {

namespace {

constexpr int Till = 1;
constexpr int Bank = 2;
constexpr int Takings = 0; ///< no account has this number: money that enters the accounts from the day's work

} // namespace

Ledgers::Ledgers(Writer& writer, Random& random)
    : mRandom(random), mPayOuts(writer, "pay_out", 4), mIncomes(writer, "other_income", 4),
      mAudit(writer, "user_audit", 3), mAuditTexts(writer, "audit_temp", 3),
      mLines(writer, "internet_usage", 4), mJournal(writer, "account_log", 5) {
    Inserter users(writer, "users", 2);
    for (int i = 0; i < SupervisorCount; ++i)
        users.Add(i + 1, SupervisorAt(i));
    Inserter tags(writer, "aud_tag", 2);
    for (int i = 0; i < AuditTagCount; ++i)
        tags.Add(i + 1, AuditTagAt(i));
    Inserter accounts(writer, "account_src", 2);
    for (int i = 0; i < AccountCount; ++i)
        accounts.Add(i + 1, AccountAt(i));
}

// Moments of a day as they are written down, one after the other.
std::vector<int> Ledgers::Moments(int least, int most) {
    std::vector<int> seconds(static_cast<std::size_t>(mRandom.Between(least, most)));
    for (int& second : seconds)
        second = mRandom.Between(Opening, Closing - 1);
    std::sort(seconds.begin(), seconds.end());
    return seconds;
}

void Ledgers::AddMoney(Day& day) {
    for (const int second : Moments(0, 3)) {
        const double amount = Money(25LL * mRandom.Between(8, 800));
        mPayOuts.Add(amount, At(day.date, second), PayOutText(mRandom), day.work);
    }
    for (const int second : Moments(0, 2)) {
        const long long cents = 25LL * mRandom.Between(20, 600);
        mIncomes.Add(Money(cents), At(day.date, second), IncomeText(mRandom), day.work);
        day.ShiftAt(second).other += cents;
    }
}

void Ledgers::Audit(const Day& day) {
    for (const int second : Moments(1, 4)) {
        const int id = mNextAudit++;
        const int tag = mRandom.Between(0, AuditTagCount - 1);
        mAudit.Add(id, At(day.date, second), tag + 1);
        const std::string_view user = SupervisorAt(mRandom.Between(0, SupervisorCount - 1));
        mAuditTexts.Add(id, user, AuditText(tag, mRandom));
    }
}

void Ledgers::Lines(const Day& day) {
    for (int i = 0; i < DeviceCount; ++i)
        mLines.Add(mNextLine++, DeviceAt(i), static_cast<double>(day.date),
                   static_cast<double>(mRandom.Between(600, Closing - Opening)));
}

void Ledgers::Transfer(int from, int to, long long cents, double moment, std::string_view text) {
    if (cents <= 0) return;
    if (from != Takings) mBalances[static_cast<std::size_t>(from)] -= cents;
    mBalances[static_cast<std::size_t>(to)] += cents;
    mJournal.Add(from, to, Money(cents), moment, text);
}

void Ledgers::Close(const Day& day) {
    Audit(day);
    Lines(day);
    constexpr int week = 7;
    constexpr int month = 30;
    Transfer(Takings, Till, day.Total(), At(day.date, Closing), "");
    // The last account never gets anything, as a partner's may be.
    constexpr int lastToReceive = AccountCount - 1;
    const auto whole = [](long long cents) { return cents / 100 * 100; };
    if (day.work % week == 0)
        Transfer(Till, Bank, whole(mBalances[Till] / 2), At(day.date, Closing + 600), TransferText(mRandom));
    if (day.work % month == 0)
        for (int account = Bank + 1; account <= lastToReceive; ++account)
            Transfer(Bank, account, whole(mBalances[Bank] / 10), At(day.date, Closing + 900 + account),
                     TransferText(mRandom));
}

} // namespace qbrpt::sample
