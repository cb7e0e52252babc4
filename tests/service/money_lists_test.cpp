// The four lists of money movements.
#include "command_rows.h"

namespace qbrpt {
namespace {

const std::string Payments =
    "SELECT p.pay_date, IIf(Not m.name Is Null, m.name, 'عميل تم حذفه')  AS mName, p.amount, IIf(Not ms.name "
    "Is Null, ms.name, 'اشتراك محذوف') FROM (members_payment AS p LEFT JOIN members AS m ON p.member_id = "
    "m.id) LEFT JOIN membership ms ON p.membership_id = ms.id";
const std::string PaidOut = "SELECT amount, pay_date, details FROM pay_out ";
const std::string Other = "SELECT amount, pay_date, details FROM other_income ";
const std::string Orders =
    "SELECT c.name, c.item_count, c.price, l.end_time, h.name AS hostname FROM host_src AS h INNER JOIN "
    "(cafe_orders AS c INNER JOIN local_log AS l ON c.useid = l.id) ON h.id = l.host_id ";

struct Bounds {
    const char* name;
    std::int32_t d1, d2;
    std::vector<int> lookedUp;
    const char* range; ///< behind the column, where there is a filter
    std::string period;
};

const std::vector<Bounds> AllBounds = {
    {"Range", 5, 9, {5, 9}, " BETWEEN 5 AND 9", ThursdayToMonday},
    {"Reversed", 9, 5, {9, 5}, " BETWEEN 9 AND 5", ThursdayToMonday},
    {"EqualBounds", 5, 5, {5}, " = 5", Thursday},
    {"FirstOnly", 5, 0, {5}, " = 5", Thursday},
    {"SecondOnly", 0, 9, {0, 9}, "", UpToMonday},
    {"None", 0, 0, {0}, "", NoDay},
    {"NegativeFirst", -5, 9, {-5, 9}, " BETWEEN -5 AND 9", UpToMonday},
    {"NegativeSecond", 5, -9, {5, -9}, " BETWEEN 5 AND -9", Thursday},
    {"NegativeAlone", -5, 0, {-5}, " = -5", NoDay},
    {"UnknownDay", 6, 6, {6}, " = 6", NoDay},
};

struct List {
    const char* command;
    const std::string& query;
    const char* head;
    const char* tail;
    const char* templateName;
    const char* title;
    void (VantlowCls::*member)(std::int32_t, std::int32_t, std::int16_t);
};

std::vector<CommandRow> Rows() {
    const std::vector<List> lists = {
        {"PrintMembersIncom", Payments, " WHERE (p.work_id", ")", "MembersPay", "",
         &VantlowCls::PrintMembersIncom},
        {"PrintPayout", PaidOut, " WHERE (work_id", ")", "PayOutRpt", "المصروفات الخارجية ",
         &VantlowCls::PrintPayout},
        {"PrintOtherIncome", Other, " WHERE work_id", "", "OutIncome", "الإيرادات الخارجية ",
         &VantlowCls::PrintOtherIncome},
        {"PrintServicesIncome", Orders, " WHERE (l.work_id", ")", "ServicesRpt", "تقرير بخدمات الزبائن ",
         &VantlowCls::PrintServicesIncome},
    };
    static std::vector<std::string> names; // rows keep pointers
    names.reserve(lists.size() * AllBounds.size() * 2);
    std::vector<CommandRow> rows;
    for (const List& list : lists) {
        const bool paymentsList = list.title[0] == '\0';
        for (const Bounds& bounds : AllBounds) {
            const bool orders = list.query == Orders;
            // The orders name a period only for a first day above 0; the payments never do.
            const std::string title = list.title + (orders && bounds.d1 <= 0 ? std::string() : bounds.period);
            const std::string filter =
                bounds.range[0] == '\0' ? "" : std::string(list.head) + bounds.range + list.tail;
            for (const std::int16_t show : {std::int16_t{0}, std::int16_t{2}}) {
                names.push_back(std::string(list.command) + bounds.name + (show == 0 ? "" : "Preview"));
                CommandRow row{
                    names.back().c_str(),
                    [list, bounds, show](VantlowCls& cls) { (cls.*list.member)(bounds.d1, bounds.d2, show); },
                    DateLookUps(bounds.lookedUp),
                    list.query + filter,
                    2,
                    paymentsList ? "EOF" : "RecordCount",
                    list.templateName,
                    {},
                    show != 0};
                if (!paymentsList) row.members = {"SetHeadTitle(\"" + title + "\")"};
                rows.push_back(row);
            }
        }
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(MoneyLists, CommandCase, ::testing::ValuesIn(Rows()), RowName());

TEST_F(ServiceTest, HalfDaysOfAListsPeriodGoToTheEvenDay) {
    GiveDatabase();
    db->Answer("WHERE id = 5", {{Date{38'001.5}}}); // up to Friday 16th
    db->Answer("WHERE id = 9", {{Date{38'004.5}}}); // down to Sunday 18th
    cls.PrintPayout(5, 9, 0);
    EXPECT_EQ(platform.runtime->made.at(0)->texts["HeadTitleText"],
              "المصروفات الخارجية من الجمعة 16 يناير إلى الأحد 18 يناير 2004");
}

TEST_F(ServiceTest, EveryShowButZeroPreviewsAList) {
    GiveDatabase();
    cls.PrintOtherIncome(5, 9);
    cls.PrintOtherIncome(5, 9, -1);
    EXPECT_EQ(platform.viewer->views, 2);
    cls.PrintOtherIncome(5, 9, 0);
    EXPECT_EQ(platform.viewer->views, 2);
}

} // namespace
} // namespace qbrpt
