// Money beside the sessions, the audit, the internet lines and the general accounts.
#pragma once

#include "sample/books.h"
#include "sample/random.h"
#include "sample/words.h"
#include "sample/writer.h"

#include <array>

#include <vector>

namespace qbrpt::sample {

class Ledgers {
public:
    Ledgers(Writer& writer, Random& random);

    /// Money that comes in from outside and goes out; before the day's sheets are written.
    void AddMoney(Day& day);
    /// Everything that follows from the finished day: its takings go into the accounts.
    void Close(const Day& day);

private:
    std::vector<int> Moments(int least, int most);
    void Audit(const Day& day);
    void Lines(const Day& day);
    void Transfer(int from, int to, long long cents, double moment, std::string_view text);

    Random& mRandom;
    Inserter mPayOuts;
    Inserter mIncomes;
    Inserter mAudit;
    Inserter mAuditTexts;
    Inserter mLines;
    Inserter mJournal;
    int mNextAudit = 1;
    int mNextLine = 1;
    std::array<long long, AccountCount + 1> mBalances{};
};

} // namespace qbrpt::sample
