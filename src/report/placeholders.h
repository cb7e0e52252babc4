// The {words} of a text object.
#pragma once

#include <cstdint>
#include <string_view>

namespace qbrpt::report {

struct Placeholder {
    enum class Kind : std::uint8_t { Page, Pages, Printed, Rows, Text, Field, Group, Continued, Unknown };
    Kind kind = Kind::Unknown;
    std::string_view argument; ///< behind the colon
};

/// Cuts a text into what stands between placeholders and the placeholders themselves. Braces that hold no
/// known word are plain text.
class PlaceholderScan {
public:
    explicit PlaceholderScan(std::string_view text) : mRest(text) {}

    /// The next piece; false at the end. `isPlaceholder` tells which of `plain` and `placeholder` it is.
    bool Next();

    [[nodiscard]] bool IsPlaceholder() const { return mIsPlaceholder; }
    [[nodiscard]] std::string_view Plain() const { return mPlain; }
    [[nodiscard]] const Placeholder& Word() const { return mWord; }

private:
    std::string_view mRest;
    std::string_view mPlain;
    Placeholder mWord;
    bool mIsPlaceholder = false;
};

/// What stands between a pair of braces.
[[nodiscard]] Placeholder ReadPlaceholder(std::string_view inside);

} // namespace qbrpt::report
