// The system's statements over sessions, as its commands build them.
#pragma once

#include <string>

namespace qbrpt::dialect {

/// `bounds`: "date And date", empty for all time; `host`: a number, empty for all.
[[nodiscard]] std::string HostUsage(const std::string& bounds, const std::string& host);

/// `filter`: further conditions, each led by "AND".
[[nodiscard]] std::string UsageDetail(const std::string& table, const std::string& filter);

} // namespace qbrpt::dialect
