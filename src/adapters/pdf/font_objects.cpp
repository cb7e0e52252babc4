#include "adapters/pdf/font_objects.h"

#include "adapters/pdf/font_subset.h"
#include "adapters/pdf/numbers.h"

#include <algorithm>
#include <set>

namespace qbrpt::pdf {

namespace {

constexpr unsigned FixedPitchFlag = 1;
constexpr unsigned SymbolicFlag = 4;
constexpr std::size_t LinesPerBlock = 100; // the most that a bfchar block may have

constexpr std::string_view MapHead = "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n";
constexpr std::string_view MapTail = "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";

// Six letters before the name tell subsets of one font apart; made from what the subset holds.
std::string SubsetTag(const CodeTable& codes, FontId number) {
    std::uint64_t sum = 1469598103934665603U + number;
    for (const Code& code : codes.Codes())
        sum = (sum ^ (std::uint64_t{code.glyph} << 32U ^ code.letter)) * 1099511628211U;
    std::string tag;
    for (int i = 0; i < 6; ++i, sum /= 26)
        tag.push_back(static_cast<char>('A' + sum % 26));
    return tag;
}

std::string WidthTable(const CodeTable& codes) {
    std::string table = "[";
    for (std::size_t code = 0; code < codes.Codes().size();) {
        if (!codes.IsUsed(code)) {
            ++code;
            continue;
        }
        AppendInteger(table, static_cast<std::int64_t>(code));
        table.push_back('[');
        for (; code < codes.Codes().size() && codes.IsUsed(code); ++code) {
            if (table.back() != '[') table.push_back(' ');
            AppendScaled(table, codes.Codes()[code].advance, 1);
        }
        table.push_back(']');
    }
    return table + "]";
}

std::string GlyphMap(const CodeTable& codes, const FontSubset& subset) {
    std::string map;
    for (const Code& code : codes.Codes()) {
        const auto found = subset.glyphs.find(code.glyph);
        const unsigned glyph = found != subset.glyphs.end() ? found->second : 0U;
        map.push_back(static_cast<char>(glyph >> 8U));
        map.push_back(static_cast<char>(glyph & 0xFFU));
    }
    return map;
}

ObjectId WriteDescriptor(ObjectFile& file, const text::FontFace& face, const std::string& name,
                         const FontSubset& subset) {
    const std::string length = "/Length1 " + std::to_string(subset.file.size());
    const ObjectId program = file.AddStream(length, subset.file);
    const text::FaceMetrics metrics = face.Metrics();
    std::string body = "<</Type/FontDescriptor/FontName/" + name;
    const auto put = [&body](std::string_view key, int value) {
        body += key;
        body.push_back(' ');
        AppendInteger(body, value);
    };
    put("/Flags", static_cast<int>(SymbolicFlag | (metrics.fixedPitch ? FixedPitchFlag : 0U)));
    body += "/FontBBox[";
    put("", metrics.left);
    put("", metrics.bottom);
    put("", metrics.right);
    put("", metrics.top);
    body += "]/ItalicAngle 0";
    put("/Ascent", metrics.ascent);
    put("/Descent", metrics.descent);
    put("/CapHeight", metrics.capHeight);
    put("/StemV", metrics.weight / 5);
    return file.AddObject(body + "/FontFile2 " + Reference(program) + ">>");
}

// How bytes of a string become codes: two by two, which has a name of its own, or one by one.
std::string Encoding(ObjectFile& file, const CodeTable& codes) {
    if (codes.Bytes() == CodeBytes::Two) return "/Identity-H";
    const std::string map = std::string(MapHead) +
                            "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>def\n"
                            "/CMapName/OneByte-H def\n/CMapType 1 def\n/WMode 0 def\n"
                            "1 begincodespacerange\n<00><FF>\nendcodespacerange\n"
                            "1 begincidrange\n<00><FF> 0\nendcidrange\n" +
                            std::string(MapTail);
    const std::string header = "/Type/CMap/CMapName/OneByte-H/WMode 0"
                               "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>";
    return " " + Reference(file.AddStream(header, map));
}

} // namespace

std::string ToUnicode(const CodeTable& codes) {
    const bool one = codes.Bytes() == CodeBytes::One;
    std::vector<std::size_t> lettered;
    for (std::size_t code = 0; code < codes.Codes().size(); ++code)
        if (codes.Codes()[code].letter != 0) lettered.push_back(code);
    std::string map = std::string(MapHead) +
                      "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
                      "/CMapName/Adobe-Identity-UCS def\n/CMapType 2 def\n"
                      "1 begincodespacerange\n" +
                      (one ? "<00><FF>" : "<0000><FFFF>") + "\nendcodespacerange\n";
    for (std::size_t i = 0; i < lettered.size();) {
        const std::size_t end = std::min(i + LinesPerBlock, lettered.size());
        AppendInteger(map, static_cast<std::int64_t>(end - i));
        map += " beginbfchar\n";
        for (; i < end; ++i) {
            map.push_back('<');
            AppendHex(map, static_cast<std::uint32_t>(lettered[i]), one ? 2 : 4);
            map += "><";
            AppendUtf16Hex(map, codes.Codes()[lettered[i]].letter);
            map += ">\n";
        }
        map += "endbfchar\n";
    }
    return map.append(MapTail);
}

ObjectId WriteFont(ObjectFile& file, const text::FontFace& face, const CodeTable& codes, FontId number) {
    std::set<std::uint16_t> glyphs;
    for (const Code& code : codes.Codes())
        glyphs.insert(code.glyph);
    const FontSubset subset = CutFont(face, glyphs);
    const std::string name = SubsetTag(codes, number) + "+" + face.PostScriptName();
    const ObjectId descriptor = WriteDescriptor(file, face, name, subset);
    const ObjectId map = file.AddStream("", GlyphMap(codes, subset));
    const ObjectId unicode = file.AddStream("", ToUnicode(codes));
    const std::string encoding = Encoding(file, codes);
    const ObjectId descendant = file.AddObject(
        "<</Type/Font/Subtype/CIDFontType2/BaseFont/" + name +
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
        Reference(descriptor) + "/DW 0/W" + WidthTable(codes) + "/CIDToGIDMap " + Reference(map) + ">>");
    return file.AddObject("<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding" + encoding +
                          "/DescendantFonts[" + Reference(descendant) + "]/ToUnicode " + Reference(unicode) +
                          ">>");
}

} // namespace qbrpt::pdf
