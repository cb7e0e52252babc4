// Times the heavy statements against what a person would write by hand for SQLite. Both ways run in turn in
// one process, so that a busy machine slows them alike; figures are the least processor time of all turns.
//
//   bench_statements make FILE     writes a café of a million sessions
//   bench_statements strip FILE    takes the indexes out of it
//   bench_statements time FILE     a line of a table for each statement
//   bench_statements show FILE     what the statements become, and how the engine goes about them
//   bench_statements make-ledger|time-ledger|show-ledger FILE
//                                  the same with 1,000 accounts and a journal of a million lines
#include "adapters/database/read_rows.h"
#include "adapters/database/sqlite/sqlite_connection.h"
#include "adapters/database/sqlite/sqlite_open.h"
#include "adapters/database/sqlite/sqlite_statement.h"
#include "sample/random.h"
#include "sample/sample.h"
#include "sample/writer.h"
#include "statements.h"
#include "stopwatch.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

using namespace qbrpt;
using bench::StatementPair;

void MakeDatabase(const std::string& file) {
    sample::SampleOptions options;
    options.file = file;
    options.days = 400;
    options.sessionsPerDay = 2500;
    sample::MakeSampleDatabase(options);
}

// Without keys and indexes, as a host may have made them.
void MakeLedger(const std::string& file) {
    sample::Writer writer(file);
    writer.Run("CREATE TABLE account_src(accid INTEGER, name TEXT)");
    writer.Run("CREATE TABLE account_log(acc_from INTEGER, acc_to INTEGER, amount REAL, trans_date DATETIME, "
               "descrip TEXT)");
    constexpr int accounts = 1000;
    constexpr int lines = 1'000'000;
    constexpr double firstDay = 37780;
    sample::Random random(1);
    sample::Inserter names(writer, "account_src", 2);
    for (int account = 1; account <= accounts; ++account)
        names.Add(account, "account " + std::to_string(account));
    sample::Inserter journal(writer, "account_log", 5);
    for (int line = 0; line < lines; ++line)
        journal.Add(random.Between(0, accounts), random.Between(1, accounts),
                    0.25 * random.Between(1, 40'000), firstDay + line / 1440.0, std::string_view("transfer"));
    writer.Finish();
}

void DropIndexes(const std::string& file) {
    const database::SqliteHandle handle = database::OpenSqliteFile(file, false, false);
    std::string drops;
    database::SqliteStatement names(
        handle.get(), "SELECT name FROM sqlite_schema WHERE type = 'index' AND sql IS NOT NULL", "");
    for (RowView row; names.Step(row);)
        drops += "DROP INDEX " + std::string(row[0].text) + ";";
    if (sqlite3_exec(handle.get(), drops.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(handle.get()));
}

/// The least time that a piece of work has taken, and what it counted.
struct Best {
    double seconds = std::numeric_limits<double>::max();
    std::size_t rows = 0;

    template <class Work>
    void Run(Work&& work) {
        bench::Stopwatch watch;
        watch.Around([&] { rows = work(); });
        seconds = std::min(seconds, watch.Total().processor);
    }
};

/// Every cell is looked at, and nothing is kept.
std::size_t Walk(database::Connection& connection, const std::string& sql) {
    const auto statement = connection.Prepare(sql, "");
    std::size_t rows = 0;
    for (RowView row; statement->Step(row); ++rows) {}
    return rows;
}

std::size_t Store(database::Connection& connection, const std::string& text) {
    const auto translation = connection.Translate(text);
    const auto statement = connection.Prepare(translation.sql, text);
    return database::ReadRows(*statement, translation.columns, {})->RowCount();
}

void Measure(database::Connection& connection, const StatementPair& pair) {
    constexpr int turns = 5;
    Best byHand;
    Best ours;
    Best stored;
    for (int turn = 0; turn < turns; ++turn) {
        byHand.Run([&] { return Walk(connection, pair.byHand); });
        ours.Run([&] { return Walk(connection, connection.Translate(pair.statement).sql); });
        stored.Run([&] { return Store(connection, pair.statement); });
    }
    if (ours.rows != byHand.rows || stored.rows != byHand.rows)
        throw std::runtime_error(pair.name + ": both ways give other rows");
    std::printf("| %s | %zu | %.3f s | %.3f s | %.2f | %.3f s | %.2f |\n", pair.name.c_str(), ours.rows,
                byHand.seconds, ours.seconds, ours.seconds / byHand.seconds, stored.seconds,
                stored.seconds / byHand.seconds);
    std::fflush(stdout);
}

void ShowPlan(database::Connection& connection, const std::string& sql) {
    std::cout << sql << '\n';
    const auto plan = connection.Prepare("EXPLAIN QUERY PLAN " + sql, "");
    for (RowView row; plan->Step(row);)
        std::cout << "    " << row.back().text << '\n';
}

void Show(database::Connection& connection, const StatementPair& pair) {
    std::cout << "\n== " << pair.name << "\n-- ours\n";
    ShowPlan(connection, connection.Translate(pair.statement).sql);
    std::cout << "-- by hand\n";
    ShowPlan(connection, pair.byHand);
}

} // namespace

int main(int count, char** words) {
    try {
        const std::string mode = count > 2 ? words[1] : "";
        if (mode == "make") {
            MakeDatabase(words[2]);
        } else if (mode == "strip") {
            DropIndexes(words[2]);
        } else if (mode == "make-ledger") {
            MakeLedger(words[2]);
        } else if (mode.starts_with("show") || mode.starts_with("time")) {
            database::SqliteConnection connection(database::OpenSqliteFile(words[2], false, true));
            for (const StatementPair& pair :
                 mode.ends_with("-ledger") ? bench::LedgerPairs() : bench::StatementPairs())
                mode.starts_with("show") ? Show(connection, pair) : Measure(connection, pair);
        } else {
            std::cerr
                << "usage: bench_statements make|strip|time|show|make-ledger|time-ledger|show-ledger FILE\n";
            return 2;
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
