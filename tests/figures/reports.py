"""What each report must hold, worked out of whole tables in plain loops.

A maker takes the café and the command's arguments, and gives an Expected."""

from dataclasses import dataclass, field

from cafe import alphabetical, date_text, minus, moment_within, period_text, plus, times, total, whole, within


@dataclass
class Expected:
    rows: list  # tuples, in the order of the fields
    title: str = ""  # in the heading; empty where the layout's own stands
    totals: dict = field(default_factory=dict)  # column, or what is worked out of a row: how its sum is printed
    group: int = None  # the column by which the pages make groups with sums of their own
    counted: bool = True  # the number of rows stands behind them
    order: object = None  # a key by which the rows stand; None where none is asked for
    exact: bool = False  # every row has a place of its own


MONEY, COUNT, MINUTES = "money", "count", "minutes"


def period_filter(value, d1, d2):
    """The period clause of most commands, on a work identifier."""
    if d1 != 0 and d2 != 0 and d1 != d2:
        return within(value, d1, d2)
    return d1 == 0 or value == d1


def period_title(cafe, words, d1, d2):
    first = cafe.work_date(d1)
    last = cafe.work_date(d2) if d2 not in (0, d1) else first
    return words + period_text(first, last)


def income(cafe, d1, d2, _group=0):
    rows = []
    for day in sorted(cafe.host_log_time, key=lambda row: row.id):
        if d1 > 0 and d2 > 0 and d1 != d2:
            if not within(day.id, d1, d2):
                continue
        elif d1 > 0 and day.id != d1:
            continue
        for counts in cafe.having("total_use_count", "work_id", day.id) or [None]:
            for sheet in cafe.having("daily_sheet", "work_id", day.id) or [None]:
                s = lambda name: sheet[name] if sheet else None
                t = lambda name: counts[name] if counts else None
                rows.append((s("min_log_time"), s("max_log_time"), date_text(s("date")),
                             plus(s("net_income"), s("print_income")), s("members_income"), s("pp_income"),
                             s("other_income"), s("total_discount"), 0, s("total_income"), t("prints"), t("pp"),
                             t("general"), t("member"), s("work_time"), t("total_time"), s("pc_count")))
    title = period_title(cafe, "تقرير بالإيراد ", d1, d1 if d1 > 0 and d2 <= 0 else d2)
    totals = {3: MONEY, 4: MONEY, 5: MONEY, 6: MONEY, 7: MONEY, 9: MONEY, 10: COUNT, 11: COUNT, 12: COUNT, 13: COUNT}
    return Expected(rows, title, totals, exact=True)


def member_usage(cafe, usage, member):
    rows = []
    for log in cafe.local_log:
        if log.utype != 2 or (usage != 0 and log.active_membership != usage):
            continue
        if usage == 0 and member != 0 and log.member_id != member:
            continue
        for person in cafe.having("members", "id", log.member_id):
            for sold in cafe.having("members_time", "id", log.active_membership):
                for kind in cafe.having("membership", "id", sold.membership_id) or [None]:
                    rows.append(((person.name or "") + " ", kind.name if kind else None, log.log_time, log.end_time,
                                 log.use_time, None))
    return Expected(rows, totals={4: MINUTES}, group=0)


def card_usage(cafe, work, sold_id):
    rows = []
    for log in cafe.local_log:
        if log.active_membership != sold_id or log.utype in (None, 0) or (work != 0 and log.work_id != work):
            continue
        for sold in cafe.having("members_time", "id", log.active_membership):
            for kind in cafe.having("membership", "id", sold.membership_id):
                for card in cafe.having("pp_dat", "pp_id", sold.pp_id):
                    number = "" if card.se_id is None else f"{card.se_id:05}"
                    rows.append((f"بطاقة رقم {number} ", kind.name, log.log_time, log.end_time, log.use_time, None))
    return Expected(rows, totals={4: MINUTES})


def host_usage(cafe, d1, d2, host=0):
    d2 = d2 or d1
    bounded = d1 != 0 and d2 != 0 and d1 != d2
    finished = [log for log in cafe.local_log
                if log.end_time is not None and (not bounded or moment_within(log.end_time, d1, d2))]
    of_host = {}
    for log in finished:
        if log.host_id is not None:
            of_host.setdefault(log.host_id, []).append(log)
    share_of = total(log.use_time for log in finished) or 1
    lines = {}
    for source in cafe.host_src:
        if source.id in of_host and (host == 0 or source.id == host):
            names = lines.setdefault((source.id, None if source.name is None else source.name.casefold()), [])
            names.append(source.name)
    rows = []
    for (number, _), names in lines.items():
        logs = of_host[number]
        outer = logs * len(names)  # a host that stands twice meets each of its sessions twice
        general = [log for log in logs if log.member_id is None]
        used = total(log.use_time for log in outer)
        rows.append((None if names[0] is None else min(names),
                     total(log.use_time for log in logs if log.member_id is not None),
                     total(log.use_time for log in general), total(log.use_time for log in logs),
                     total(times(log.net_cost, log.use_time) for log in general),
                     total(log.print_count for log in outer),
                     total(times(log.print_count, log.print_cost) for log in outer),
                     total(plus(log.paid, log.discount) for log in outer), total(log.discount for log in outer),
                     total(log.paid for log in outer), None if used is None else used / share_of))
    title = "تقرير عن الاستخدام" + (" الخاص بالجهاز " + cafe.host_name(host) if host else " حسب الأجهزة ")
    totals = {1: MINUTES, 2: MINUTES, 4: MONEY, 5: COUNT, 6: MONEY, 7: MONEY, 8: MONEY, 9: MONEY}
    return Expected(rows, title + period_text(d1 // 1, d2 // 1), totals, order=lambda row: alphabetical(row[0]))


def internet_usage(cafe, d1, d2, group=1):
    last = (d2 if d2 != 0 else d1) + 1
    used = [row for row in cafe.internet_usage if d1 == 0 or moment_within(row.use_date, d1, last)]
    if group == 0:
        rows = [(row.device_name, date_text(row.use_date, "ddd, dd MMM yyyy"),
                 None if row.second_count is None else row.second_count / 60) for row in used]
    else:
        devices = {}
        for row in used:
            devices.setdefault((row.device_name or "").casefold(), []).append(row)
        rows = [(min(row.device_name for row in of), f"{len(of)}  يوم/أيام",
                 total(None if row.second_count is None else row.second_count / 60 for row in of))
                for of in devices.values()]
    return Expected(rows, "أوقات استهلاك الإنترنت  " + period_text(d1, d2), {2: MINUTES})


def payments(cafe, d1, d2):
    rows = []
    for paid in cafe.members_payment:
        if not period_filter(paid.work_id, d1, d2):
            continue
        for person in cafe.having("members", "id", paid.member_id) or [None]:
            for kind in cafe.having("membership", "id", paid.membership_id) or [None]:
                name = person.name if person and person.name is not None else "عميل تم حذفه"
                sort = kind.name if kind and kind.name is not None else "اشتراك محذوف"
                rows.append((paid.pay_date, name, paid.amount, sort))
    return Expected(rows, totals={2: MONEY})


def money_list(table, words):
    def make(cafe, d1, d2):
        rows = [(row.amount, row.pay_date, row.details) for row in getattr(cafe, table)
                if period_filter(row.work_id, d1, d2)]
        return Expected(rows, period_title(cafe, words, d1, d2), {0: MONEY})

    return make


def services(cafe, d1, d2):
    rows = []
    for order in cafe.cafe_orders:
        for log in cafe.having("local_log", "id", order.useid):
            if period_filter(log.work_id, d1, d2):
                for host in cafe.having("host_src", "id", log.host_id):
                    rows.append((order.name, order.item_count, order.price, log.end_time, host.name))
    words = "تقرير بخدمات الزبائن "
    totals = {1: COUNT, (lambda row: times(row[1], row[2])): MONEY}
    return Expected(rows, period_title(cafe, words, d1, d2) if d1 > 0 else words, totals)


def session_list(cafe, d1, d2, host=0, _show=1, deleted=0):
    rows = []
    for log in cafe.local_log_delete if deleted else cafe.local_log:
        if log.end_time is None or (host != 0 and log.host_id != host):
            continue
        if d1 & d2 != 0 and d1 != d2:  # a bitwise And: 4 and 8 are no range
            if not within(log.work_id, d1, d2):
                continue
        elif d1 != 0 and log.work_id != d1:
            continue
        for member in cafe.having("members", "id", log.member_id) or [None]:
            for user in cafe.having("users", "id", log.user_id) or [None]:
                for place in cafe.having("host_src", "id", log.host_id):  # a session of no host shows nowhere
                    name = "مستخدم عام"
                    if log.member_id is not None:
                        name = member.name if member and member.name is not None else "عميل محذوف"
                    rows.append((place.name, name, log.log_time, log.use_time, log.idle_time,
                                 log.net_cost, log.print_count, log.other_cost, log.discount, log.paid,
                                 user.user_name if user else None))
    words = "تفاصيل الاستخدام المحذوف " if deleted else "تفاصيل الاستخدام "
    totals = {3: MINUTES, 4: MINUTES, 6: COUNT, 7: MONEY, 8: MONEY, 9: MONEY}
    return Expected(rows, period_title(cafe, words, d1, d2), totals,
                    order=lambda row: (alphabetical(row[0]), row[2] or 0), group=0)


def members_info(condition):
    def make(cafe, _text):
        rows = []
        for info in cafe.members_info:
            for person in cafe.having("members", "id", info.member_id):
                if condition(info, person):
                    left = 0 if info.ended else minus(info.membertime, info.totaltime)
                    rows.append((person.name, info.accountname, info.begindate, info.totaltime, left, info.paid,
                                 info.remin, person.id, info.ended))
        rows.sort(key=lambda row: (row[7], row[2] or 0, (row[1] or "").casefold(), not row[8]))
        return Expected([row[:7] for row in rows], totals={3: MINUTES, 4: MINUTES, 5: MONEY, 6: MONEY}, exact=True)

    return make


def begins_within(first, last):
    return lambda info, person: info.begindate is not None and within(whole(info.begindate), first, last)


def supervisors(cafe, d1, d2):
    """The saved query of whole days where the file has it, else the one over sessions."""
    days = any(query.name.lower() == "users_income2" for query in cafe.saved_query)
    first, last = (d1, d2) if d1 != 0 and d2 != 0 and d1 != d2 else (d1, d1)
    rows = []
    for day in sorted(cafe.supervisor_day, key=lambda row: (row.work_id, row.user_id)):
        if d1 != 0 and not within(day.work_id, first, last):
            continue
        for work in cafe.having("host_log_time", "id", day.work_id):
            user = (cafe.having("users", "id", day.user_id) or [None])[0]
            used = [day.total_use, day.local_time, day.members_time, day.print_income, day.main_income, day.discount]
            if not days:
                logs = [log for log in cafe.having("local_log", "work_id", day.work_id)
                        if log.user_id == day.user_id and log.end_time is not None]
                if not logs:
                    continue
                prints = [times(log.print_count, log.print_cost) for log in logs]
                paid = [minus(plus(log.paid, log.discount), price) for log, price in zip(logs, prints)]
                used = [total(log.use_time for log in logs),
                        total(log.use_time if log.member_id is None else 0 for log in logs),
                        total(0 if log.member_id is None else log.use_time for log in logs),
                        total(prints), total(paid), total(log.discount for log in logs)]
            rows.append((day.user_id, work.use_date, user.user_name if user else None, day.work_time, *used,
                         day.members_income, day.other_income, day.prepaid_income))
    words = "تقرير بالإيراد حسب المشرفين"
    totals = {3: MINUTES, 4: MINUTES, 7: MONEY, 8: MONEY, 9: MONEY, 10: MONEY, 11: MONEY, 12: MONEY}
    title = period_title(cafe, words + " ", d1, d2) if d1 > 0 else words
    return Expected(rows, title, totals, exact=True, group=0)


def audit(cafe):
    rows = []
    for note in cafe.audit_temp:
        for event in cafe.having("user_audit", "a_id", note.a_id):
            for tag in cafe.having("aud_tag", "tid", event.type):
                rows.append((tag.name, event.a_date, note.user_name, note.comments))
    return Expected(rows, order=lambda row: row[1] or 0)


def print_log(cafe, d1, d2):
    rows = []
    for job in cafe.print_log:
        if not period_filter(job.work_id, d1, d2):
            continue
        for user in cafe.having("users", "id", job.user_id) or [None]:
            for log in cafe.having("local_log", "id", job.use_id) or [None]:
                rows.append((job.printer, job.machine, job.print_date, job.pages, job.printed,
                             "مستخدم" if log else "غير مستخدم", log.print_count if log else None, job.document,
                             user.user_name if user else None))
    title = period_title(cafe, "تقرير بعمليات الطباعة ", d1, d2) if d1 > 0 else "تقرير كلي لعمليات الطباعة"
    return Expected(rows, title, {3: COUNT, 4: COUNT, 6: COUNT})


def cards(cafe, _text):
    """Two cards a row: an odd number, and the next one of the same account beside it."""
    rows = []
    for account in cafe.pp_src:
        of = cafe.having("pp_dat", "acctid", account.acctid)
        for card in of:
            if card.se_id % 2 == 1:
                for beside in [other for other in of if other.se_id == card.se_id + 1] or [None]:
                    second = (beside.se_id, beside.card_id, beside.card_pass) if beside else (None, None, None)
                    rows.append((account.name, card.se_id, card.card_id, card.card_pass, *second))
    return Expected(rows, order=lambda row: row[1], counted=False)


def card_list(cafe, _text, caption):
    rows = []
    for account in cafe.pp_src:
        for card in cafe.having("pp_dat", "acctid", account.acctid):
            rows.append((account.acctid, account.name, bool(account.disabled), account.reg_date, card.pp_id,
                         str(card.se_id), bool(card.disabled), card.use_date, bool(card.expired), card.use_time,
                         card.use_type, card.used_time, card.expiry))
    return Expected(rows, caption, {9: MINUTES, 11: MINUTES}, order=lambda row: row[4])
