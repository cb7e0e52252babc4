#include "dialect/small_database.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "dialect/letters.h"
#include "dialect/words.h"

#include <algorithm>
#include <memory>
#include <span>
#include <stdexcept>

namespace qbrpt::dialect {

namespace {

Value FromSqlite(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return static_cast<std::int64_t>(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    case SQLITE_NULL:
        return Null{};
    default:
        break;
    }
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return std::string(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

std::vector<Value> ArgumentsOf(int count, sqlite3_value** values) {
    std::vector<Value> arguments;
    for (int i = 0; i < count; ++i)
        arguments.push_back(FromSqlite(values[i]));
    return arguments;
}

void ToSqlite(sqlite3_context* context, const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        sqlite3_result_int64(context, *whole);
    else if (const auto* number = std::get_if<double>(&value))
        sqlite3_result_double(context, *number);
    else if (const auto* text = std::get_if<std::string>(&value))
        sqlite3_result_text(context, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    else
        sqlite3_result_null(context);
}

struct Bound {
    const ScalarFunction* function;
    const FunctionWorld* world;
};

void CallScalar(sqlite3_context* context, int count, sqlite3_value** values) {
    const auto* bound = static_cast<const Bound*>(sqlite3_user_data(context));
    try {
        ToSqlite(context, Evaluate(*bound->function, ArgumentsOf(count, values), *bound->world));
    } catch (const Failure& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

Accumulator** AccumulatorOf(sqlite3_context* context) {
    return static_cast<Accumulator**>(sqlite3_aggregate_context(context, sizeof(Accumulator*)));
}

void StepAggregate(sqlite3_context* context, int count, sqlite3_value** values) {
    const auto* function = static_cast<const AggregateFunction*>(sqlite3_user_data(context));
    Accumulator** accumulator = AccumulatorOf(context);
    if (*accumulator == nullptr) *accumulator = function->begin().release();
    (*accumulator)->Step(ArgumentsOf(count, values));
}

void FinishAggregate(sqlite3_context* context) {
    Accumulator** accumulator = AccumulatorOf(context);
    if (*accumulator == nullptr) return sqlite3_result_null(context);
    const std::unique_ptr<Accumulator> owner(*accumulator);
    ToSqlite(context, owner->Result());
}

int CompareTexts(void*, int leftSize, const void* left, int rightSize, const void* right) {
    const auto view = [](const void* text, int size) {
        return std::string_view(static_cast<const char*>(text), static_cast<std::size_t>(size));
    };
    const auto a = CharactersOf(view(left, leftSize), true);
    const auto b = CharactersOf(view(right, rightSize), true);
    return a < b ? -1 : a == b ? 0 : 1;
}

// Characters as four bytes each, so that the order of the bytes is that of CompareTexts.
void MakeOrderKey(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT) return sqlite3_result_value(context, values[0]);
    std::string key;
    for (const char32_t character : CharactersOf(std::get<std::string>(FromSqlite(values[0])), true)) {
        for (const unsigned shift : {24U, 16U, 8U, 0U})
            key.push_back(static_cast<char>(character >> shift));
    }
    sqlite3_result_blob(context, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
}

ValueKind KindOfType(std::string type) {
    std::transform(type.begin(), type.end(), type.begin(), [](char c) { return SmallLatin(c); });
    const auto has = [&type](const char* word) { return type.find(word) != std::string::npos; };
    if (has("date") || has("time")) return ValueKind::Date;
    if (has("bool") || has("bit")) return ValueKind::Boolean;
    if (has("int")) return ValueKind::Whole;
    if (has("real") || has("doub") || has("num") || has("cur")) return ValueKind::Number;
    if (has("text") || has("char") || has("memo")) return ValueKind::Text;
    return ValueKind::Null;
}

std::string CellText(sqlite3_stmt* statement, int column, ValueKind kind) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return "NULL";
    case SQLITE_TEXT:
        return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                           static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    default:
        break;
    }
    if (kind == ValueKind::Boolean) return sqlite3_column_double(statement, column) != 0 ? "true" : "false";
    return RoundTripText(sqlite3_column_double(statement, column));
}

void BindValue(sqlite3_stmt* statement, int index, const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        sqlite3_bind_int64(statement, index, *whole);
    else if (const auto* number = std::get_if<double>(&value))
        sqlite3_bind_double(statement, index, *number);
    else if (const auto* date = std::get_if<Date>(&value))
        sqlite3_bind_double(statement, index, date->number);
    else if (const auto* text = std::get_if<std::string>(&value))
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
    else
        sqlite3_bind_null(statement, index);
}

} // namespace

SmallDatabase::SmallDatabase() {
    sqlite3_open(":memory:", &mDatabase);
    sqlite3_create_collation(mDatabase, std::string(CollationName).c_str(), SQLITE_UTF8, nullptr,
                             CompareTexts);
    sqlite3_create_function_v2(mDatabase, std::string(OrderFunctionName).c_str(), 1,
                               SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, MakeOrderKey, nullptr, nullptr,
                               nullptr);
    for (const ScalarFunction& function : ScalarFunctions()) {
        for (int count = function.minimumArguments; count <= function.maximumArguments; ++count)
            sqlite3_create_function_v2(mDatabase, std::string(function.emittedName).c_str(), count,
                                       SQLITE_UTF8 | (function.usesNow ? 0 : SQLITE_DETERMINISTIC),
                                       new Bound{&function, &mWorld}, CallScalar, nullptr, nullptr,
                                       [](void* bound) { delete static_cast<Bound*>(bound); });
    }
    for (const AggregateFunction& function : AggregateFunctions())
        sqlite3_create_function_v2(mDatabase, std::string(function.emittedName).c_str(), -1, SQLITE_UTF8,
                                   const_cast<AggregateFunction*>(&function), nullptr, StepAggregate,
                                   FinishAggregate, nullptr);
}

SmallDatabase::~SmallDatabase() {
    sqlite3_close_v2(mDatabase);
}

void SmallDatabase::Native(const std::string& sql) {
    char* error = nullptr;
    if (sqlite3_exec(mDatabase, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        const std::string words = error == nullptr ? "?" : error;
        sqlite3_free(error);
        throw std::runtime_error(words + " in " + sql);
    }
    ReadSchema();
}

void SmallDatabase::ReadSchema() {
    mTables.clear();
    const std::vector<OutputColumn> three = {
        {"", ValueKind::Null}, {"", ValueKind::Null}, {"", ValueKind::Null}};
    for (const std::string& row :
         Run("SELECT m.name, m.type, p.name, p.type FROM sqlite_master m JOIN pragma_table_info(m.name) p "
             "ORDER BY m.name, p.cid",
             {{"", ValueKind::Null}, {"", ValueKind::Null}, {"", ValueKind::Null}, {"", ValueKind::Null}},
             {})) {
        const std::size_t first = row.find('|');
        const std::size_t second = row.find('|', first + 1);
        const std::size_t third = row.find('|', second + 1);
        Table& table = mTables[FoldName(row.substr(0, first))];
        table.name = row.substr(0, first);
        table.hasRowOrder = row.substr(first + 1, second - first - 1) == "table";
        table.columns.push_back(
            {row.substr(second + 1, third - second - 1), KindOfType(row.substr(third + 1))});
    }
    for (const std::string& row :
         Run("SELECT m.name, i.seqno, i.name FROM sqlite_master m JOIN pragma_index_list(m.name) l JOIN "
             "pragma_index_info(l.name) i WHERE m.type = 'table' ORDER BY m.name, l.seq, i.seqno",
             three, {})) {
        const std::size_t first = row.find('|');
        const std::size_t second = row.find('|', first + 1);
        auto& indexes = mTables[FoldName(row.substr(0, first))].indexes;
        if (row.substr(first + 1, second - first - 1) == "0") indexes.emplace_back();
        indexes.back().push_back(row.substr(second + 1));
    }
}

const Table* SmallDatabase::FindTable(std::string_view name) const {
    const auto found = mTables.find(FoldName(name));
    return found == mTables.end() ? nullptr : &found->second;
}

std::optional<std::string> SmallDatabase::SavedQuery(std::string_view name) const {
    for (const auto& [saved, text] : mSaved) {
        if (SameName(saved, name)) return text;
    }
    return std::nullopt;
}

std::vector<std::string> SmallDatabase::Run(const std::string& sql, const std::vector<OutputColumn>& columns,
                                            const std::vector<Value>& parameters) {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(mDatabase, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK)
        throw std::runtime_error(std::string(sqlite3_errmsg(mDatabase)) + " in " + sql);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(raw, sqlite3_finalize);
    for (std::size_t i = 0; i < parameters.size(); ++i)
        BindValue(raw, static_cast<int>(i) + 1, parameters[i]);
    std::vector<std::string> rows;
    int step = 0;
    while ((step = sqlite3_step(raw)) == SQLITE_ROW) {
        std::string row;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i > 0) row += "|";
            row += CellText(raw, static_cast<int>(i), columns[i].kind);
        }
        rows.push_back(row);
    }
    if (step != SQLITE_DONE) throw std::runtime_error(std::string(sqlite3_errmsg(mDatabase)) + " in " + sql);
    return rows;
}

std::vector<std::string> SmallDatabase::Rows(const std::string& statement,
                                             const std::vector<Value>& parameters) {
    const Translation translation = TranslateForSqlite(statement, *this);
    if (translation.parameters.size() != parameters.size())
        throw std::runtime_error("parameters: " +
                                 (translation.parameters.empty()
                                      ? std::string("none")
                                      : translation.parameters.front().name + " and others"));
    return Run(translation.sql, translation.columns, parameters);
}

std::string SmallDatabase::Single(const std::string& expression) {
    const std::vector<std::string> rows = Rows("SELECT " + expression);
    return rows.size() == 1 ? rows.front() : std::to_string(rows.size()) + " rows";
}

int SmallDatabase::Execute(const std::string& statement) {
    const Translation translation = TranslateForSqlite(statement, *this);
    if (!translation.parameters.empty())
        throw std::runtime_error("parameter: " + translation.parameters.front().name);
    (void)Run(translation.sql, {}, {});
    return sqlite3_changes(mDatabase);
}

std::string SmallDatabase::Error(const std::string& statement) {
    try {
        (void)TranslateForSqlite(statement, *this);
    } catch (const Failure& failure) {
        return std::to_string(static_cast<int>(failure.Number())) + ": " + failure.what();
    }
    return "no failure";
}

std::string SmallDatabase::Plan(const std::string& statement) {
    const Translation translation = TranslateForSqlite(statement, *this);
    std::string plan;
    const std::vector<OutputColumn> four(4, {"", ValueKind::Null});
    for (const std::string& row : Run("EXPLAIN QUERY PLAN " + translation.sql, four, {}))
        plan += row.substr(row.rfind('|') + 1) + "\n";
    return plan;
}

std::vector<std::string> SmallDatabase::Names(const std::string& statement) {
    std::vector<std::string> names;
    for (const OutputColumn& column : TranslateForSqlite(statement, *this).columns)
        names.push_back(column.name);
    return names;
}

} // namespace qbrpt::dialect
