#include "members.h"

#include <type_traits>
#include <utility>

namespace qbrpt::cli {

namespace {

using Call = decltype(Member::call);

std::string AnswerText(bool answer) {
    return answer ? "true" : "false";
}
std::string AnswerText(std::int16_t answer) {
    return std::to_string(answer);
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

const MemberArgument Show{"bShow", Kind::Short, "0 prints at once, anything else shows a preview", "1"};

MemberArgument FirstWork(const std::string& name) {
    return {name, Kind::Long, "first work identifier"};
}
MemberArgument LastWork(const std::string& name) {
    return {name, Kind::Long, "last work identifier"};
}

std::vector<Member> SessionMembers() {
    return {
        {"IsDbValid", "Whether there is a database", Outcome::Answer, {}, CallOf(&VantlowCls::IsDbValid)},
        {"SetDbInfo",
         "Opens a database; 1 or 0",
         Outcome::Answer,
         {{"szFileName", Kind::Text, "the database file"},
          {"szConnect", Kind::Text, "connect text; empty for a file"}},
         CallOf(&VantlowCls::SetDbInfo)},
        {"CanPrint", "Number of printers", Outcome::Answer, {}, CallOf(&VantlowCls::CanPrint)},
        {"SetMainTitle",
         "Sets the heading of reports (see also --title)",
         Outcome::Nothing,
         {{"Name1", Kind::Text, "the café's name"},
          {"addr1", Kind::Text, "first line under it"},
          {"addr2", Kind::Text, "second line under it"}},
         CallOf(&VantlowCls::SetMainTitle)},
    };
}

std::vector<Member> UsageMembers() {
    return {
        {"PrintBill",
         "Nothing",
         Outcome::Nothing,
         {{"UseID", Kind::Long, "any number"}},
         CallOf(&VantlowCls::PrintBill)},
        {"PrintIncome",
         "Income sheet, a line a working day",
         Outcome::Report,
         {{"date1", Kind::Long, "first work identifier; 0 or less for all days"},
          {"date2", Kind::Long, "last work identifier; 0 for the first alone"},
          {"bGroup", Kind::Short, "without effect"},
          Show},
         CallOf(&VantlowCls::PrintIncome)},
        {"PrintMemberUsage",
         "Sessions of a subscriber",
         Outcome::Report,
         {{"usageID", Kind::Long, "a subscription; goes before memberID"},
          {"memberID", Kind::Long, "a subscriber; 0 and 0 for all"},
          Show},
         CallOf(&VantlowCls::PrintMemberUsage)},
        {"PrintPPUsage",
         "Sessions of a prepaid card",
         Outcome::Report,
         {{"usageID", Kind::Long, "a work identifier, 0 for all"},
          {"memberID", Kind::Long, "the card"},
          Show},
         CallOf(&VantlowCls::PrintPPUsage)},
        {"PrintPCUsage",
         "Use and income of each host",
         Outcome::Report,
         {{"date1", Kind::DateNumber, "from"},
          {"date2", Kind::DateNumber, "to; 0, or the same as date1, for all time"},
          {"pcID", Kind::Long, "a host, 0 for all", "0"},
          Show},
         CallOf(&VantlowCls::PrintPCUsage)},
        {"PrintInternetUsage",
         "Connection time of the internet devices",
         Outcome::Report,
         {{"d1", Kind::Day, "first day, 0 for all"},
          {"d2", Kind::Day, "last day"},
          {"bGroup", Kind::Short, "0: a line a device and day, else a line a device", "1"},
          Show},
         CallOf(&VantlowCls::PrintInternetUsage)},
        {"PrintMembersIncom",
         "Payments of subscribers",
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintMembersIncom)},
    };
}

std::vector<Member> MoneyMembers() {
    return {
        {"PrintPayout",
         "Money paid out",
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintPayout)},
        {"PrintUsage",
         "Finished sessions one by one",
         Outcome::Report,
         {FirstWork("date1"),
          LastWork("date2"),
          {"pcID", Kind::Long, "a host, 0 for all"},
          Show,
          {"bDeleted", Kind::Short, "not 0 for the deleted ones", "0"}},
         CallOf(&VantlowCls::PrintUsage)},
        {"PrintOtherIncome",
         "Income from outside",
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintOtherIncome)},
        {"PrintServicesIncome",
         "Orders of customers",
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2"), Show},
         CallOf(&VantlowCls::PrintServicesIncome)},
    };
}

std::vector<Member> PreviewMembers() {
    return {
        {"PrintMembersInfo",
         "Subscriptions of the subscribers",
         Outcome::Report,
         {{"szParam", Kind::Text, "a condition with its word WHERE; empty to be asked", ""}},
         CallOf(&VantlowCls::PrintMembersInfo),
         "The condition calls the tables members (id, name) and members_info (accountname, begindate, "
         "totaltime,\n"
         "membertime, ended, paid, remin), for instance: \"WHERE members_info.remin > 0\""},
        {"PrintUsersIncome",
         "Income by supervisor",
         Outcome::Report,
         {FirstWork("d1"), LastWork("d2")},
         CallOf(&VantlowCls::PrintUsersIncome)},
        {"PrintPPCards",
         "Prepaid cards to cut out",
         Outcome::Report,
         {{"szSQL", Kind::Text, "a SELECT with two cards a row"}},
         CallOf(&VantlowCls::PrintPPCards),
         "The columns of the query, in this order: account; serial number, identifier and password of the "
         "first\n"
         "card; the same of the second. Without a second card these three are Null."},
        {"PrintPPInfo",
         "A list of prepaid cards",
         Outcome::Report,
         {{"szSQL", Kind::Text, "a SELECT with a card a row"},
          {"szCaption", Kind::Text, "the title; empty for the layout's own"}},
         CallOf(&VantlowCls::PrintPPInfo),
         "The columns of the query, in this order: number, name, disabled and registered of the card's "
         "kind;\n"
         "number, serial text, disabled, first used, expired, minutes bought, type, minutes used and expiry "
         "of\n"
         "the card."},
        {"PrintAudit", "The audit trail", Outcome::Report, {}, CallOf(&VantlowCls::PrintAudit)},
        {"PrintPrintLog",
         "The log of print jobs",
         Outcome::Report,
         {FirstWork("workId1"), LastWork("workId2")},
         CallOf(&VantlowCls::PrintPrintLog)},
        {"EditAccount",
         "The window of the general accounts",
         Outcome::Nothing,
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

std::vector<Argument> ReadArguments(const Member& member, const std::vector<std::string>& typed) {
    std::vector<Argument> arguments;
    for (std::size_t i = 0; i < member.arguments.size(); ++i) {
        const MemberArgument& expected = member.arguments[i];
        if (i >= typed.size() && !expected.defaultText)
            throw WrongUse(member.name + ": the argument " + expected.name + " is missing.");
        const std::string& text = i < typed.size() ? typed[i] : *expected.defaultText;
        try {
            arguments.push_back(ReadArgument(expected.kind, text));
        } catch (const WrongUse& wrong) {
            throw WrongUse(member.name + ": " + expected.name + ": " + wrong.what());
        }
    }
    if (typed.size() > member.arguments.size())
        throw WrongUse(member.name + ": \"" + typed[member.arguments.size()] +
                       "\" is one argument too many.");
    return arguments;
}

} // namespace qbrpt::cli
