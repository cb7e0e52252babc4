"""A café's database as plain rows of Python, and the system's rules for numbers, moments and periods.

Nothing here asks the database for more than whole tables: what the reports show is worked out in loops."""

import calendar
import datetime
import sqlite3

HALF_MILLISECOND = 0.5 / 86_400_000
DAYS = ["الاثنين", "الثلاثاء", "الأربعاء", "الخميس", "الجمعة", "السبت", "الأحد"]  # from Monday
MONTHS = ["يناير", "فبراير", "مارس", "أبريل", "مايو", "يونيو",
          "يوليو", "أغسطس", "سبتمبر", "أكتوبر", "نوفمبر", "ديسمبر"]


class Row(dict):
    """One row of a table; columns in any case."""

    def __getattr__(self, name):
        return self[name.lower()]


class Cafe:
    """The tables of one file."""

    def __init__(self, file):
        self.file = file
        self._tables = {}

    def __getattr__(self, name):
        if name not in self._tables:
            connection = sqlite3.connect(self.file)
            cursor = connection.execute(f'SELECT * FROM "{name}"')
            names = [column[0].lower() for column in cursor.description]
            self._tables[name] = [Row(zip(names, values)) for values in cursor]
            connection.close()
        return self._tables[name]

    def having(self, table, column, value):
        """The rows whose column equals the value; none for null, which equals nothing."""
        if value is None:
            return []
        key = (table, column)
        if key not in self._tables:
            index = {}
            for row in getattr(self, table):
                index.setdefault(row[column], []).append(row)
            self._tables[key] = index
        return self._tables[key].get(value, [])

    def work_date(self, work):
        """GetWorkDate, rounded to a whole day."""
        rows = self.having("host_log_time", "id", work)
        return whole(rows[0].use_date) if rows and rows[0].use_date is not None else 0

    def host_name(self, host):
        rows = self.having("host_src", "id", host)
        return (rows[0].name or "") if rows else ""


def alphabetical(text):
    """A key for the order of plain names without regard to case: nothing, signs, digits, Arabic, Latin."""
    rank = lambda letter: (1 if letter.isdigit() else 3 if letter < "\u0080" else 2) if letter.isalnum() else 0
    return tuple((rank(letter), letter) for letter in (text or "").casefold())


def whole(number):
    """Rounds halves to the even neighbour."""
    return round(number)


def within(value, first, last):
    """Between, with the bounds in either order."""
    return value is not None and min(first, last) <= value <= max(first, last)


def moment_within(value, first, last):
    return value is not None and (min(first, last) - HALF_MILLISECOND <= value <= max(first, last) + HALF_MILLISECOND)


def total(values):
    """Sum: passes over nulls, and is null where nothing is left."""
    kept = [value for value in values if value is not None]
    return sum(kept) if kept else None


def plus(*values):
    return None if None in values else sum(values)


def minus(left, right):
    return None if left is None or right is None else left - right


def times(left, right):
    return None if left is None or right is None else left * right


def moment_of(number):
    """The moment of a day number, to the nearest second; half a second still belongs to the one before."""
    seconds = (whole(number * 86_400_000) + 499) // 1000
    return datetime.datetime(1899, 12, 30) + datetime.timedelta(seconds=seconds)


def date_text(number, picture="ddd dd MMM yyyy"):
    """Format, and the pictures of titles: those that the system uses."""
    if number is None:
        return ""
    day = moment_of(number).date()
    words = {"ddd": DAYS[day.weekday()], "dd": f"{day.day:02}", "MMM": MONTHS[day.month - 1], "yyyy": f"{day.year:04}"}
    return " ".join(words[word.rstrip(",")] + ("," if word.endswith(",") else "") for word in picture.split(" "))


def period_text(first, last):
    """GetPeriodText in Arabic without the time of day; 0 means no date."""
    start, end = (first, first) if last == 0 else (min(first, last), max(first, last))
    full = "ddd dd MMM yyyy"
    title = lambda number, picture: "" if number == 0 else date_text(number, picture)
    if int(start // 1) == int(end // 1):
        return "ليوم " + title(start, full)
    a, b = moment_of(start), moment_of(end)
    months = a.day == 1 and b.day == calendar.monthrange(b.year, b.month)[1]
    if months and a.month == b.month and a.year == b.year:
        return "لشهر " + title(end, "MMM yyyy")
    pictures = ("MMM", "MMM yyyy") if months else ("ddd dd MMM", full)
    if a.year != b.year:
        pictures = (pictures[1], pictures[1])
    return "من " + title(start, pictures[0]) + " إلى " + title(end, pictures[1])
