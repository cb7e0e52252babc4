#include "examples.h"

namespace cafe {

QString ExampleStatement(std::string_view member) {
    if (member == "PrintMembersInfo") return "WHERE members_info.remin > 0";
    // Cards that are not sold yet, two of one kind side by side: the sample café has three kinds in turn.
    if (member == "PrintPPCards")
        return "SELECT s.name, a.se_id, a.card_id, a.card_pass, b.se_id, b.card_id, b.card_pass\n"
               "FROM (pp_dat AS a INNER JOIN pp_src AS s ON a.acctid = s.acctid)\n"
               "  LEFT JOIN pp_dat AS b ON b.pp_id = a.pp_id + 3\n"
               "WHERE a.use_date Is Null\n"
               "  AND ((a.pp_id - (SELECT Min(pp_id) FROM pp_dat WHERE use_date Is Null)) MOD 6) < 3\n"
               "ORDER BY a.acctid, a.pp_id";
    if (member == "PrintPPInfo")
        return "SELECT s.acctid, s.name, s.disabled, s.reg_date, p.pp_id, p.se_id, p.disabled, p.use_date,\n"
               "  p.expired, p.use_time, p.use_type, p.used_time, p.expiry\n"
               "FROM pp_dat AS p INNER JOIN pp_src AS s ON p.acctid = s.acctid\n"
               "ORDER BY p.pp_id";
    return {};
}

} // namespace cafe
