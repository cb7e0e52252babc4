#include "members/members.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace qbrpt::members {

namespace {

using Call = decltype(Member::call);

std::string AnswerText(bool answer) {
    return answer ? "true" : "false";
}
std::string AnswerText(std::int16_t answer) {
    return std::to_string(answer);
}
std::string AnswerText(const std::any&) {
    return {};
}

template <class Object, class Result, class... Types, std::size_t... Places>
Call CallOf(Result (Object::*member)(Types...), std::index_sequence<Places...>) {
    return [member](VantlowCls& object, [[maybe_unused]] std::span<const Argument> arguments) -> std::string {
        if constexpr (std::is_void_v<Result>) {
            (object.*member)(std::get<std::decay_t<Types>>(arguments[Places])...);
            return {};
        } else {
            return AnswerText((object.*member)(std::get<std::decay_t<Types>>(arguments[Places])...));
        }
    };
}

template <class Result, class... Types>
Call CallOf(Result (VantlowCls::*member)(Types...)) {
    return CallOf(member, std::index_sequence_for<Types...>{});
}

template <class Result>
Call CallOf(Result (VantlowCls::*member)() const) {
    return [member](VantlowCls& object, std::span<const Argument>) { return AnswerText((object.*member)()); };
}

using Kind = ArgumentKind;

const MemberArgument Show{
    "bShow",
    Kind::Short,
    {"0 prints at once, anything else shows a preview", "0 للطباعة فورًا، وغيره للمعاينة"},
    "1"};

MemberArgument FirstWork(const std::string& name) {
    return {name, Kind::Long, {"first work identifier", "أول يوم عمل؛ 0 لكل الأيام"}};
}
MemberArgument LastWork(const std::string& name) {
    return {name, Kind::Long, {"last work identifier", "آخر يوم عمل"}};
}

std::vector<Member> SessionMembers() {
    return {
        {"IsDbValid",
         {"Whether there is a database", "هل توجد قاعدة بيانات؟"},
         Outcome::Answer,
         {},
         CallOf(&VantlowCls::IsDbValid)},
        {"SetDatabase",
         {"Takes a database that the host has opened", "تسليم قاعدة بيانات فتحها المضيف"},
         Outcome::Nothing,
         {{"db", Kind::Database, {"an open database; empty for none", "قاعدة مفتوحة؛ فارغ لسحبها"}}},
         CallOf(&VantlowCls::SetDatabase)},
        {"SetDbInfo",
         {"Opens a database; 1 or 0", "فتح قاعدة بيانات؛ 1 أو 0"},
         Outcome::Answer,
         {{"szFileName", Kind::File, {"the database file", "ملف قاعدة البيانات"}},
          {"szConnect", Kind::Text, {"connect text; empty for a file", "نص الاتصال؛ فارغ للملف"}}},
         CallOf(&VantlowCls::SetDbInfo)},
        {"CanPrint",
         {"Number of printers", "عدد الطابعات"},
         Outcome::Answer,
         {},
         CallOf(&VantlowCls::CanPrint)},
        {"SetMainTitle",
         {"Sets the heading of reports (see also --title)", "ترويسة التقارير"},
         Outcome::Nothing,
         {{"Name1", Kind::Text, {"the café's name", "اسم المقهى"}},
          {"addr1", Kind::Text, {"first line under it", "السطر الأول تحته"}},
          {"addr2", Kind::Text, {"second line under it", "السطر الثاني تحته"}}},
         CallOf(&VantlowCls::SetMainTitle)},
    };
}

std::vector<Member> UsageMembers() {
    return {
        {"PrintBill",
         {"Nothing", "الفاتورة: لا أثر لها"},
         Outcome::Nothing,
         {{"UseID", Kind::Long, {"any number", "أي رقم"}}},
         CallOf(&VantlowCls::PrintBill)},
        {"PrintIncome",
         {"Income sheet, a line a working day", "كشف الدخل، سطر لكل يوم عمل"},
         Outcome::Report,
         {{"date1",
           Kind::Long,
           {"first work identifier; 0 or less for all days", "أول يوم عمل؛ 0 أو أقل لكل الأيام"}},
          {"date2", Kind::Long, {"last work identifier; 0 for the first alone", "آخر يوم عمل؛ 0 للأول وحده"}},
          {"bGroup", Kind::Short, {"without effect", "بلا أثر"}},
          Show},
         CallOf(&VantlowCls::PrintIncome)},
        {"PrintMemberUsage",
         {"Sessions of a subscriber", "جلسات مشترك"},
         Outcome::Report,
         {{"usageID", Kind::Long, {"a subscription; goes before memberID", "اشتراك؛ يسبق رقم المشترك"}},
          {"memberID", Kind::Long, {"a subscriber; 0 and 0 for all", "مشترك؛ 0 و0 لكل المشتركين"}},
          Show},
         CallOf(&VantlowCls::PrintMemberUsage)},
        {"PrintPPUsage",
         {"Sessions of a prepaid card", "جلسات بطاقة مسبقة الدفع"},
         Outcome::Report,
         {{"usageID", Kind::Long, {"a work identifier, 0 for all", "يوم عمل؛ 0 لكل الأيام"}},
          {"memberID", Kind::Long, {"the card", "البطاقة"}},
          Show},
         CallOf(&VantlowCls::PrintPPUsage)},
        {"PrintPCUsage",
         {"Use and income of each host", "استخدام كل جهاز ودخله"},
         Outcome::Report,
         {{"date1", Kind::DateNumber, {"from", "من"}},
          {"date2",
           Kind::DateNumber,
           {"to; 0, or the same as date1, for all time", "إلى؛ 0 أو كالبداية لكل الأوقات"}},
          {"pcID", Kind::Long, {"a host, 0 for all", "جهاز؛ 0 لكل الأجهزة"}, "0"},
          Show},
         CallOf(&VantlowCls::PrintPCUsage)},
        {"PrintInternetUsage",
         {"Connection time of the internet devices", "وقت اتصال أجهزة الإنترنت"},
         Outcome::Report,
         {{"d1", Kind::Day, {"first day, 0 for all", "أول يوم؛ 0 لكل الأيام"}},
          {"d2", Kind::Day, {"last day", "آخر يوم"}},
          {"bGroup",
           Kind::Short,
           {"0: a line a device and day, else a line a device", "0: سطر لكل جهاز ويوم؛ غيره: سطر لكل جهاز"},
           "1"},
          Show},
         CallOf(&VantlowCls::PrintInternetUsage)},
        {"PrintMembersIncom",
         {"Payments of subscribers", "دفعات المشتركين"},
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintMembersIncom)},
    };
}

std::vector<Member> MoneyMembers() {
    return {
        {"PrintPayout",
         {"Money paid out", "المبالغ المصروفة"},
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintPayout)},
        {"PrintUsage",
         {"Finished sessions one by one", "الجلسات المنتهية جلسةً جلسة"},
         Outcome::Report,
         {FirstWork("date1"),
          LastWork("date2"),
          {"pcID", Kind::Long, {"a host, 0 for all", "جهاز؛ 0 لكل الأجهزة"}},
          Show,
          {"bDeleted", Kind::Short, {"not 0 for the deleted ones", "غير 0 للجلسات المحذوفة"}, "0"}},
         CallOf(&VantlowCls::PrintUsage)},
        {"PrintOtherIncome",
         {"Income from outside", "الإيرادات الأخرى"},
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintOtherIncome)},
        {"PrintServicesIncome",
         {"Orders of customers", "طلبات الزبائن"},
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintServicesIncome)},
    };
}

std::vector<Member> PreviewMembers() {
    return {
        {"PrintMembersInfo",
         {"Subscriptions of the subscribers", "اشتراكات المشتركين"},
         Outcome::Report,
         {{"szParam",
           Kind::Statement,
           {"a condition with its word WHERE; empty to be asked",
            "شرط يبدأ بكلمة WHERE؛ فارغ ليُسأل المستخدم"},
           ""}},
         CallOf(&VantlowCls::PrintMembersInfo),
         {"The condition calls the tables members (id, name) and members_info (accountname, begindate, "
          "totaltime,\n"
          "membertime, ended, paid, remin), for instance: \"WHERE members_info.remin > 0\"",
          "الجدولان في الشرط:\n\u2066members: id, name\u2069\n"
          "\u2066members_info: accountname, begindate, totaltime, membertime, ended, paid, remin\u2069"}},
        {"PrintUsersIncome",
         {"Income by supervisor", "الدخل بحسب المشرف"},
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2")},
         CallOf(&VantlowCls::PrintUsersIncome)},
        {"PrintPPCards",
         {"Prepaid cards to cut out", "بطاقات مسبقة الدفع للقص"},
         Outcome::Report,
         {{"szSQL", Kind::Statement, {"a SELECT with two cards a row", "استعلام SELECT فيه بطاقتان لكل صف"}}},
         CallOf(&VantlowCls::PrintPPCards),
         {"The columns of the query, in this order: account; serial number, identifier and password of the "
          "first\n"
          "card; the same of the second. Without a second card these three are Null.",
          "أعمدة الاستعلام بالترتيب: الحساب، ثم الرقم التسلسلي والمعرّف وكلمة السر للبطاقة الأولى، ثم مثلها "
          "للثانية. وهذه الثلاثة Null إن لم تكن بطاقة ثانية."}},
        {"PrintPPInfo",
         {"A list of prepaid cards", "قائمة البطاقات مسبقة الدفع"},
         Outcome::Report,
         {{"szSQL", Kind::Statement, {"a SELECT with a card a row", "استعلام SELECT فيه بطاقة لكل صف"}},
          {"szCaption",
           Kind::Text,
           {"the title; empty for the layout's own", "العنوان؛ فارغ لعنوان التقرير نفسه"}}},
         CallOf(&VantlowCls::PrintPPInfo),
         {"The columns of the query, in this order: number, name, disabled and registered of the card's "
          "kind;\n"
          "number, serial text, disabled, first used, expired, minutes bought, type, minutes used and "
          "expiry of\n"
          "the card.",
          "أعمدة الاستعلام بالترتيب: رقم نوع البطاقة واسمه وتعطيله وتسجيله، ثم رقم البطاقة ورقمها التسلسلي "
          "وتعطيلها وأول استخدام وانتهاؤها والدقائق المشتراة والنوع والدقائق المستخدمة وتاريخ الانتهاء."}},
        {"PrintAudit",
         {"The audit trail", "سجل أعمال المشرفين"},
         Outcome::Report,
         {},
         CallOf(&VantlowCls::PrintAudit)},
        {"PrintPrintLog",
         {"The log of print jobs", "سجل الطباعة"},
         Outcome::Report,
         {FirstWork("workId1"), LastWork("workId2")},
         CallOf(&VantlowCls::PrintPrintLog)},
        {"EditAccount",
         {"The window of the general accounts", "نافذة الحسابات العامة"},
         Outcome::Window,
         {},
         CallOf(&VantlowCls::EditAccount)},
    };
}

std::vector<Member> AllMembers() {
    std::vector<Member> all;
    for (auto part : {SessionMembers, UsageMembers, MoneyMembers, PreviewMembers}) {
        std::vector<Member> members = part();
        std::move(members.begin(), members.end(), std::back_inserter(all));
    }
    return all;
}

} // namespace

const std::vector<Member>& Members() {
    static const std::vector<Member> all = AllMembers();
    return all;
}

bool CanBeTyped(const Member& member) {
    return std::none_of(member.arguments.begin(), member.arguments.end(),
                        [](const auto& argument) { return argument.kind == ArgumentKind::Database; });
}

} // namespace qbrpt::members
