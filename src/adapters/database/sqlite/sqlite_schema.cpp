#include "adapters/database/sqlite/sqlite_schema.h"

#include "adapters/database/names.h"
#include "adapters/database/read_rows.h"
#include "adapters/database/sqlite/sqlite_error.h"
#include "adapters/database/sqlite/sqlite_statement.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace qbrpt::database {

namespace {

constexpr std::string_view SavedQueryTable = "saved_query";

std::string Quoted(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::string TextOf(const CellView& cell) {
    return cell.kind == ValueKind::Text ? std::string(cell.text) : std::string();
}

bool ContainsAny(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [text](std::string_view word) { return text.find(word) != std::string_view::npos; });
}

} // namespace

ValueKind KindOfDeclaration(std::string_view declaration) {
    const std::string folded = FoldName(Trimmed(declaration));
    const std::string_view word = std::string_view(folded).substr(0, folded.find_first_of(" ("));
    if (ContainsAny(folded, {"char", "text", "clob", "memo", "string"})) return ValueKind::Text;
    if (ContainsAny(folded, {"bool"}) || word == "bit" || word == "yesno") return ValueKind::Boolean;
    if (ContainsAny(folded, {"date", "timestamp"}) || word == "time") return ValueKind::Date;
    if (ContainsAny(folded, {"int", "counter"}) || word == "long" || word == "short" || word == "byte")
        return ValueKind::Whole;
    if (ContainsAny(folded,
                    {"real", "doub", "floa", "currency", "money", "numeric", "decimal", "number", "single"}))
        return ValueKind::Number;
    return ValueKind::Null;
}

std::int64_t SqliteSchema::Ask(const char* pragma) const {
    SqliteStatement statement(mHandle, pragma, "");
    RowView row;
    return statement.Step(row) ? row[0].whole : 0;
}

void SqliteSchema::BeginStatement() {
    const Versions tables{Ask("PRAGMA main.schema_version"), Ask("PRAGMA temp.schema_version")};
    const Versions rows{Ask("PRAGMA main.data_version"), sqlite3_total_changes64(mHandle)};
    if (tables != mTablesAre) {
        mTables.clear();
        ReadTables();
        mTablesAre = tables;
    }
    for (auto& [name, entry] : mTables) {
        entry.asked = false;
        if (rows != mRowsAre) entry.checked.clear();
    }
    // What an open transaction has written may be undone, which nothing would tell.
    mRowsAre = sqlite3_txn_state(mHandle, nullptr) == SQLITE_TXN_WRITE ? Versions{-1, -1} : rows;
}

void SqliteSchema::ReadTables() const {
    SqliteStatement statement(
        mHandle, "SELECT schema, name, type, wr FROM pragma_table_list WHERE schema IN ('main', 'temp')", "");
    RowView row;
    while (statement.Step(row)) {
        Entry entry;
        entry.schema = TextOf(row[0]);
        entry.table.name = TextOf(row[1]);
        entry.isView = TextOf(row[2]) == "view";
        entry.table.hasRowOrder = !entry.isView && row[3].whole == 0;
        std::string folded = FoldName(entry.table.name);
        // A temporary table hides the lasting one of its name.
        if (entry.schema == "temp")
            mTables.insert_or_assign(std::move(folded), std::move(entry));
        else
            mTables.try_emplace(std::move(folded), std::move(entry));
    }
}

void SqliteSchema::ReadColumns(Entry& entry) const {
    entry.read = true;
    constexpr std::int64_t hiddenColumn = 1;
    try {
        SqliteStatement statement(
            mHandle, "PRAGMA " + entry.schema + ".table_xinfo(" + Quoted(entry.table.name) + ")", "");
        RowView row;
        while (statement.Step(row))
            if (row[6].whole != hiddenColumn)
                entry.table.columns.push_back({TextOf(row[1]), KindOfDeclaration(TextOf(row[2]))});
        if (!entry.isView) ReadIndexes(entry);
    } catch (const Failure& failure) {
        if (failure.Number() != FailureNumber::DatabaseEngine) throw;
        entry.problem = failure.Description();
    }
}

void SqliteSchema::ReadIndexes(Entry& entry) const {
    SqliteStatement statement(
        mHandle,
        "SELECT i.seqno, i.name FROM pragma_index_list(?1, ?2) AS l JOIN "
        "pragma_index_info(l.name, ?2) AS i WHERE l.partial = 0 ORDER BY l.seq, i.seqno",
        "");
    statement.Bind(0, entry.table.name);
    statement.Bind(1, entry.schema);
    RowView row;
    while (statement.Step(row)) {
        if (row[0].whole == 0) entry.table.indexes.emplace_back();
        entry.table.indexes.back().push_back(TextOf(row[1])); // no name where it holds an expression
    }
}

const dialect::Table* SqliteSchema::FindTable(std::string_view name) const {
    const auto found = mTables.find(FoldName(name));
    if (found == mTables.end()) return nullptr;
    Entry& entry = found->second;
    if (!entry.read) ReadColumns(entry);
    entry.asked = true;
    if (!entry.problem.empty()) RaiseUnreadable(entry, entry.problem);
    return &entry.table;
}

void SqliteSchema::RaiseUnreadable(const Entry& entry, const std::string& problem) {
    throw Failure(FailureNumber::DatabaseEngine,
                  "\"" + entry.table.name + "\" of the database cannot be read. " + problem);
}

const std::set<SqliteSchema::TableName>& SqliteSchema::TablesBehind(Entry& view) const {
    try {
        if (!view.behind) view.behind = ReadTablesBehind(view);
    } catch (const Failure& failure) {
        if (failure.Number() != FailureNumber::DatabaseEngine) throw;
        RaiseUnreadable(view, failure.Description());
    }
    return *view.behind;
}

// The engine's own program for the view tells what it opens, through however many views: tables, or indexes
// in their place, by the page at which they begin. An authorizer would tell it too, but a host's handle may
// have one already, which could not be put back.
std::set<SqliteSchema::TableName> SqliteSchema::ReadTablesBehind(const Entry& view) const {
    std::map<std::pair<std::int64_t, std::int64_t>, TableName> byPage;
    RowView row;
    SqliteStatement pages(mHandle,
                          "SELECT 0, 'main', tbl_name, rootpage FROM main.sqlite_schema UNION ALL "
                          "SELECT 1, 'temp', tbl_name, rootpage FROM temp.sqlite_schema",
                          "");
    while (pages.Step(row))
        byPage[{row[0].whole, row[3].whole}] = {TextOf(row[1]), TextOf(row[2])};

    std::set<TableName> found;
    SqliteStatement program(mHandle, "EXPLAIN SELECT * FROM " + view.schema + "." + Quoted(view.table.name),
                            "");
    while (program.Step(row)) { // address, operation, p1, p2 (the page), p3 (the database), ...
        const std::string operation = TextOf(row[1]);
        if (operation != "OpenRead" && operation != "ReopenIdx") continue;
        const auto opened = byPage.find({row[4].whole, row[3].whole});
        if (opened != byPage.end()) found.insert(opened->second);
    }
    return found;
}

void SqliteSchema::CheckDates(const std::vector<dialect::DateColumn>& dates) {
    std::set<TableName> behind;
    for (auto& [name, entry] : mTables)
        if (entry.asked && entry.isView) behind.merge(std::set(TablesBehind(entry)));
    for (auto& [name, entry] : mTables) {
        const bool all = behind.contains({entry.schema, entry.table.name});
        if (entry.isView || (!all && !entry.asked)) continue;
        if (!entry.read) ReadColumns(entry);
        std::vector<std::string> columns;
        for (const dialect::Column& column : entry.table.columns) {
            const auto isThis = [&](const dialect::DateColumn& date) {
                return date.table == entry.table.name && date.column == column.name;
            };
            const bool wanted =
                all ? column.kind == ValueKind::Date : std::any_of(dates.begin(), dates.end(), isThis);
            if (wanted && !entry.checked.contains(column.name)) columns.push_back(column.name);
        }
        if (!columns.empty()) CheckDates(entry, columns);
    }
}

void SqliteSchema::CheckDates(Entry& entry, const std::vector<std::string>& columns) const {
    std::string list;
    std::string condition;
    for (const std::string& column : columns) {
        const std::string name = Quoted(column);
        list += (list.empty() ? "" : ", ") + name;
        // Every text stands behind every number, and this costs half of what asking for the type does.
        condition += (condition.empty() ? "" : " OR ") + name + " >= ''";
    }
    SqliteStatement statement(mHandle,
                              "SELECT " + list + " FROM " + entry.schema + "." + Quoted(entry.table.name) +
                                  " WHERE " + condition + " LIMIT 1",
                              "");
    RowView row;
    if (statement.Step(row))
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (row[i].kind == ValueKind::Text)
                throw TextInDateColumn(entry.table.name + "." + columns[i], row[i].text);
    entry.checked.insert(columns.begin(), columns.end());
}

std::optional<std::string> SqliteSchema::SavedQuery(std::string_view name) const {
    const auto found = mTables.find(SavedQueryTable);
    if (found == mTables.end()) return std::nullopt;
    SqliteStatement statement(
        mHandle,
        "SELECT sql FROM " + found->second.schema + ".saved_query WHERE name = ?1 COLLATE QBRPT LIMIT 1", "");
    statement.Bind(0, std::string(name));
    RowView row;
    if (!statement.Step(row)) return std::nullopt;
    return TextOf(row[0]);
}

} // namespace qbrpt::database
