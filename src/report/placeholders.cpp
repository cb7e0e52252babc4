#include "report/placeholders.h"

#include <algorithm>
#include <array>

namespace qbrpt::report {

namespace {

struct KnownWord {
    std::string_view name;
    Placeholder::Kind kind;
    bool bare;         ///< stands without an argument
    bool withArgument; ///< stands with one
};

using Kind = Placeholder::Kind;

constexpr std::array<KnownWord, 8> KnownWords = {{{"page", Kind::Page, true, false},
                                                  {"pages", Kind::Pages, true, false},
                                                  {"printed", Kind::Printed, true, false},
                                                  {"rows", Kind::Rows, true, true},
                                                  {"text", Kind::Text, false, true},
                                                  {"field", Kind::Field, false, true},
                                                  {"group", Kind::Group, true, false},
                                                  {"continued", Kind::Continued, true, false}}};

} // namespace

Placeholder ReadPlaceholder(std::string_view inside) {
    const std::size_t colon = inside.find(':');
    const std::string_view name = inside.substr(0, colon);
    const bool hasArgument = colon != std::string_view::npos;
    const auto* word = std::find_if(KnownWords.begin(), KnownWords.end(),
                                    [name](const KnownWord& known) { return known.name == name; });
    if (word == KnownWords.end() || !(hasArgument ? word->withArgument : word->bare)) return {};
    return {word->kind, hasArgument ? inside.substr(colon + 1) : std::string_view{}};
}

bool PlaceholderScan::Next() {
    if (mRest.empty()) return false;
    if (mRest.front() == '{') {
        const std::size_t close = mRest.find('}');
        if (close != std::string_view::npos) {
            mWord = ReadPlaceholder(mRest.substr(1, close - 1));
            mIsPlaceholder = mWord.kind != Placeholder::Kind::Unknown;
            if (mIsPlaceholder) {
                mRest.remove_prefix(close + 1);
                return true;
            }
        }
    }
    mIsPlaceholder = false;
    const std::size_t end = std::min(mRest.find('{', 1), mRest.size());
    mPlain = mRest.substr(0, end);
    mRest.remove_prefix(end);
    return true;
}

} // namespace qbrpt::report
