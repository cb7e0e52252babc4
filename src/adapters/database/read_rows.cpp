#include "adapters/database/read_rows.h"

#include "adapters/database/cancel.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/utf8.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace qbrpt::database {

namespace {

// Most text is Latin or Arabic, so one- and two-byte characters are seen to here.
bool IsValidUtf8(std::string_view text) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t position = 0;
    while (position < text.size()) {
        std::uint64_t eight = 0;
        if (text.size() - position >= sizeof eight) {
            std::memcpy(&eight, text.data() + position, sizeof eight);
            if ((eight & highBits) == 0) {
                position += sizeof eight;
                continue;
            }
        }
        const auto lead = static_cast<unsigned char>(text[position]);
        if (lead < 0x80U) {
            ++position;
        } else if (lead >= 0xC2U && lead < 0xE0U && position + 1 < text.size() &&
                   (static_cast<unsigned char>(text[position + 1]) & 0xC0U) == 0x80U) {
            position += 2;
        } else {
            const std::size_t start = position;
            if (NextCharacter(text, position) == ReplacementCharacter && position == start + 1) return false;
        }
    }
    return true;
}

/// Puts the cells of one query's rows into the kinds of its columns.
class Reader {
public:
    Reader(Statement& statement, const std::vector<dialect::OutputColumn>& columns)
        : mStatement(statement), mColumns(columns), mTexts(columns.size()) {}

    void Settle(RowView& row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            CellView& cell = row[i];
            if (cell.kind == ValueKind::Text)
                SettleText(cell, i);
            else if (cell.kind != ValueKind::Null)
                SettleNumber(cell, i);
        }
    }

private:
    void SettleText(CellView& cell, std::size_t column) {
        if (mColumns[column].kind == ValueKind::Date) {
            const std::string origin = mStatement.Origin(column);
            throw TextInDateColumn(origin.empty() ? mColumns[column].name : origin, cell.text);
        }
        if (!IsValidUtf8(cell.text)) cell.text = mTexts[column] = ValidUtf8(cell.text);
    }

    void SettleNumber(CellView& cell, std::size_t column) {
        switch (mColumns[column].kind) {
        case ValueKind::Boolean:
            cell.whole = cell.number != 0 ? 1 : 0;
            cell.kind = ValueKind::Boolean;
            break;
        case ValueKind::Date:
            cell.kind = ValueKind::Date;
            break;
        case ValueKind::Number:
            cell.kind = ValueKind::Number;
            break;
        case ValueKind::Text:
            mTexts[column] =
                cell.kind == ValueKind::Whole ? std::to_string(cell.whole) : DecimalText(cell.number);
            cell.text = mTexts[column];
            cell.kind = ValueKind::Text;
            break;
        case ValueKind::Whole: // a fraction in a whole-number column is kept
        case ValueKind::Null:
            break;
        }
    }

    Statement& mStatement;
    const std::vector<dialect::OutputColumn>& mColumns;
    std::vector<std::string> mTexts; ///< texts made here, until the row is stored
};

} // namespace

Failure TextInDateColumn(const std::string& column, std::string_view text) {
    constexpr std::size_t shown = 40;
    return {
        FailureNumber::BadColumn,
        "The date column " + column + " holds the text '" + ValidUtf8(FirstCharacters(text, shown)) +
            "'. Dates must be stored as day numbers (days since 30 December 1899, the time as the fraction). "
            "Put "
            "the column right, for example by setting it to julianday(itself) - 2415018.5 where it is text."};
}

std::shared_ptr<const RowSource> ReadRows(Statement& statement,
                                          const std::vector<dialect::OutputColumn>& columns,
                                          const RowStoreOptions& options) {
    std::vector<ColumnInfo> infos;
    infos.reserve(columns.size());
    for (const auto& column : columns)
        infos.push_back({column.name, column.kind});
    RowStoreBuilder builder(std::move(infos), options);
    Reader reader(statement, columns);
    RowView row;
    while (statement.Step(row)) {
        StopIfCancelled();
        if (row.size() != columns.size())
            throw Failure(FailureNumber::DatabaseEngine,
                          "The database engine gave another number of columns (" +
                              std::to_string(row.size()) + ") than the statement has (" +
                              std::to_string(columns.size()) + ").");
        reader.Settle(row);
        builder.Add(row);
    }
    return builder.Finish();
}

} // namespace qbrpt::database
