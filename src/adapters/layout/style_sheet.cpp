#include "adapters/layout/style_sheet.h"

#include "adapters/layout/formats.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace qbrpt::layout {

namespace {

template <class Map>
std::vector<std::string_view> KeysOf(const Map& map) {
    std::vector<std::string_view> keys;
    for (const auto& entry : map)
        keys.push_back(entry.first);
    return keys;
}

/// The value of `name`, or a default one and a mistake at the place of use.
template <class Map>
typename Map::mapped_type Look(const Map& map, const std::string& name, std::string_view what,
                               const Place& usedAt, Mistakes& mistakes) {
    const auto found = map.find(name);
    if (found != map.end()) return found->second;
    mistakes.Add(usedAt,
                 "there is no " + std::string(what) + " " + Quoted(name) + Suggestion(name, KeysOf(map)));
    return {};
}

std::optional<report::Color> HexColor(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    report::Color color = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 1, end, color, 16);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return color;
}

} // namespace

StyleSheet::StyleSheet(TableReader& layout, Mistakes& mistakes) : mMistakes(mistakes) {
    mShrinkTo = layout.Length("shrink_to", 7);
    if (const Node* faces = layout.Child("face", NodeKind::Table)) {
        TableReader reader(*faces, "[face]", mistakes);
        for (const Entry& face : faces->entries)
            mFaces[face.key] = reader.Text(face.key);
    }
    if (const Node* colors = layout.Child("color", NodeKind::Table)) {
        TableReader reader(*colors, "[color]", mistakes);
        for (const Entry& color : colors->entries) {
            const auto value = HexColor(reader.Text(color.key));
            if (!value) reader.Wrong(color.key, "a colour is written as \"#RRGGBB\"");
            mColors[color.key] = value.value_or(0);
        }
    }
    if (const Node* styles = layout.Child("style", NodeKind::Table)) ReadStyles(*styles);
    if (const Node* strokes = layout.Child("stroke", NodeKind::Table)) ReadStrokes(*strokes);
    if (const Node* rows = layout.Child("row", NodeKind::Table)) ReadRows(*rows);
    if (const Node* emphases = layout.Child("emphasis", NodeKind::Table)) ReadEmphases(*emphases);
    if (const Node* nouns = layout.Child("noun", NodeKind::Table)) ReadNouns(*nouns);
}

void StyleSheet::ReadStyles(const Node& styles) {
    for (const Entry& entry : styles.entries) {
        TableReader reader(entry.value, "a style", mMistakes);
        TextStyle style;
        style.font.family =
            Look(mFaces, reader.Text("face", "body"), "face", reader.PlaceOf("face"), mMistakes);
        const double size = reader.Number("size", 9);
        if (!(size >= 4 && size <= 200))
            reader.Wrong("size", "\"size\" must be 4 to 200 points");
        else
            style.font.size = TwipsOf(size);
        style.font.bold = reader.Flag("bold");
        style.color = Color(reader.Text("color", "ink"), reader.PlaceOf("color"));
        style.shrinkTo = mShrinkTo;
        reader.Finish();
        mStyles[entry.key] = style;
    }
}

void StyleSheet::ReadStrokes(const Node& strokes) {
    for (const Entry& stroke : strokes.entries) {
        TableReader reader(stroke.value, "a stroke", mMistakes);
        const double thickness = reader.Number("thickness", 0.3);
        if (!(thickness > 0 && thickness <= 20))
            reader.Wrong("thickness", "\"thickness\" must be above 0 and at most 20 points");
        else
            mStrokes[stroke.key].thickness = static_cast<std::int32_t>(std::lround(thickness * 100));
        mStrokes[stroke.key].color = Color(reader.RequiredText("color"), reader.PlaceOf("color"));
        reader.Finish();
    }
}

void StyleSheet::ReadRows(const Node& rows) {
    for (const Entry& row : rows.entries) {
        TableReader reader(row.value, "a row measure", mMistakes);
        RowMeasure& measure = mRows[row.key];
        measure.height = reader.RequiredLength("height");
        measure.baseline = reader.Length("baseline");
        measure.lineStep = reader.Length("line", 12);
        reader.Finish();
    }
}

void StyleSheet::ReadEmphases(const Node& emphases) {
    for (const Entry& entry : emphases.entries) {
        TableReader reader(entry.value, "an emphasis", mMistakes);
        Emphasis& emphasis = mEmphases[entry.key];
        emphasis.test = ReadTest(reader);
        emphasis.color = Color(reader.Text("color", "ink"), reader.PlaceOf("color"));
        if (reader.Has("ground")) emphasis.ground = Color(reader.Text("ground"), reader.PlaceOf("ground"));
        emphasis.bold = reader.Flag("bold");
        reader.Finish();
    }
}

void StyleSheet::ReadNouns(const Node& nouns) {
    for (const Entry& entry : nouns.entries) {
        TableReader reader(entry.value, "a counted noun", mMistakes);
        report::CountedNoun& noun = mNouns[entry.key];
        noun.one = reader.RequiredText("one");
        noun.two = reader.RequiredText("two");
        noun.few = reader.RequiredText("few");
        noun.many = reader.RequiredText("many");
        noun.hundred = reader.RequiredText("hundred");
        reader.Finish();
    }
}

TextStyle StyleSheet::Style(const std::string& name, const Place& usedAt) const {
    return Look(mStyles, name, "style", usedAt, mMistakes);
}

report::Color StyleSheet::Color(const std::string& name, const Place& usedAt) const {
    if (const auto hex = HexColor(name)) return *hex;
    return Look(mColors, name, "colour", usedAt, mMistakes);
}

Stroke StyleSheet::Line(const std::string& name, const Place& usedAt) const {
    return Look(mStrokes, name, "stroke", usedAt, mMistakes);
}

Emphasis StyleSheet::EmphasisNamed(const std::string& name, const Place& usedAt) const {
    return Look(mEmphases, name, "emphasis", usedAt, mMistakes);
}

RowMeasure StyleSheet::Row(const std::string& name, const Place& usedAt) const {
    return Look(mRows, name, "row measure", usedAt, mMistakes);
}

} // namespace qbrpt::layout
