#include "income_database.h"

#include "sample/sample.h"

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <ctime>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace qbrpt::bench {

namespace {

struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

Handle Open(const std::string& file) {
    sqlite3* handle = nullptr;
    const int status = sqlite3_open_v2(file.c_str(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    Handle owned(handle);
    if (status != SQLITE_OK) throw std::runtime_error(file + " cannot be opened");
    return owned;
}

void Execute(sqlite3* handle, const std::string& sql) {
    if (sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle));
}

constexpr std::size_t TextBytes = 64;
using Text = std::array<char, TextBytes>;

int DateText(double dayNumber, const char* picture, Text& text) {
    constexpr double unixEpoch = 25569;
    const auto seconds = static_cast<std::time_t>((dayNumber - unixEpoch) * 86400 + 0.5);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    return static_cast<int>(std::strftime(text.data(), text.size(), picture, &parts));
}

/// One value as a page would show it.
int ValueText(sqlite3_stmt* row, int column, Text& text) {
    constexpr int dayColumn = 2;
    if (sqlite3_column_type(row, column) == SQLITE_NULL) return 0;
    const double number = sqlite3_column_double(row, column);
    if (column < dayColumn) return DateText(number, "%H:%M", text);
    if (column == dayColumn) return DateText(number, "%a %d %b %Y", text);
    return std::snprintf(text.data(), text.size(), "%.2f", number);
}

} // namespace

void MakeIncomeDatabase(const std::string& file, int days) {
    constexpr int sampleDays = 60;
    sample::SampleOptions options;
    options.file = file;
    options.days = sampleDays;
    sample::MakeSampleDatabase(options);

    const Handle handle = Open(file);
    const std::string further =
        "WITH RECURSIVE copies(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM copies WHERE n < " +
        std::to_string((days + sampleDays - 1) / sampleDays - 1) + ") ";
    const std::string shift = " + 60 * n";
    Execute(handle.get(), "BEGIN");
    if (days > sampleDays) {
        Execute(handle.get(), further + "INSERT INTO host_log_time SELECT id" + shift + ", use_date" + shift +
                                  " FROM copies, host_log_time");
        Execute(handle.get(), further + "INSERT INTO total_use_count SELECT work_id" + shift +
                                  ", prints, pp, general, member, total_time FROM copies, total_use_count");
        Execute(handle.get(), further + "INSERT INTO daily_sheet SELECT work_id" + shift + ", date" + shift +
                                  ", work_time, min_log_time" + shift + ", max_log_time" + shift +
                                  ", net_income, print_income, members_income, pp_income, other_Income, "
                                  "total_discount, total_income, pc_count FROM copies, daily_sheet");
    }
    Execute(handle.get(), "DELETE FROM host_log_time WHERE id > " + std::to_string(days));
    Execute(handle.get(), "COMMIT");
}

long ReadIncomeBare(const std::string& file) {
    const Handle handle = Open(file);
    constexpr std::string_view sql =
        "SELECT min_log_time, max_log_time, d.date, net_income + print_income, members_income, pp_income, "
        "other_Income, total_discount, 0, total_income, t.prints, t.pp, t.general, t.member, d.work_time, "
        "t.total_time, pc_count FROM host_log_time AS h LEFT JOIN total_use_count AS t ON t.work_id = h.id "
        "LEFT JOIN daily_sheet AS d ON d.work_id = h.id ORDER BY h.id";
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(handle.get(), sql.data(), static_cast<int>(sql.size()), &prepared, nullptr) !=
        SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle.get()));
    const Statement statement(prepared);
    const int columns = sqlite3_column_count(prepared);
    long rows = 0;
    long letters = 0;
    Text text{};
    for (; sqlite3_step(prepared) == SQLITE_ROW; ++rows)
        for (int column = 0; column < columns; ++column)
            letters += ValueText(prepared, column, text);
    if (letters == 0) throw std::runtime_error("nothing was formatted");
    return rows;
}

} // namespace qbrpt::bench
