// Statements over the tables of a café, as its application would hand them over.
#pragma once

#include <QtCore/QString>

#include <string_view>

namespace cafe {

/// For a member that takes a statement; else empty.
[[nodiscard]] QString ExampleStatement(std::string_view member);

} // namespace cafe
