// Every report command once, with arguments that have rows in the sample café of a few days.
#pragma once

#include "fakes/card_queries.h"
#include "service/VantlowCls.h"

#include <cstdint>
#include <functional>
#include <ostream>
#include <vector>

namespace qbrpt::fakes {

struct CommandCall {
    const char* name;
    /// `card`: the row of a prepaid card in `members_time`.
    std::function<void(VantlowCls&, std::int32_t card)> run;
};

inline void PrintTo(const CommandCall& command, std::ostream* stream) {
    *stream << command.name;
}

/// Those with `bShow` print at once.
inline std::vector<CommandCall> AllCommands() {
    return {
        {"PrintIncome", [](VantlowCls& c, std::int32_t) { c.PrintIncome(1, 4, 0, 0); }},
        {"PrintIncomeSingle", [](VantlowCls& c, std::int32_t) { c.PrintIncome(2, 0, 0, 0); }},
        {"PrintMemberUsage", [](VantlowCls& c, std::int32_t) { c.PrintMemberUsage(0, 0, 0); }},
        {"PrintPPUsage", [](VantlowCls& c, std::int32_t card) { c.PrintPPUsage(0, card, 0); }},
        {"PrintPCUsage", [](VantlowCls& c, std::int32_t) { c.PrintPCUsage(0, 0, 0, 0); }},
        {"PrintPCUsageOfOne", [](VantlowCls& c, std::int32_t) { c.PrintPCUsage(1, 90'000, 1, 0); }},
        {"PrintInternetUsage", [](VantlowCls& c, std::int32_t) { c.PrintInternetUsage(0, 0, 1, 0); }},
        {"PrintMembersIncom", [](VantlowCls& c, std::int32_t) { c.PrintMembersIncom(1, 4, 0); }},
        {"PrintPayout", [](VantlowCls& c, std::int32_t) { c.PrintPayout(1, 4, 0); }},
        {"PrintUsage", [](VantlowCls& c, std::int32_t) { c.PrintUsage(1, 3, 0, 0); }},
        {"PrintOtherIncome", [](VantlowCls& c, std::int32_t) { c.PrintOtherIncome(1, 4, 0); }},
        {"PrintServicesIncome", [](VantlowCls& c, std::int32_t) { c.PrintServicesIncome(1, 4, 0); }},
        {"PrintMembersInfo", [](VantlowCls& c, std::int32_t) { c.PrintMembersInfo("WHERE members.id > 0"); }},
        {"PrintUsersIncome", [](VantlowCls& c, std::int32_t) { c.PrintUsersIncome(1, 4); }},
        {"PrintPPCards", [](VantlowCls& c, std::int32_t) { c.PrintPPCards(CardsQuery); }},
        {"PrintPPInfo", [](VantlowCls& c, std::int32_t) { c.PrintPPInfo(CardListQuery, "بطاقات"); }},
        {"PrintAudit", [](VantlowCls& c, std::int32_t) { c.PrintAudit(); }},
        {"PrintPrintLog", [](VantlowCls& c, std::int32_t) { c.PrintPrintLog(1, 4); }},
        {"PrintIncomePreview", [](VantlowCls& c, std::int32_t) { c.PrintIncome(1, 4, 0, 1); }},
        {"PrintPayoutPreview", [](VantlowCls& c, std::int32_t) { c.PrintPayout(1, 4); }},
    };
}

} // namespace qbrpt::fakes
