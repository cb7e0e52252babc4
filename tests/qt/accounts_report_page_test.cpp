// The page of reports with real clicks and keys, as far as the preview.
#include "accounts_fixture.h"
#include "adapters/locale/locale_adapter.h"
#include "adapters/qt/dialog/date_field.h"
#include "adapters/runtime/runtime.h"
#include "adapters/text/text_engine.h"
#include "fakes/call_log.h"

#include <QtWidgets/QAbstractButton>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct NoDelivery final : Delivery {
    void Print(ReportOutput&, const PrintJob&) override { ADD_FAILURE() << "nobody has asked for paper"; }
};

class AccountsReportPage : public AccountsWindow {
protected:
    AccountsReportPage() {
        Platform::Current().reports =
            MakeRuntime(ServicesOf(std::make_shared<text::TextEngine>(), std::make_shared<NoDelivery>()));
        Platform::Current().locale = MakeLocale();
    }

    /// What is asked of the database and printed above the report when `press` prints; the preview closes
    /// as soon as it stands.
    std::vector<std::string> Printed(const std::function<void()>& press) {
        const auto log = std::make_shared<fakes::CallLog>();
        fakes::FakePlatform::Observe(log);
        const QWidget* accounts = QApplication::activeModalWidget();
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            QWidget* open = QApplication::activeModalWidget();
            if (open == nullptr || open == accounts) return;
            look.stop();
            ++previews;
            open->close();
        });
        look.start(10);
        press();
        Platform::Current().observers = {};
        OpenForm()->activateWindow(); // there is no window manager to do it
        EXPECT_TRUE(QTest::qWaitForWindowActive(OpenForm()));
        return log->LinesOf({"DAO.Database.OpenRecordset", "member SetTitle"});
    }
    static bool On(const char* option) { return In<QAbstractButton>(option).isChecked(); }
    static double DateIn(const char* picker) { return In<qt::DateField>(picker).Value().value_or(0); }
    static void ClickOption(const char* option) {
        QWidget& button = In<QWidget>(option);
        QTest::mouseClick(&button, Qt::LeftButton, {}, {button.width() - 10, button.height() / 2});
    }
    /// Digits of a date, from its first part on.
    static void TypeDate(const char* picker, const char* digits) {
        In<QWidget>("chkAll").setFocus();
        In<QWidget>(picker).setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&In<QWidget>(picker), digits);
    }

    int previews = 0;
};

TEST_F(AccountsReportPage, PrintsAllOfAllTimeByClicks) {
    Show([&] {
        ClickTab(2);
        ClickOption("chkAll");
        EXPECT_FALSE(In<QWidget>("dtMin").isEnabled());
        EXPECT_FALSE(In<QWidget>("dtMax").isEnabled());
        EXPECT_THAT(Printed([] { Click("cmdPrint"); }),
                    ElementsAre(HasSubstr("\r\rORDER BY"), HasSubstr("حركة القيد الكلية")));
    });
    EXPECT_EQ(previews, 1);
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(AccountsReportPage, PrintsOneAccountByClicks) {
    Show([&] {
        ClickTab(2);
        ClickOption("chkAll");
        ClickOption("rptOpt(1)");
        EXPECT_EQ(In<QComboBox>("comboAcc").currentIndex(), 0) << "the first where none was chosen";
        EXPECT_THAT(Printed([] { Click("cmdPrint"); }),
                    ElementsAre(HasSubstr("acc_to = 1\rORDER BY"), HasSubstr("acc_from = 1\rORDER BY"),
                                HasSubstr("حركة القيد الخاصة بحساب Till")));
        ClickOption("rptOpt(0)");
        EXPECT_THAT(Printed([] { Click("cmdPrint"); }),
                    ElementsAre(HasSubstr("AS accfrom"), HasSubstr("الكلية")));
        ClickOption("chkAll");
        EXPECT_TRUE(In<QWidget>("dtMin").isEnabled());
    });
    EXPECT_EQ(previews, 2);
    EXPECT_THAT(Said(), IsEmpty());
}

TEST_F(AccountsReportPage, PrintsTheAccountThatIsChosenByKeys) {
    Show([&] {
        ClickTab(2);
        In<QWidget>("chkAll").setFocus();
        QTest::keyClick(&In<QWidget>("chkAll"), Qt::Key_Space);
        EXPECT_TRUE(On("rptOpt(0)"));
        Choose("comboAcc", 1);
        EXPECT_TRUE(On("rptOpt(1)"));
        EXPECT_THAT(Printed([] {
                        In<QWidget>("cmdPrint").setFocus();
                        QTest::keyClick(&In<QWidget>("cmdPrint"), Qt::Key_Space);
                    }),
                    ElementsAre(HasSubstr("acc_to = 2\rORDER BY"), HasSubstr("acc_from = 2\rORDER BY"),
                                HasSubstr("بحساب Bank")));
        In<QWidget>("rptOpt(1)").setFocus();
        QTest::keyClick(&In<QWidget>("rptOpt(1)"), Qt::Key_Up);
        EXPECT_TRUE(On("rptOpt(0)"));
        QTest::keyClick(&In<QWidget>("rptOpt(0)"), Qt::Key_Down);
        EXPECT_TRUE(On("rptOpt(1)"));
        EXPECT_EQ(In<QComboBox>("comboAcc").currentIndex(), 1) << "what was chosen stays";
    });
    EXPECT_EQ(previews, 1);
}

TEST_F(AccountsReportPage, TheEndFollowsTheStartThatIsTyped) {
    Native("INSERT INTO account_log VALUES (0, 1, 7, 45731.25, 'March')");
    platform.clock->now = 38'000.25;
    Show([&] {
        ClickTab(2);
        TypeDate("dtMin", "15032025");
        EXPECT_EQ(DateIn("dtMin"), 45731.25);
        EXPECT_EQ(DateIn("dtMax"), 45731.25);
        EXPECT_THAT(
            Printed([] { Click("cmdPrint"); }),
            ElementsAre(HasSubstr("Where (CLng(trans_date)=45731)"), HasSubstr("ليوم السبت 15 مارس 2025")));
        TypeDate("dtMin", "10032025");
        EXPECT_EQ(DateIn("dtMin"), 45726.25);
        EXPECT_EQ(DateIn("dtMax"), 45731.25) << "it lies behind the start already";
        EXPECT_THAT(Printed([] { Click("cmdPrint"); }),
                    ElementsAre(HasSubstr("BETWEEN 45726.25 AND 45731.25"), HasSubstr("إلى")));
        TypeDate("dtMax", "01032025");
        EXPECT_EQ(DateIn("dtMin"), 45726.25) << "the start does not follow";
        TypeDate("dtMin", "11032025");
        EXPECT_EQ(DateIn("dtMax"), 45727.25);
    });
    EXPECT_EQ(previews, 2);
}

TEST_F(AccountsReportPage, NothingToPrintIsSaid) {
    Native("DELETE FROM account_log");
    Show([&] {
        ClickTab(2);
        Click("cmdPrint");
        ClickOption("rptOpt(1)");
        Click("cmdPrint");
    });
    EXPECT_THAT(Said(),
                ElementsAre("لا توجد بيانات بهذا الخصوص حالياً.", "لا توجد بيانات للطباعة في الوقت الحاضر."));
}

} // namespace
} // namespace qbrpt::test
