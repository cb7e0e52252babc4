// Ten thousand random actions at the accounts' window while anything may fail, beside a ledger of the test's
// own.
#include "accounts/window_fixture.h"

#include <cmath>
#include <cstdio>
#include <map>
#include <random>

namespace qbrpt {
namespace {

/// Makes a call fail now and then, and keeps the ledger of what was done. An entry is done once its commit
/// has been let through.
class RandomFaults final : public PortObserver {
public:
    explicit RandomFaults(std::mt19937& random) : mRandom(random) {}

    struct Entry {
        int from = 0;
        int to = 0;
        double amount = 0;
    };
    std::vector<Entry> done;
    int failed = 0;

    void Called(const PortCall& call) override {
        constexpr unsigned seldom = 400;
        if (mRandom() % seldom == 0) {
            ++failed;
            throw Failure(FailureNumber::Device, "fault in " + std::string(call.operation));
        }
        if (call.port == "DAO.Database" && call.operation == "Execute") {
            const auto& text = std::get<std::string>(call.arguments[0]);
            const std::size_t values = text.find("VALUES(");
            mEntry = {};
            if (text.starts_with("INSERT INTO account_log"))
                std::sscanf(text.c_str() + values, "VALUES(%d, %d, %lf,", &mEntry.from, &mEntry.to,
                            &mEntry.amount);
        }
        if (call.port == "DAO.Transaction") done.push_back(mEntry);
    }

private:
    std::mt19937& mRandom;
    Entry mEntry;
};

class RandomActions : public AccountWindowTest {
protected:
    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    std::string SomeAmount() {
        if (Below(3) == 0) return Text("txtTotal")->text; // all that is there
        if (Below(8) == 0) return ".";
        return std::to_string(Below(40)) + (Below(2) == 0 ? ".25" : "");
    }

    void ActOnce() {
        const char* combos[] = {"comboFrom", "comboTo", "comboAcc"};
        switch (Below(16)) {
        case 0:
            return Type("txtAccount", "account " + std::to_string(Below(60)) + (Below(9) == 0 ? "'" : ""));
        case 1:
            return Press("cmdAdd");
        case 2:
            return Press("cmdUpdate");
        case 3:
            if (!List()->items.empty()) ClickItem(1 + Below(static_cast<int>(List()->items.size())));
            return;
        case 4:
        case 5:
            return Choose(combos[Below(3)], Below(12));
        case 6:
            return Type("txtAmount", SomeAmount());
        case 7:
            return Type("txtDescrip", Below(5) == 0 ? "it's" : "words");
        case 8:
        case 9:
            return Press("cmdAddReg");
        case 10:
            return ChooseTab(static_cast<std::int16_t>(1 + Below(3)));
        case 11:
            return AddTakings();
        default:
            Choose("comboFrom", Below(4));
            Choose("comboTo", Below(4));
            Type("txtAmount", SomeAmount());
            return Press("cmdAddReg");
        }
    }

    /// What the host writes beside the window.
    void AddTakings() {
        const int account = 1 + Below(8);
        const double amount = 0.25 * Below(400);
        Native("INSERT INTO account_log VALUES (0, " + std::to_string(account) + ", " +
               std::to_string(amount) + ", 37780, 'takings')");
        takings.push_back({0, account, amount});
    }

    const unsigned seed = std::random_device{}();
    std::mt19937 random{seed};
    std::vector<RandomFaults::Entry> takings;
};

TEST_F(RandomActions, LeaveTheBalancesOfTheDoneEntries) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const auto faults = std::make_shared<RandomFaults>(random);
    fakes::FakePlatform::Observe(faults);
    constexpr int actions = 10'000;
    for (int done = 0; done < actions;)
        Show([&] {
            for (const int last = done + 1 + Below(400); done < std::min(last, actions); ++done)
                ActOnce();
        });
    Platform::Current().observers = {};
    EXPECT_GT(faults->failed, 100);
    EXPECT_GT(faults->done.size(), 100U);
    EXPECT_NE(sqlite3_get_autocommit(handle), 0);

    // None is lost, none is there twice.
    EXPECT_EQ(Ask("SELECT count(*) FROM account_log"), std::to_string(takings.size() + faults->done.size()));
    std::map<int, double> balances;
    for (const auto& entries : {takings, faults->done})
        for (const RandomFaults::Entry& entry : entries) {
            balances[entry.from] -= entry.amount;
            balances[entry.to] += entry.amount;
        }
    for (const auto& [account, balance] : balances) {
        const Ref<DAO::Recordset> read = db->OpenRecordset(
            "SELECT IIf(Sum(amount) Is Null, 0, Sum(amount))-(SELECT IIf(Sum(amount) Is "
            "Null, 0, Sum(amount)) FROM account_log WHERE acc_from = " +
            std::to_string(account) + ") FROM account_log WHERE acc_to = " + std::to_string(account));
        EXPECT_NEAR(*NumberIn(read->Fields(0)), balance, 1e-6) << "account " << account;
        // A balance is rounded before an amount is compared with it.
        EXPECT_TRUE(account == 0 || balance >= -0.5) << "account " << account << ": " << balance;
    }
}

} // namespace
} // namespace qbrpt
