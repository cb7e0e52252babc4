// Queries as a host writes them over the sample café's cards.
#pragma once

namespace qbrpt::fakes {

/// Two cards a row, in the order of the template's fields; the last row may hold one.
constexpr const char* CardsQuery =
    "SELECT s.name, a.se_id, a.card_id, a.card_pass, b.se_id, b.card_id, b.card_pass "
    "FROM (pp_dat AS a INNER JOIN pp_src AS s ON a.acctid = s.acctid) LEFT JOIN pp_dat AS b "
    "ON (b.pp_id = a.pp_id + 1) WHERE a.pp_id MOD 2 = 1 ORDER BY a.pp_id";
constexpr const char* CardListQuery =
    "SELECT s.acctid, s.name, s.disabled, s.reg_date, p.pp_id, p.se_id, p.disabled, p.use_date, p.expired, "
    "p.use_time, p.use_type, p.used_time, p.expiry FROM pp_dat AS p INNER JOIN pp_src AS s "
    "ON p.acctid = s.acctid ORDER BY p.pp_id";

} // namespace qbrpt::fakes
