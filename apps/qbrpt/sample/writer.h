// Rows into the tables of a new file, as fast as SQLite takes them.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt::sample {

/// The application's number in the files that are made here: by it they are told from a café's books.
constexpr std::uint32_t SampleMark = 0x51425250;

/// A new database file being filled. No other program knows of it yet, so nothing in it is protected until
/// Finish.
class Writer {
public:
    explicit Writer(const std::string& path);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// Runs a statement that gives no rows.
    void Run(std::string_view sql);
    /// Brings everything to the disk and puts the file into WAL mode.
    void Finish();

    [[nodiscard]] sqlite3* Handle() const { return mHandle; }
    [[noreturn]] void Fail(int code) const;

private:
    sqlite3* mHandle = nullptr;
};

/// Adds rows to one table.
class Inserter {
public:
    /// `columns` is the number of values that a row has, all columns of the table in order.
    Inserter(Writer& writer, std::string_view table, int columns);

    template <class... Values>
    void Add(const Values&... values) {
        int index = 0;
        (Bind(++index, values), ...);
        Step();
    }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    void Bind(int index, std::nullopt_t);
    void Bind(int index, bool value);
    void Bind(int index, int value);
    void Bind(int index, std::int64_t value);
    void Bind(int index, double value);
    /// The text must live until the row has been added.
    void Bind(int index, std::string_view value);
    template <class T>
    void Bind(int index, const std::optional<T>& value) {
        if (value)
            Bind(index, *value);
        else
            Bind(index, std::nullopt);
    }
    void Step();

    Writer& mWriter;
    std::unique_ptr<sqlite3_stmt, Finalizer> mStatement;
};

} // namespace qbrpt::sample
