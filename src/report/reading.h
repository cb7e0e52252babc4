// Values read out of text, for columns that carry text where the field holds something else.
#pragma once

#include <optional>
#include <string_view>

namespace qbrpt::report {

/// A decimal number that takes up the whole text but for blanks around it.
[[nodiscard]] std::optional<double> ReadNumber(std::string_view text);

/// "yyyy-MM-dd", with "hh:mm" or "hh:mm:ss" behind a blank or a T: the day number.
[[nodiscard]] std::optional<double> ReadDate(std::string_view text);

/// true, false, yes, no in any letter case, نعم, لا, or a number.
[[nodiscard]] std::optional<bool> ReadBoolean(std::string_view text);

/// Whether two texts are equal but for the case of Latin letters.
[[nodiscard]] bool EqualNoCase(std::string_view a, std::string_view b);

} // namespace qbrpt::report
