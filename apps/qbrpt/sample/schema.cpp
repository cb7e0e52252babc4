#include "sample/schema.h"

#include <array>

namespace qbrpt::sample {

namespace {

// Dates are declared DATETIME and hold day numbers.
constexpr std::array<std::string_view, 26> Tables{
    "CREATE TABLE host_log_time(id INTEGER PRIMARY KEY, use_date DATETIME)",
    "CREATE TABLE daily_sheet(work_id INTEGER PRIMARY KEY, date DATETIME, work_time REAL, min_log_time "
    "DATETIME, "
    "max_log_time DATETIME, net_income REAL, print_income REAL, members_income REAL, pp_income REAL, "
    "other_Income REAL, total_discount REAL, total_income REAL, pc_count REAL)",
    "CREATE TABLE total_use_count(work_id INTEGER PRIMARY KEY, prints REAL, pp REAL, general REAL, member "
    "REAL, "
    "total_time REAL)",
    "CREATE TABLE local_log(id INTEGER PRIMARY KEY, host_id INTEGER, member_id INTEGER, user_id INTEGER, "
    "work_id INTEGER, log_time DATETIME, end_time DATETIME, use_time REAL, idle_time REAL, net_cost REAL, "
    "print_count REAL, print_cost REAL, other_cost REAL, discount REAL, paid REAL, utype INTEGER, "
    "active_membership INTEGER)",
    "CREATE TABLE local_log_delete(id INTEGER PRIMARY KEY, host_id INTEGER, member_id INTEGER, user_id "
    "INTEGER, "
    "work_id INTEGER, log_time DATETIME, end_time DATETIME, use_time REAL, idle_time REAL, net_cost REAL, "
    "print_count REAL, print_cost REAL, other_cost REAL, discount REAL, paid REAL, utype INTEGER, "
    "active_membership INTEGER)",
    "CREATE TABLE host_src(id INTEGER PRIMARY KEY, name VARCHAR(30))",
    "CREATE TABLE internet_usage(id INTEGER PRIMARY KEY, device_name VARCHAR(40), use_date DATETIME, "
    "second_count REAL)",
    "CREATE TABLE members(id INTEGER PRIMARY KEY, name VARCHAR(50))",
    "CREATE TABLE membership(id INTEGER PRIMARY KEY, name VARCHAR(20))",
    "CREATE TABLE members_time(id INTEGER PRIMARY KEY, membership_id INTEGER, pp_id INTEGER)",
    "CREATE TABLE members_info(member_id INTEGER, accountname VARCHAR(50), begindate DATETIME, totaltime "
    "REAL, "
    "membertime REAL, ended BOOLEAN, paid REAL, remin REAL)",
    "CREATE TABLE members_payment(member_id INTEGER, membership_id INTEGER, pay_date DATETIME, amount REAL, "
    "work_id INTEGER)",
    "CREATE TABLE pp_src(acctid INTEGER PRIMARY KEY, name VARCHAR(40), disabled BOOLEAN, reg_date DATETIME)",
    "CREATE TABLE pp_dat(pp_id INTEGER PRIMARY KEY, acctid INTEGER, se_id INTEGER, card_id VARCHAR(20), "
    "card_pass VARCHAR(15), disabled BOOLEAN, use_date DATETIME, expired BOOLEAN, use_time REAL, use_type "
    "REAL, "
    "used_time REAL, expiry REAL)",
    "CREATE TABLE pay_out(amount REAL, pay_date DATETIME, details VARCHAR(255), work_id INTEGER)",
    "CREATE TABLE other_income(amount REAL, pay_date DATETIME, details VARCHAR(255), work_id INTEGER)",
    "CREATE TABLE cafe_orders(useid INTEGER, name VARCHAR(255), item_count REAL, price REAL)",
    "CREATE TABLE users(id INTEGER PRIMARY KEY, user_name VARCHAR(30))",
    "CREATE TABLE supervisor_day(work_id INTEGER, user_id INTEGER, work_time REAL, total_use REAL, "
    "local_time REAL, members_time REAL, print_income REAL, main_income REAL, discount REAL, members_income "
    "REAL, "
    "other_income REAL, prepaid_income REAL, PRIMARY KEY (work_id, user_id))",
    "CREATE TABLE print_log(printer VARCHAR(90), machine VARCHAR(20), print_date DATETIME, pages REAL, "
    "printed REAL, document VARCHAR(150), user_id INTEGER, use_id INTEGER, work_id INTEGER)",
    "CREATE TABLE user_audit(a_id INTEGER PRIMARY KEY, a_date DATETIME, type INTEGER)",
    "CREATE TABLE audit_temp(a_id INTEGER, user_name VARCHAR(50), comments VARCHAR(255))",
    "CREATE TABLE aud_tag(tid INTEGER PRIMARY KEY, name VARCHAR(90))",
    "CREATE TABLE account_src(accid INTEGER PRIMARY KEY, name VARCHAR(250))",
    "CREATE TABLE account_log(acc_from INTEGER, acc_to INTEGER, amount REAL, trans_date DATETIME, "
    "descrip VARCHAR(250))",
    "CREATE TABLE saved_query(name VARCHAR(64) PRIMARY KEY, sql TEXT)"};

constexpr std::array<std::string_view, 14> Indexes{
    "CREATE INDEX local_log_work ON local_log(work_id)",
    "CREATE INDEX local_log_member ON local_log(member_id)",
    "CREATE INDEX local_log_subscription ON local_log(active_membership)",
    // Holds all that the sums by host read, so that they never touch the table.
    "CREATE INDEX local_log_host ON local_log(host_id, end_time, member_id, use_time, net_cost)",
    "CREATE INDEX local_log_delete_work ON local_log_delete(work_id)",
    "CREATE INDEX cafe_orders_use ON cafe_orders(useid)", "CREATE INDEX print_log_work ON print_log(work_id)",
    "CREATE INDEX members_info_member ON members_info(member_id)",
    "CREATE INDEX members_payment_work ON members_payment(work_id)",
    "CREATE INDEX pay_out_work ON pay_out(work_id)",
    "CREATE INDEX other_income_work ON other_income(work_id)",
    "CREATE INDEX audit_temp_id ON audit_temp(a_id)",
    "CREATE INDEX account_log_from ON account_log(acc_from, amount)",
    "CREATE INDEX account_log_to ON account_log(acc_to, amount)"};

constexpr std::array<SavedQueryText, 2> Queries{{
    // From the sheets that are kept a supervisor and day.
    {"users_income2",
     "PARAMETERS [first_work] Long, [last_work] Long;\r\n"
     "SELECT s.user_id AS userid, h.use_date AS usedate, u.user_name AS spvname, s.work_time AS worktime, "
     "s.total_use AS totaluse, s.local_time AS localtime, s.members_time AS memberstime, "
     "s.print_income AS [print], s.main_income AS mainincome, s.discount AS discount, "
     "s.members_income AS membersincome, s.other_income AS otherincome, s.prepaid_income AS prepaid\r\n"
     "FROM (supervisor_day AS s INNER JOIN host_log_time AS h ON s.work_id = h.id) "
     "LEFT JOIN users AS u ON s.user_id = u.id\r\n"
     "WHERE ([first_work] Is Null) OR (s.work_id BETWEEN [first_work] AND [last_work])\r\n"
     "ORDER BY s.work_id, s.user_id;"},
    // The same figures, those of sessions summed afresh.
    {"users_income",
     "PARAMETERS [first_work] Long, [last_work] Long;\r\n"
     "SELECT s.user_id AS userid, Max(h.use_date) AS usedate, Max(u.user_name) AS spvname, "
     "Max(s.work_time) AS worktime, Sum(l.use_time) AS totaluse, "
     "Sum(IIf(l.member_id Is Null, l.use_time, 0)) AS localtime, "
     "Sum(IIf(l.member_id Is Null, 0, l.use_time)) AS memberstime, Sum(l.print_count * l.print_cost) AS "
     "[print], "
     "Sum(l.paid + l.discount - l.print_count * l.print_cost) AS mainincome, Sum(l.discount) AS discount, "
     "Max(s.members_income) AS membersincome, Max(s.other_income) AS otherincome, "
     "Max(s.prepaid_income) AS prepaid\r\n"
     "FROM ((supervisor_day AS s INNER JOIN host_log_time AS h ON s.work_id = h.id) "
     "LEFT JOIN users AS u ON s.user_id = u.id) "
     "INNER JOIN local_log AS l ON (s.work_id = l.work_id AND s.user_id = l.user_id)\r\n"
     "WHERE (Not l.end_time Is Null) "
     "AND (([first_work] Is Null) OR (s.work_id BETWEEN [first_work] AND [last_work]))\r\n"
     "GROUP BY s.work_id, s.user_id\r\n"
     "ORDER BY s.work_id, s.user_id;"},
}};

} // namespace

std::span<const std::string_view> TableStatements() {
    return Tables;
}

std::span<const std::string_view> IndexStatements() {
    return Indexes;
}

std::span<const SavedQueryText> SavedQueries() {
    return Queries;
}

} // namespace qbrpt::sample
