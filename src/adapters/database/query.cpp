#include "adapters/database/query.h"

#include "adapters/database/names.h"
#include "adapters/database/read_rows.h"
#include "base/failure.h"

namespace qbrpt::database {

namespace {

using dialect::StatementKind;
using dialect::Translation;

/// Reading from one state of the database, for as long as this lives.
class ReadingTime {
public:
    explicit ReadingTime(Connection& connection) : mConnection(connection) { mConnection.BeginReading(); }
    ~ReadingTime() { mConnection.EndReading(); }
    ReadingTime(const ReadingTime&) = delete;
    ReadingTime& operator=(const ReadingTime&) = delete;

private:
    Connection& mConnection;
};

std::string_view WordOf(StatementKind kind) {
    switch (kind) {
    case StatementKind::Select:
        return "SELECT";
    case StatementKind::Insert:
        return "INSERT";
    case StatementKind::Update:
        return "UPDATE";
    case StatementKind::Delete:
        break;
    }
    return "DELETE";
}

std::string Placed(const dialect::Parameter& parameter) {
    return "\"" + parameter.name + "\" (line " + std::to_string(parameter.line) + ", column " +
           std::to_string(parameter.column) + ")";
}

void BindAll(Statement& statement, const Translation& translation, const ParameterValues& values) {
    std::string missing;
    for (std::size_t i = 0; i < translation.parameters.size(); ++i) {
        const auto value = values.find(i);
        if (value == values.end()) {
            missing += (missing.empty() ? "" : ", ") + Placed(translation.parameters[i]);
            continue;
        }
        statement.Bind(i, value->second);
    }
    if (!missing.empty())
        throw Failure(
            FailureNumber::UnknownName,
            "Too few parameters: the statement uses names that are no column of its tables and have no "
            "value: " +
                missing + ".");
}

bool BeginsWithWord(std::string_view text, std::string_view word) {
    return text.size() > word.size() && SameName(text.substr(0, word.size()), word) &&
           std::string_view(" \t\r\n([").find(text[word.size()]) != std::string_view::npos;
}

// A name is tried as a name before it is parsed: saved queries may bear blanks in theirs.
bool MayBeName(std::string_view text) {
    constexpr std::size_t longestName = 128;
    return !text.empty() && text.size() <= longestName && !BeginsWithWord(text, "select") &&
           !BeginsWithWord(text, "parameters");
}

} // namespace

std::string StatementOf(Connection& connection, const std::string& source) {
    std::string_view name = Trimmed(source);
    if (name.size() > 2 && name.front() == '[' && name.find(']') == name.size() - 1)
        name = name.substr(1, name.size() - 2);
    if (!MayBeName(name)) return source;
    if (auto saved = connection.SavedQuery(name)) return *std::move(saved);
    if (connection.HasTable(name)) return "SELECT * FROM [" + std::string(name) + "]";
    return source;
}

std::shared_ptr<const RowSource> RunQuery(Connection& connection, const std::string& statement,
                                          const ParameterValues& values, const RowStoreOptions& options) {
    const ReadingTime reading(connection);
    const Translation translation = connection.Translate(statement);
    if (translation.kind != StatementKind::Select)
        throw Failure(FailureNumber::WriteRefused,
                      "A report query only reads: " + std::string(WordOf(translation.kind)) +
                          " is refused. Only a SELECT can be opened as a record set.");
    const auto running = connection.Prepare(translation.sql, statement);
    if (!running->ReadOnly())
        throw Failure(FailureNumber::WriteRefused, "A report query only reads: this statement would write.");
    BindAll(*running, translation, values);
    return ReadRows(*running, translation.columns, options);
}

std::int64_t RunWrite(Connection& connection, const std::string& statement) {
    const Translation translation = connection.Translate(statement);
    if (translation.kind == StatementKind::Select)
        throw Failure(FailureNumber::InvalidArgument,
                      "Execute runs statements that write; a SELECT is opened as a record set.");
    const auto running = connection.Prepare(translation.sql, statement);
    BindAll(*running, translation, {});
    running->Run();
    return connection.RowsWritten();
}

} // namespace qbrpt::database
