// Times the heavy statements against what a person would write by hand for SQLite. Both ways run in turn in
// one process, so that a busy machine slows them alike; figures are the least processor time of all turns.
//
//   bench_statements FILE [TURNS]    a line of a table for each statement
//   bench_statements show FILE       what the statements become, and how the engine goes about them
#include "adapters/database/read_rows.h"
#include "adapters/database/sqlite/sqlite_connection.h"
#include "adapters/database/sqlite/sqlite_open.h"
#include "statements.h"
#include "stopwatch.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <limits>
#include <string>

namespace {

using namespace qbrpt;
using bench::StatementPair;

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

void Measure(database::Connection& connection, const StatementPair& pair, int turns) {
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
        const bool show = count == 3 && std::string(words[1]) == "show";
        if (count < 2) {
            std::cerr << "usage: bench_statements FILE [TURNS] | show FILE\n";
            return 2;
        }
        database::SqliteConnection connection(database::OpenSqliteFile(words[show ? 2 : 1], false, true));
        const int turns = !show && count > 2 ? std::stoi(words[2]) : 5;
        if (!show)
            std::cout << "| statement | rows | by hand | ours | times | ours, rows stored | times |\n"
                         "|---|---|---|---|---|---|---|\n"
                      << std::flush;
        for (const StatementPair& pair : bench::StatementPairs()) {
            if (show)
                Show(connection, pair);
            else
                Measure(connection, pair, turns);
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
