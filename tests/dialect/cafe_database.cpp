#include "dialect/cafe_database.h"

namespace qbrpt::dialect {

const char* CafeScript() {
    return R"(
CREATE TABLE host_log_time (id INTEGER PRIMARY KEY, use_date DATETIME);
INSERT INTO host_log_time VALUES (1, 37780), (2, 37781.5), (3, 37782), (4, 37783), (5, NULL);

CREATE TABLE daily_sheet (work_id INTEGER, date DATETIME, work_time REAL, min_log_time DATETIME,
  max_log_time DATETIME, net_income REAL, print_income REAL, members_income REAL, pp_income REAL,
  other_Income REAL, total_discount REAL, total_income REAL, pc_count INTEGER);
INSERT INTO daily_sheet VALUES
  (1, 37780, 600, 37780.375, 37780.5625, 9, 1, 4, 0, 2.5, 1, 16.5, 3),
  (2, 37781.5, 480, 37781.5, NULL, 0, NULL, 3, 0, 0, 0, 3, 3),
  (4, 37783, 300, 37783.25, 37783.5, 1.5, 0, 5, 0, 0, 0, 6.5, 3);
CREATE TABLE total_use_count (work_id INTEGER, prints INTEGER, pp INTEGER, general INTEGER, member INTEGER,
  total_time REAL);
INSERT INTO total_use_count VALUES (1, 2, 0, 1, 1, 150), (2, 0, 0, 1, 1, 40);

CREATE TABLE host_src (id INTEGER PRIMARY KEY, name TEXT);
INSERT INTO host_src VALUES (1, 'PC1'), (2, 'pc2'), (3, 'جهاز 3');
CREATE TABLE users (id INTEGER PRIMARY KEY, user_name TEXT);
INSERT INTO users VALUES (1, 'سعيد');
CREATE TABLE members (id INTEGER, name TEXT);
INSERT INTO members VALUES (1, 'أحمد'), (2, 'Ahmed'), (4, NULL);
CREATE TABLE membership (id INTEGER PRIMARY KEY, name TEXT);
INSERT INTO membership VALUES (1, 'شهري'), (2, 'Weekly');
CREATE TABLE members_time (id INTEGER PRIMARY KEY, membership_id INTEGER, pp_id REAL);
INSERT INTO members_time VALUES (10, 1, NULL), (11, 99, NULL), (20, 2, 500);
CREATE TABLE pp_dat (pp_id REAL, se_id REAL);
INSERT INTO pp_dat VALUES (500, 42), (501, 43);

CREATE TABLE local_log (id INTEGER PRIMARY KEY, host_id INTEGER, member_id INTEGER, user_id INTEGER,
  work_id INTEGER, log_time DATETIME, end_time DATETIME, use_time REAL, idle_time REAL, net_cost REAL,
  print_count INTEGER, print_cost REAL, other_cost REAL, discount REAL, paid REAL, utype INTEGER,
  active_membership INTEGER);
INSERT INTO local_log VALUES
  (1, 1, 1,    1, 1, 37780.375, 37780.416666666664, 60, 0, 0.05, 2, 0.5, 0,   1, 4, 2, 10),
  (2, 1, NULL, 1, 1, 37780.5,   37780.5625,         90, 5, 0.1,  0, 0.5, 2.5, 0, 9, 1, NULL),
  (3, 2, 99,   9, 2, 37781.5,   37781.75,           30, 0, 0.1,  0, 0.5, 0,   0, 3, 2, 11),
  (4, 2, NULL, 1, 2, 37781.75,  NULL,               10, 0, 0.1,  1, 0.5, 0,   0, 1, 1, NULL),
  (5, 1, 2,    1, 4, 37783.25,  37783.5,            45, 0, 0.1,  0, 0.5, 0,   0, 5, 2, 10),
  (6, 9, NULL, 1, 4, 37783.5,   37783.625,          15, 0, 0.1,  0, 0.5, 0,   0, 2, 1, NULL),
  (7, 2, NULL, 1, 5, 37784.5,   37784.75,           120, 0, 0,   3, 0.5, 0,   0, 0, 3, 20);
CREATE TABLE local_log_delete (id INTEGER PRIMARY KEY, host_id INTEGER, member_id INTEGER, user_id INTEGER,
  work_id INTEGER, log_time DATETIME, end_time DATETIME, use_time REAL, idle_time REAL, net_cost REAL,
  print_count INTEGER, print_cost REAL, other_cost REAL, discount REAL, paid REAL, utype INTEGER,
  active_membership INTEGER);
INSERT INTO local_log_delete SELECT 8, 3, 1, 1, 1, 37780.25, 37780.375, 5, 0, 0.1, 0, 0.5, 0, 0, 0.5, 2, 10;

CREATE TABLE internet_usage (id INTEGER PRIMARY KEY, device_name TEXT, use_date DATETIME, second_count INTEGER);
INSERT INTO internet_usage VALUES (1, 'Router', 37780, 90), (2, 'router', 37781, 60), (3, 'مودم', 37782, 3600),
  (4, 'مودم', 37783.5, 30), (5, 'مودم', NULL, 60);

CREATE TABLE members_payment (member_id INTEGER, membership_id INTEGER, pay_date DATETIME, amount REAL,
  work_id INTEGER);
INSERT INTO members_payment VALUES (1, 1, 37780.5, 50, 1), (99, 98, 37781, 20.25, 2), (2, 98, 37783, 30, 4);
CREATE TABLE pay_out (amount REAL, pay_date DATETIME, details TEXT, work_id INTEGER);
INSERT INTO pay_out VALUES (10, 37780, 'شاي', 1), (5.5, 37781, NULL, 2);
CREATE TABLE other_income (amount REAL, pay_date DATETIME, details TEXT, work_id INTEGER);
INSERT INTO other_income VALUES (7, 37783, 'طباعة', 4);
CREATE TABLE cafe_orders (useid INTEGER, name TEXT, item_count INTEGER, price REAL);
INSERT INTO cafe_orders VALUES (1, 'قهوة', 2, 1.5), (4, 'Tea', 1, 1), (77, 'lost', 1, 1), (6, 'host gone', 1, 1);

CREATE TABLE members_info (member_id INTEGER, accountname TEXT, begindate DATETIME, totaltime REAL,
  membertime REAL, ended BOOLEAN, paid REAL, remin REAL);
INSERT INTO members_info VALUES
  (1, 'شهري', 37785,    100, 600, 0,  50, 0),
  (1, 'شهري', 37780.5,  600, 600, 1,  50, 0),
  (2, 'Gold', 37781.5,  30,  300, 0,  20, 10),
  (2, 'GOLD', 37779,    300, 300, -1, 30, 5),
  (99, 'lost', 37780,   1,   2,   0,  1,  1);

CREATE TABLE user_audit (a_id INTEGER, a_date DATETIME, type INTEGER);
INSERT INTO user_audit VALUES (1, 37781, 7), (2, 37780, 8), (3, 37782, 7);
CREATE TABLE audit_temp (a_id INTEGER, user_name TEXT, comments TEXT);
INSERT INTO audit_temp VALUES (1, 'سعيد', 'دخول'), (2, 'Ali', NULL), (9, 'x', 'no event');
CREATE TABLE aud_tag (tid INTEGER, name TEXT);
INSERT INTO aud_tag VALUES (7, 'دخول'), (8, 'خروج');
CREATE TABLE print_log (printer TEXT, machine TEXT, print_date DATETIME, pages INTEGER, printed INTEGER,
  document TEXT, user_id INTEGER, use_id INTEGER, work_id INTEGER);
INSERT INTO print_log VALUES ('HP', 'PC1', 37780.4, 2, 2, 'doc', 1, 1, 1), ('HP', 'pc2', 37781.4, 5, 4, 'b', 9, NULL, 2);

CREATE TABLE account_src (accid INTEGER, name TEXT);
INSERT INTO account_src VALUES (2, 'البنك'), (1, 'الصندوق'), (3, 'Safe');
CREATE TABLE account_log (acc_from INTEGER, acc_to INTEGER, amount REAL, trans_date DATETIME, descrip TEXT);
INSERT INTO account_log VALUES
  (0, 1, 100.5, 37780.416666666664, 'اليوم'), (1, 2, 40, 37781.75, NULL), (2, 3, 10, 37782.5, ''),
  (3, 2, 4, 37783.5, 'back'), (0, 77, 8, 37784, 'to nobody');
)";
}

const char* SupervisorsQuery() {
    return "PARAMETERS d1 Long, d2 Long;\r\n"
           "SELECT u.id, h.use_date, u.user_name, Sum(l.use_time) AS total\r\n"
           "FROM (local_log AS l INNER JOIN users AS u ON l.user_id = u.id)\r\n"
           "INNER JOIN host_log_time AS h ON l.work_id = h.id\r\n"
           "WHERE [d1] Is Null Or l.work_id Between [d1] And [d2]\r\n"
           "GROUP BY u.id, h.use_date, u.user_name ORDER BY h.use_date;";
}

void FillCafe(SmallDatabase& database) {
    database.Native(CafeScript());
    database.Save("users_income2", SupervisorsQuery());
}

} // namespace qbrpt::dialect
