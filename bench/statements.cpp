#include "statements.h"

namespace qbrpt::bench {

namespace {

/// What bounds the sessions of PrintPCUsage: a period of `end_time`, as the words behind BETWEEN, and a host.
struct HostBounds {
    std::string first;
    std::string last;
    std::string host;
};

std::string HostStatement(const HostBounds& bounds) {
    const bool all = bounds.first.empty();
    const std::string inner =
        all ? "" : "([local_log].[end_time] Between " + bounds.first + " And " + bounds.last + ") ";
    const std::string outer =
        all ? "" : "([local_log2].[end_time] Between " + bounds.first + "  AND " + bounds.last + ") ";
    const std::string start =
        "(SELECT Sum(use_time) FROM local_log WHERE local_log.host_id = [local_log2].[host_id] ";
    const std::string and1 = all ? "" : "AND " + inner;
    return "SELECT host_src.name, " + start + "AND (Not member_id Is Null) AND (Not [end_time] Is Null) " +
           and1 + ")AS member_time, " + start + "AND (member_id Is Null) AND (Not [end_time] Is Null) " +
           and1 + ") AS non_member_time, " + start + "AND (Not [end_time] Is Null) " + and1 +
           ") AS total_time, (SELECT Sum(local_log.net_cost * local_log.use_time)AS netincom FROM local_log "
           "WHERE (Not end_time Is Null) AND (member_id Is Null) AND (local_log.host_id = "
           "local_log2.host_id) " +
           (all ? "" : " AND " + inner) +
           ") AS tnet, Sum(local_log2.print_count) AS sprint_count, "
           "Sum([local_log2].[print_count]*[local_log2].[print_cost]) AS printincom, Sum(local_log2.paid + "
           "local_log2.discount) AS totalcost, Sum(local_log2.Discount) AS sDiscount, Sum(local_log2.paid) "
           "AS netincome, (Sum([use_time])/(SELECT IIf(Sum([use_time]) Is Null  Or Sum([use_time]) = 0, 1, "
           "Sum([use_time])) as s FROM local_log WHERE Not IsNull(end_time)" +
           (all ? "" : " AND " + inner) +
           ")) AS p FROM host_src INNER JOIN local_log AS local_log2 ON host_src.id = local_log2.host_id "
           "WHERE (((IsNull([end_time]))=False) " +
           (all ? "" : " AND " + outer) +
           (bounds.host.empty() ? "" : " AND (local_log2.host_id = " + bounds.host + ")") +
           ") GROUP BY host_src.id, host_src.name, local_log2.host_id ORDER BY host_src.name ";
}

std::string HostByHand(const HostBounds& bounds) {
    const std::string period =
        bounds.first.empty() ? "" : " AND l.end_time BETWEEN " + bounds.first + " AND " + bounds.last;
    const std::string host = bounds.host.empty() ? "" : " AND l.host_id = " + bounds.host;
    return "SELECT h.name, a.member_time, a.non_member_time, a.total_time, a.tnet, a.sprint_count, "
           "a.printincom, a.totalcost, a.sdiscount, a.netincome, a.total_time / (SELECT CASE WHEN "
           "Sum(l.use_time) IS NULL OR Sum(l.use_time) = 0 THEN 1 ELSE Sum(l.use_time) END FROM local_log l "
           "WHERE l.end_time IS NOT NULL" +
           period +
           ") AS p FROM host_src h JOIN (SELECT l.host_id, Sum(CASE WHEN l.member_id IS NOT NULL THEN "
           "l.use_time END) AS member_time, Sum(CASE WHEN l.member_id IS NULL THEN l.use_time END) AS "
           "non_member_time, Sum(l.use_time) AS total_time, Sum(CASE WHEN l.member_id IS NULL THEN "
           "l.net_cost * l.use_time END) AS tnet, Sum(l.print_count) AS sprint_count, Sum(l.print_count * "
           "l.print_cost) AS printincom, Sum(l.paid + l.discount) AS totalcost, Sum(l.discount) AS "
           "sdiscount, Sum(l.paid) AS netincome FROM local_log l WHERE l.end_time IS NOT NULL" +
           period + host + " GROUP BY l.host_id) a ON h.id = a.host_id ORDER BY h.name";
}

std::string UseStatement(const std::string& filter) {
    return "SELECT host_src.name, IIf(Not local_log.member_id Is Null, IIf(not members.name Is Null, "
           "members.name, 'عميل محذوف'), 'مستخدم عام') AS member,log_time, use_time, idle_time,  net_cost, "
           "print_count, other_cost, discount, paid, user_name FROM (host_src LEFT JOIN (members RIGHT JOIN "
           "local_log ON members.id = local_log.member_id) ON host_src.id = local_log.host_id) LEFT JOIN "
           "users ON local_log.user_id = users.id  WHERE (NOT local_log.end_time Is Null) " +
           filter + " ORDER BY host_src.name, local_log.log_time";
}

std::string UseByHand(const std::string& filter) {
    return "SELECT h.name, CASE WHEN local_log.member_id IS NOT NULL THEN CASE WHEN m.name IS NOT NULL THEN "
           "m.name ELSE 'عميل محذوف' END ELSE 'مستخدم عام' END, log_time, use_time, idle_time, net_cost, "
           "print_count, other_cost, discount, paid, user_name FROM local_log JOIN host_src h ON h.id = "
           "local_log.host_id LEFT JOIN members m ON m.id = local_log.member_id LEFT JOIN users u ON u.id = "
           "local_log.user_id WHERE local_log.end_time IS NOT NULL" +
           filter + " ORDER BY h.name, local_log.log_time";
}

} // namespace

std::vector<StatementPair> StatementPairs() {
    const HostBounds all{"", "", ""};
    const HostBounds period{"45700", "45780", ""};
    const HostBounds host{"", "", "60"};
    const std::string range = " AND (local_log.work_id BETWEEN 101 AND 131)";
    const std::string oneHost = " AND (local_log.host_id = 60)";
    return {
        {"PrintPCUsage", HostStatement(all), HostByHand(all)},
        {"PrintPCUsage of a period", HostStatement(period), HostByHand(period)},
        {"PrintPCUsage of one host", HostStatement(host), HostByHand(host)},
        {"PrintUsage", UseStatement(""), UseByHand("")},
        {"PrintUsage of a range", UseStatement(range), UseByHand(range)},
        {"PrintUsage of one host", UseStatement(oneHost), UseByHand(oneHost)},
    };
}

} // namespace qbrpt::bench
