// Every port call of a day at the accounts' window fails in its turn.
#include "accounts/account_report_fake.h"
#include "accounts/window_fixture.h"

namespace qbrpt {
namespace {

using fakes::FaultObserver;
using ::testing::IsEmpty;

class WindowFaults : public AccountWindowTest {
protected:
    WindowFaults() {
        FillLedger();
        platform.runtime->prepare = [](fakes::FakeReport& report) {
            GiveAccountParts(report, std::make_shared<fakes::ReportRecord>());
        };
    }

    /// An account made and renamed, an entry, a report; then the user gives up on what does not work.
    void Day() {
        const auto preview = [](fakes::FakeForm&) {};
        Show([&] {
            platform.forms->shown = preview;
            Type("txtAccount", "Desk");
            Press("cmdAdd");
            if (List()->items.size() >= 2 && List()->items[1].key == "2|") {
                ClickItem(2);
                Type("txtAccount", "Bank");
                Press("cmdUpdate");
            }
            form->events.DblClick("AccList");
            ChooseTab(2);
            Choose("comboFrom", 0);
            Choose("comboTo", 1);
            if (Text("txtAmount")->text.empty()) form->events.KeyPress("txtAmount", '6');
            Type("txtAmount", "60");
            Type("txtDescrip", "entry");
            Press("cmdAddReg");
            ChooseTab(3);
            Choose("comboAcc", 0);
            form->events.Change("dtMin");
            Of<fakes::FakeToggle>("chkAll")->on = true;
            form->events.Click("chkAll");
            form->events.Click("cmdPrint");
        });
    }

    void TestBody() override {}
};

struct Outcome {
    std::size_t calls = 0;
    std::vector<std::string> boxes;
};

Outcome DayWith(std::size_t position, FaultObserver::Reach reach) {
    class Case : public WindowFaults {
    public:
        Outcome Do(std::size_t at, FaultObserver::Reach how) {
            const auto fault = std::make_shared<FaultObserver>(at, how);
            fakes::FakePlatform::Observe(fault);
            Day();
            Platform::Current().observers = {};
            EXPECT_NE(sqlite3_get_autocommit(handle), 0) << "no transaction stays open";
            EXPECT_TRUE(platform.forms->latest.expired()) << "no window stays";
            // All that may have come of it: the entry, once and whole.
            EXPECT_THAT(
                Ask("SELECT acc_from, acc_to, amount, trans_date, descrip FROM account_log WHERE rowid > 2"),
                ::testing::AnyOf("", "1|2|60.0|38000.5|entry", "1|2|60.0|38000.5|"));
            EXPECT_THAT(Ask("SELECT * FROM account_src"),
                        ::testing::AnyOf("1|Till 2|البنك 3|Safe", "1|Till 2|Bank 3|Safe",
                                         "1|Till 2|البنك 3|Safe 4|Desk", "1|Till 2|Bank 3|Safe 4|Desk"));
            for (const auto& report : platform.runtime->made)
                EXPECT_FALSE(report->alive);
            return {fault->Calls(), Boxes()};
        }
    };
    return Case().Do(position, reach);
}

/// A day without a fault, the font table standing already.
Outcome WholeDay() {
    DayWith(0, FaultObserver::Reach::Once);
    return DayWith(0, FaultObserver::Reach::Once);
}

TEST(EveryFaultOfTheAccountsWindow, Once) {
    const Outcome whole = WholeDay();
    EXPECT_THAT(whole.boxes, IsEmpty());
    ASSERT_GT(whole.calls, 300U);
    for (std::size_t position = 1; position <= whole.calls; ++position) {
        SCOPED_TRACE("call " + std::to_string(position));
        DayWith(position, FaultObserver::Reach::Once);
    }
}

TEST(EveryFaultOfTheAccountsWindow, FromThenOn) {
    const std::size_t calls = WholeDay().calls;
    for (std::size_t position = 1; position <= calls; ++position) {
        SCOPED_TRACE("call " + std::to_string(position));
        EXPECT_THAT(DayWith(position, FaultObserver::Reach::FromThenOn).boxes, IsEmpty());
    }
}

} // namespace
} // namespace qbrpt
