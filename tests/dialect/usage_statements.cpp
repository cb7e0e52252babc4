#include "dialect/usage_statements.h"

namespace qbrpt::dialect {

std::string HostUsage(const std::string& bounds, const std::string& host) {
    const std::string cond1 = bounds.empty() ? "" : "([local_log].[end_time] Between " + bounds + ") ";
    std::string wide = bounds;
    if (!wide.empty()) wide.replace(wide.find(" And "), 5, "  AND ");
    const std::string cond2 = bounds.empty() ? "" : "([local_log2].[end_time] Between " + wide + ") ";
    const std::string and1 = bounds.empty() ? "" : "AND " + cond1;
    const std::string start =
        "(SELECT Sum(use_time) FROM local_log WHERE local_log.host_id = [local_log2].[host_id] ";
    return "SELECT host_src.name, " + start + "AND (Not member_id Is Null) AND (Not [end_time] Is Null) " +
           and1 + ")AS member_time, " + start + "AND (member_id Is Null) AND (Not [end_time] Is Null) " +
           and1 + ") AS non_member_time, " + start + "AND (Not [end_time] Is Null) " + and1 +
           ") AS total_time, " +
           "(SELECT Sum(local_log.net_cost * local_log.use_time)AS netincom FROM local_log WHERE (Not "
           "end_time Is "
           "Null) AND (member_id Is Null) AND (local_log.host_id = local_log2.host_id) " +
           (bounds.empty() ? "" : " AND " + cond1) +
           ") AS tnet, Sum(local_log2.print_count) AS sprint_count, "
           "Sum([local_log2].[print_count]*[local_log2].[print_cost]) AS printincom, Sum(local_log2.paid + "
           "local_log2.discount) AS totalcost, Sum(local_log2.Discount) AS sDiscount, Sum(local_log2.paid) "
           "AS "
           "netincome, (Sum([use_time])/(SELECT IIf(Sum([use_time]) Is Null  Or Sum([use_time]) = 0, 1, "
           "Sum([use_time])) as s FROM local_log WHERE Not IsNull(end_time)" +
           (bounds.empty() ? "" : " AND " + cond1) +
           ")) AS p FROM host_src INNER JOIN local_log AS local_log2 ON host_src.id = local_log2.host_id "
           "WHERE "
           "(((IsNull([end_time]))=False) " +
           (bounds.empty() ? "" : " AND " + cond2) +
           (host.empty() ? "" : " AND (local_log2.host_id = " + host + ")") +
           ") GROUP BY host_src.id, host_src.name, local_log2.host_id ORDER BY host_src.name ";
}

std::string UsageDetail(const std::string& table, const std::string& filter) {
    return "SELECT host_src.name, IIf(Not " + table +
           ".member_id Is Null, IIf(not members.name Is Null, members.name, 'عميل محذوف'), 'مستخدم عام') AS "
           "member,log_time, use_time, idle_time,  net_cost, print_count, other_cost, discount, paid, "
           "user_name FROM "
           "(host_src LEFT JOIN (members RIGHT JOIN " +
           table + " ON members.id = " + table + ".member_id) ON host_src.id = " + table +
           ".host_id) LEFT JOIN users ON " + table + ".user_id = users.id  WHERE (NOT " + table +
           ".end_time Is Null) " + filter + " ORDER BY host_src.name, " + table + ".log_time";
}

} // namespace qbrpt::dialect
