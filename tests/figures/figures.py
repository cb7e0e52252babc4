#!/usr/bin/python3
"""Holds every report against rows that are worked out by other means.

    figures.py QBRPT [FOLDER]

Makes a café of 30 days, and a second one with all that a café's tables may hold against the rules. Runs each
command on both, with several arguments, and compares its table, and the title and the totals of its pages, with
what `reports` finds in the tables. Files stay in FOLDER where one is named."""

import collections
import csv
import os
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile

import reports
from cafe import Cafe, moment_of
from fields import FIELDS

CAFE_NAME = "مقهى الأرقام"
MARKS = re.compile("[\u200e\u200f\u202a-\u202e\u2066-\u2069]")  # that steer the order of a line
ODD = """
    UPDATE members SET name = NULL WHERE id % 7 = 3;
    DELETE FROM members WHERE id % 7 = 5;
    DELETE FROM membership WHERE id = 3;
    DELETE FROM users WHERE id = 5;
    DELETE FROM daily_sheet WHERE work_id = 4;
    DELETE FROM total_use_count WHERE work_id IN (4, 6);
    UPDATE daily_sheet SET print_income = NULL, max_log_time = NULL WHERE work_id = 5;
    UPDATE local_log SET host_id = 77 WHERE id % 50 = 1;
    UPDATE local_log SET host_id = NULL WHERE id % 50 = 2;
    UPDATE local_log SET end_time = NULL WHERE id % 40 = 3;
    UPDATE local_log SET use_time = NULL, paid = NULL WHERE id % 60 = 7;
    UPDATE local_log SET utype = NULL WHERE id % 90 = 8;
    UPDATE print_log SET use_id = NULL WHERE rowid % 5 = 0;
    UPDATE print_log SET use_id = 99999999, user_id = 99 WHERE rowid % 5 = 1;
    UPDATE cafe_orders SET useid = NULL WHERE rowid % 9 = 0;
    UPDATE members_payment SET member_id = NULL, amount = NULL WHERE rowid % 9 = 0;
    UPDATE internet_usage SET second_count = NULL WHERE id % 11 = 0;
    UPDATE internet_usage SET device_name = upper(device_name) WHERE id % 4 = 0;
    UPDATE audit_temp SET a_id = -1 WHERE rowid % 6 = 0;
    UPDATE members_info SET begindate = NULL WHERE rowid % 13 = 0;
    UPDATE members_info SET remin = NULL WHERE rowid % 17 = 0;
    UPDATE pp_dat SET se_id = se_id + 1 WHERE se_id % 10 = 9;
    UPDATE pay_out SET details = '=1+1, "x"' || char(10) || details WHERE rowid % 8 = 0;
    CREATE TABLE hosts AS SELECT * FROM host_src;
    DROP TABLE host_src;
    CREATE TABLE host_src (id INTEGER, name VARCHAR(30));
    INSERT INTO host_src SELECT * FROM hosts;
    INSERT INTO host_src VALUES (2, 'PC two'), (2, 'pc TWO'), (3, NULL), (NULL, 'PC none'), (90, 'PC idle');
    UPDATE host_src SET name = 'abcdefghijklmnopqrstuvwxyz 1234' WHERE id = 5;
    DELETE FROM saved_query WHERE name = 'users_income2';
"""
PAIRED = ("SELECT s.name, a.se_id, a.card_id, a.card_pass, b.se_id, b.card_id, b.card_pass FROM (pp_src AS s INNER "
          "JOIN pp_dat AS a ON s.acctid = a.acctid) LEFT JOIN pp_dat AS b ON (a.acctid = b.acctid AND a.se_id + 1 = "
          "b.se_id) WHERE a.se_id Mod 2 = 1 ORDER BY a.se_id")
LISTED = ("SELECT s.acctid, s.name, s.disabled, s.reg_date, d.pp_id, d.se_id & '', d.disabled, d.use_date, d.expired, "
          "d.use_time, d.use_type, d.used_time, d.expiry FROM pp_src AS s INNER JOIN pp_dat AS d ON s.acctid = "
          "d.acctid ORDER BY d.pp_id")
INFO = "PrintMembersInfo"
RANGES = [(1, 30), (5, 9), (9, 5), (7, 7), (7, 0), (0, 0), (0, 7), (4, 8), (-3, 5), (99, 0)]

CASES = [
    *[("PrintIncome", (d1, d2, 0), reports.income) for d1, d2 in RANGES],
    *[("PrintMemberUsage", args, reports.member_usage) for args in [(0, 0), (6, 0), (0, 4), (6, 4), (-1, 0)]],
    *[("PrintPPUsage", args, reports.card_usage) for args in [(0, 7), (1, 7), (0, 10), (0, 0)]],
    *[("PrintPCUsage", args, reports.host_usage)
      for args in [(0, 0, 0), (45660, 45667, 0), (45667.75, 45660.25, 0), (45663.5, 0, 0), (45660, 45667, 2),
                   (0, 45670, 0), (0, 0, 5), (0, 0, 90), (40000, 40001, 0)]],
    *[("PrintInternetUsage", args, reports.internet_usage)
      for args in [(0, 0), (45660, 45662, 0), (45660, 45662, 1), (45662, 45660, 0), (45665, 0, 0), (45665, 45665, 1),
                   (0, 45662, 0), (40000, 0)]],
    *[("PrintMembersIncom", args, reports.payments) for args in RANGES],
    *[("PrintPayout", args, reports.money_list("pay_out", "المصروفات الخارجية ")) for args in RANGES],
    *[("PrintOtherIncome", args, reports.money_list("other_income", "الإيرادات الخارجية ")) for args in RANGES],
    *[("PrintServicesIncome", args, reports.services) for args in RANGES],
    *[("PrintUsage", (*args, 0), reports.session_list) for args in RANGES],
    *[("PrintUsage", args, reports.session_list)
      for args in [(3, 5, 2), (0, 0, 5), (0, 0, 0, 1, 1), (3, 1, 3, 1, 1), (0, 0, 77)]],
    (INFO, ("WHERE members_info.remin <> 0",), reports.members_info(lambda info, person: info.remin not in (None, 0))),
    (INFO, ("where Not MEMBERS_INFO.ended",), reports.members_info(lambda info, person: not info.ended)),
    (INFO, ("WHERE Members.id Between 20 And 10",), reports.members_info(lambda info, person: 10 <= person.id <= 20)),
    (INFO, ("WHERE CLng(members_info.begindate) BETWEEN 45660 AND 45665",),
     reports.members_info(reports.begins_within(45660, 45665))),
    (INFO, (" ",), reports.members_info(lambda info, person: True)),
    (INFO, ("WHERE members.id = -1",), reports.members_info(lambda info, person: False)),
    *[("PrintUsersIncome", args, reports.supervisors) for args in RANGES],
    ("PrintPPCards", (PAIRED,), reports.cards),
    ("PrintPPInfo", (LISTED, "قائمة البطاقات"), reports.card_list),
    ("PrintAudit", (), reports.audit),
    *[("PrintPrintLog", args, reports.print_log) for args in RANGES],
]


def shown(kind, value):
    """A value as the table must show it, numbers to nine digits."""
    if value is None:
        return ""
    if kind.startswith("t"):
        return str(value)[:int(kind[1:])]
    if kind == "d":
        return moment_of(value).strftime("%Y-%m-%d %H:%M:%S")
    if kind == "b":
        return "true" if value else "false"
    return f"{value:.9g}"


def read(kind, cell):
    return f"{float(cell):.9g}" if kind == "n" and cell else cell


def printed(how, value):
    if how == reports.MONEY:
        return f"{value:,.2f}"
    if how == reports.COUNT:
        return f"{value:,.0f}"
    minutes = int(value + 0.5)
    return f"{minutes // 60:,}:{minutes % 60:02}"


def page_text(file, first, last):
    text = subprocess.run(["pdftotext", "-layout", "-f", str(first), "-l", str(last), file, "-"], check=True,
                          capture_output=True, text=True).stdout
    return " ".join(MARKS.sub("", text).split())


def page_count(file):
    info = subprocess.run(["pdfinfo", file], check=True, capture_output=True, text=True).stdout
    return int(re.search(r"^Pages:\s+(\d+)", info, re.MULTILINE).group(1))


class Check:
    """One command with its arguments on one café."""

    def __init__(self, tool, folder, cafe, command, arguments, make):
        self.tool, self.folder, self.cafe = tool, folder, cafe
        self.command, self.arguments, self.make = command, arguments, make
        self.faults = []

    def run(self):
        expected = self.make(self.cafe, *self.arguments)
        table, pages = (os.path.join(self.folder, name) for name in ("table.csv", "pages.pdf"))
        for file in (table, pages):
            if os.path.exists(file):
                os.remove(file)
        words = [self.tool, self.command, "--db", self.cafe.file, "--csv", table, "--pdf", pages, "--title", CAFE_NAME,
                 "--", *map(str, self.arguments)]
        result = subprocess.run(words, capture_output=True, text=True)
        wanted = 0 if expected.rows else 3
        if result.returncode != wanted:
            self.faults.append(f"exit status {result.returncode}, not {wanted}: {result.stderr.strip()}")
        elif expected.rows:
            self.compare_table(table, expected)
            self.compare_pages(pages, expected)
        return not self.faults

    def compare_table(self, file, expected):
        names, kinds = zip(*(field.split(":") for field in FIELDS[self.command].split()))
        with open(file, encoding="utf-8-sig", newline="") as stream:
            header, *found = csv.reader(stream)
        if tuple(header) != names:
            self.faults.append(f"columns {header}")
            return
        found = [tuple(map(read, kinds, row)) for row in found]
        wanted = [tuple(map(shown, kinds, row)) for row in expected.rows]
        if expected.exact and found != wanted and sorted(found) == sorted(wanted):
            self.faults.append("the rows stand in another order")
        missing = collections.Counter(wanted) - collections.Counter(found)
        surplus = collections.Counter(found) - collections.Counter(wanted)
        if missing or surplus:
            self.faults.append(f"{len(found)} rows, not {len(wanted)}; missing {list(missing)[:2]}, "
                               f"surplus {list(surplus)[:2]}")
        elif expected.order:
            keys = collections.defaultdict(set)
            for row, shape in zip(expected.rows, wanted):
                keys[shape].add(expected.order(row))
            order = [min(keys[row]) for row in found]
            if order != sorted(order):
                self.faults.append("the rows are not in their order")

    def compare_pages(self, file, expected):
        pages = page_count(file)
        first, last = page_text(file, 1, 1), page_text(file, pages, pages)
        for text in (CAFE_NAME, " ".join(expected.title.split())):
            if text not in first:
                self.faults.append(f"the first page lacks {text!r}")
        self.find_totals(expected, expected.rows, "the last page", last.split())
        count = len(expected.rows)
        if expected.counted and count > 2 and f"{count:,}" not in last.split():
            self.faults.append(f"the last page lacks the number of rows, {count:,}")
        if expected.group is None:
            return
        groups = collections.defaultdict(list)
        for row in expected.rows:
            groups[row[expected.group]].append(row)
        every = set(page_text(file, 1, pages).split())
        for name, rows in groups.items():
            self.find_totals(expected, rows, f"the group {name!r}", every)

    def find_totals(self, expected, rows, place, words):
        for column, how in expected.totals.items():
            values = [column(row) if callable(column) else row[column] for row in rows]
            values = [value for value in values if value is not None]
            if values and printed(how, sum(values)) not in words:
                self.faults.append(f"{place} lacks the sum {printed(how, sum(values))}")


def make_cafes(tool, folder):
    plain, odd = (os.path.join(folder, name) for name in ("plain.db", "odd.db"))
    subprocess.run([tool, "sample", plain, "--days", "30"], check=True)
    shutil.copy(plain, odd)
    connection = sqlite3.connect(odd)
    connection.executescript(ODD)
    connection.close()
    return Cafe(plain), Cafe(odd)


def check_all(tool, folder):
    bad = 0
    for cafe in make_cafes(tool, folder):
        for command, arguments, make in CASES:
            check = Check(tool, folder, cafe, command, arguments, make)
            if not check.run():
                bad += 1
                print(f"{os.path.basename(cafe.file)}: {command} {' '.join(map(str, arguments))}")
                for fault in check.faults:
                    print(f"    {fault}")
    print(f"{2 * len(CASES) - bad} of {2 * len(CASES)} reports hold what the tables say")
    return bad


def main(words):
    if len(words) not in (2, 3):
        print(__doc__, file=sys.stderr)
        return 2
    if len(words) == 3:
        os.makedirs(words[2], exist_ok=True)
        return 1 if check_all(words[1], words[2]) else 0
    with tempfile.TemporaryDirectory() as folder:
        return 1 if check_all(words[1], folder) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
