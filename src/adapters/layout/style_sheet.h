// The house style as a layout names it: faces, colours, text styles, strokes, row measures.
#pragma once

#include "adapters/layout/table_reader.h"
#include "report/definition.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt::layout {

struct TextStyle {
    report::FontSpec font;
    report::Color color = 0;
    report::Twips shrinkTo = 0; ///< text too wide may shrink to this size
};

struct Stroke {
    std::int32_t thickness = 0; ///< hundredths of a point
    report::Color color = 0;
};

using report::Emphasis;

/// Where the text of a row stands.
struct RowMeasure {
    report::Twips height = 0;
    report::Twips baseline = 0;
    report::Twips lineStep = 0;
};

/// Names from `[face]`, `[color]`, `[style]`, `[stroke]`, `[row]`, `[emphasis]`, `[noun]` of the merged
/// layout. A name that is not there is a mistake at the place that uses it.
class StyleSheet {
public:
    StyleSheet(TableReader& layout, Mistakes& mistakes);

    [[nodiscard]] TextStyle Style(const std::string& name, const Place& usedAt) const;
    /// A name of `[color]`, or "#RRGGBB".
    [[nodiscard]] report::Color Color(const std::string& name, const Place& usedAt) const;
    [[nodiscard]] Stroke Line(const std::string& name, const Place& usedAt) const;
    [[nodiscard]] RowMeasure Row(const std::string& name, const Place& usedAt) const;
    [[nodiscard]] Emphasis EmphasisNamed(const std::string& name, const Place& usedAt) const;
    [[nodiscard]] const std::map<std::string, report::CountedNoun>& Nouns() const { return mNouns; }

private:
    void ReadStyles(const Node& styles);
    void ReadStrokes(const Node& strokes);
    void ReadRows(const Node& rows);
    void ReadEmphases(const Node& emphases);
    void ReadNouns(const Node& nouns);

    Mistakes& mMistakes;
    report::Twips mShrinkTo = 0;
    std::map<std::string, std::string, std::less<>> mFaces;
    std::map<std::string, report::Color, std::less<>> mColors;
    std::map<std::string, TextStyle, std::less<>> mStyles;
    std::map<std::string, Stroke, std::less<>> mStrokes;
    std::map<std::string, RowMeasure, std::less<>> mRows;
    std::map<std::string, Emphasis, std::less<>> mEmphases;
    std::map<std::string, report::CountedNoun> mNouns;
};

} // namespace qbrpt::layout
