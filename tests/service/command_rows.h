// One call of a command, and all that it must do in its order.
#pragma once

#include "service_fixture.h"

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace qbrpt {

struct CommandRow {
    const char* name;
    std::function<void(VantlowCls&)> call;
    /// Statements before the report's own, in their order.
    std::vector<std::string> before;
    std::string statement;
    std::optional<int> type;
    const char* rowTest; ///< "RecordCount" or "EOF"
    const char* templateName;
    std::vector<std::string> members; ///< of the template, before the heading
    bool preview = false;
    bool landscape = false;
};

inline void PrintTo(const CommandRow& row, std::ostream* stream) {
    *stream << row.name;
}

/// Runs a row on days 5 (Thursday 15 January 2004) and 9 (Monday 19th); every other work identifier is
/// unknown, every report has a row.
class CommandCase : public ServiceTest, public ::testing::WithParamInterface<CommandRow> {};

inline std::vector<std::string> DateLookUps(const std::vector<int>& ids) {
    std::vector<std::string> statements;
    for (const int id : ids)
        statements.push_back("SELECT use_date FROM host_log_time WHERE id = " + std::to_string(id));
    return statements;
}

constexpr const char* Thursday = "ليوم الخميس 15 يناير 2004";
constexpr const char* Monday = "ليوم الاثنين 19 يناير 2004";
constexpr const char* ThursdayToMonday = "من الخميس 15 يناير إلى الاثنين 19 يناير 2004";
constexpr const char* UpToMonday = "من  إلى الاثنين 19 يناير 2004"; ///< the first day is not there
constexpr const char* NoDay = "ليوم ";

inline auto RowName() {
    return [](const ::testing::TestParamInfo<CommandRow>& row) { return std::string(row.param.name); };
}

} // namespace qbrpt
