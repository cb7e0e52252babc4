#include "adapters/database/sqlite/sqlite_order.h"

#include "adapters/database/sqlite/sqlite_error.h"
#include "adapters/database/sqlite/text_order.h"
#include "dialect/functions.h"

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::database {

namespace {

std::string_view View(const void* text, int size) {
    return {static_cast<const char*>(text), static_cast<std::size_t>(size)};
}

int CompareTexts(void*, int sizeA, const void* a, int sizeB, const void* b) {
    return TextOrder::Shared().Compare(View(a, sizeA), View(b, sizeB));
}

/// The keys of the texts that were met last: most reports sort by the names of a few hosts or people.
class OrderKeys {
public:
    const std::string& Of(std::string_view text) {
        Kept& kept = mKept[std::hash<std::string_view>()(text) % mKept.size()];
        if (!kept.filled || kept.text != text) {
            kept.key = TextOrder::Shared().KeyOf(text);
            kept.text = text;
            kept.filled = true;
        }
        return kept.key;
    }

private:
    static constexpr std::size_t Places = 1024;
    struct Kept {
        bool filled = false;
        std::string text;
        std::string key;
    };
    std::vector<Kept> mKept = std::vector<Kept>(Places);
};

// A key is a blob: SQLite would take a text apart in a file that holds its texts as UTF-16.
void MakeKey(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT) return sqlite3_result_value(context, values[0]);
    try {
        const auto* text = sqlite3_value_text(values[0]); // before its size, which this may change
        const std::string_view view = View(text, sqlite3_value_bytes(values[0]));
        const std::string& key = static_cast<OrderKeys*>(sqlite3_user_data(context))->Of(view);
        sqlite3_result_blob64(context, key.data(), key.size(), SQLITE_TRANSIENT);
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

void DropKeys(void* keys) {
    delete static_cast<OrderKeys*>(keys);
}

} // namespace

void RegisterTextOrder(sqlite3* handle) {
    static_cast<void>(TextOrder::Shared()); // a missing order is told here, where it can be told
    const std::string collation(dialect::CollationName);
    CheckRegistered(handle, sqlite3_create_collation_v2(handle, collation.c_str(), SQLITE_UTF8, nullptr,
                                                        CompareTexts, nullptr));
    const std::string function(dialect::OrderFunctionName);
    constexpr int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | SQLITE_DETERMINISTIC;
    CheckRegistered(handle, sqlite3_create_function_v2(handle, function.c_str(), 1, flags, new OrderKeys,
                                                       MakeKey, nullptr, nullptr, DropKeys));
}

void CheckRegistered(sqlite3* handle, int code) {
    if (code != SQLITE_OK && code != SQLITE_BUSY) throw StatementFailure(handle, code, {});
}

} // namespace qbrpt::database
