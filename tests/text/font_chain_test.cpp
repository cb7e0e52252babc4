#include "adapters/text/font_source.h"
#include "base/failure.h"
#include "platform/platform.h"
#include "text/text_help.h"
#include "tools/temp_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace qbrpt::text {
namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// A folder of links to chosen font files, and a FontConfig configuration that knows only these.
class FontFolder {
public:
    explicit FontFolder(const std::vector<std::string>& files) {
        std::filesystem::create_directory(mFolder / "fonts");
        for (const std::string& file : files)
            std::filesystem::create_symlink(file, mFolder / "fonts" / std::filesystem::path(file).filename());
        qbrpt::test::WriteContent(Configuration(), "<?xml version=\"1.0\"?><fontconfig><dir>" +
                                                       (mFolder / "fonts").string() + "</dir><cachedir>" +
                                                       (mFolder / "cache").string() +
                                                       "</cachedir></fontconfig>");
    }

    [[nodiscard]] std::string Configuration() const { return (mFolder / "fonts.conf").string(); }

private:
    qbrpt::test::TempFolder mFolder;
};

const std::string dejaVu = "/usr/share/fonts/truetype/dejavu/";
const std::string noto = "/usr/share/fonts/truetype/noto/";
const std::vector<std::string> core = {dejaVu + "DejaVuSans.ttf", dejaVu + "DejaVuSans-Bold.ttf",
                                       dejaVu + "DejaVuSansMono.ttf", dejaVu + "DejaVuSansMono-Bold.ttf"};

std::vector<std::string> With(std::vector<std::string> files, const std::vector<std::string>& more) {
    files.insert(files.end(), more.begin(), more.end());
    return files;
}

struct Row {
    const char* name;
    std::vector<std::string> files;
    report::FontSpec font;
    const char* arabic;  ///< the face that draws محمد
    const char* figures; ///< the face that draws 21/03/2025
    float size;
};

class FontChain : public testing::TestWithParam<Row> {};

TEST_P(FontChain, ChoosesFaces) {
    const FontFolder folder(GetParam().files);
    const FontConfiguration configuration(folder.Configuration());
    TextEngine engine;
    const report::StyleId style = engine.Style(GetParam().font);
    const auto runOf = [&](std::string_view text) {
        const auto block = engine.Layout(text, style, 0, BaseDirection::RightToLeft);
        EXPECT_EQ(block->lines.at(0).words.at(0).word->runs.size(), 1U) << text;
        return block->lines.at(0).words.at(0).word->runs.at(0);
    };
    EXPECT_EQ(engine.Fonts().Face(runOf("محمد").face).PostScriptName(), GetParam().arabic);
    EXPECT_EQ(engine.Fonts().Face(runOf("21/03/2025").face).PostScriptName(), GetParam().figures);
    EXPECT_EQ(engine.Fonts().Face(engine.Figures(style).face).PostScriptName(), GetParam().figures);
    EXPECT_FLOAT_EQ(runOf("محمد").size, GetParam().size);
    EXPECT_FLOAT_EQ(engine.Figures(style).size, GetParam().size);
    EXPECT_TRUE(engine.MissingGlyphs().empty());
}

const std::vector<std::string> everything = With(
    core, {dejaVu + "DejaVuSansCondensed.ttf", dejaVu + "DejaVuSansCondensed-Bold.ttf",
           noto + "NotoSansArabic-Regular.ttf", noto + "NotoSansArabic-Bold.ttf",
           noto + "NotoKufiArabic-Regular.ttf", noto + "NotoKufiArabic-Bold.ttf",
           noto + "NotoSans-Regular.ttf", noto + "NotoSans-Bold.ttf", noto + "NotoNaskhArabic-Regular.ttf"});
const std::vector<std::string> withCondensed =
    With(core, {dejaVu + "DejaVuSansCondensed.ttf", dejaVu + "DejaVuSansCondensed-Bold.ttf"});

INSTANTIATE_TEST_SUITE_P(
    Rows, FontChain,
    testing::Values(
        Row{"Body",
            everything,
            {"Noto Sans Arabic", 170, false},
            "NotoSansArabic-Regular",
            "NotoSans-Regular",
            170},
        Row{"BodyBold",
            everything,
            {"Noto Sans Arabic", 170, true},
            "NotoSansArabic-Bold",
            "NotoSans-Bold",
            170},
        Row{"NoFamilyIsBody",
            everything,
            {"", 170, false},
            "NotoSansArabic-Regular",
            "NotoSans-Regular",
            170},
        Row{"CaseOfLettersIsNothing",
            everything,
            {"noto sans ARABIC", 170, false},
            "NotoSansArabic-Regular",
            "NotoSans-Regular",
            170},
        Row{"Heading",
            everything,
            {"Noto Kufi Arabic", 250, true},
            "NotoKufiArabic-Bold",
            "NotoSans-Bold",
            250},
        Row{"Codes",
            everything,
            {"DejaVu Sans Mono", 300, true},
            "DejaVuSansMono-Bold",
            "DejaVuSansMono-Bold",
            300},
        Row{"OtherFamilyFirst",
            everything,
            {"Noto Naskh Arabic", 170, false},
            "NotoNaskhArabic-Regular",
            "NotoSans-Regular",
            170},
        Row{"OtherFamilyWithoutBold",
            everything,
            {"Noto Naskh Arabic", 170, true},
            "NotoNaskhArabic-Regular",
            "NotoSans-Bold",
            170},
        Row{"UnknownFamilyIsBody",
            everything,
            {"Tahoma", 170, false},
            "NotoSansArabic-Regular",
            "NotoSans-Regular",
            170},
        Row{"CondensedByName",
            everything,
            {"DejaVu Sans Condensed", 170, true},
            "DejaVuSansCondensed-Bold",
            "DejaVuSansCondensed-Bold",
            170},
        Row{"WideByName", everything, {"DejaVu Sans", 170, false}, "DejaVuSans", "DejaVuSans", 170},
        Row{"BodyOnCondensed",
            withCondensed,
            {"Noto Sans Arabic", 170, false},
            "DejaVuSansCondensed",
            "DejaVuSansCondensed",
            170},
        Row{"HeadingBesideCondensed",
            withCondensed,
            {"Noto Kufi Arabic", 250, true},
            "DejaVuSans-Bold",
            "DejaVuSans-Bold",
            225},
        Row{"BodyOnAFreshMachine", core, {"Noto Sans Arabic", 170, false}, "DejaVuSans", "DejaVuSans", 153},
        Row{"HeadingOnAFreshMachine",
            core,
            {"Noto Kufi Arabic", 340, true},
            "DejaVuSans-Bold",
            "DejaVuSans-Bold",
            306},
        Row{"CodesOnAFreshMachine",
            core,
            {"DejaVu Sans Mono", 300, true},
            "DejaVuSansMono-Bold",
            "DejaVuSansMono-Bold",
            300},
        Row{"UnknownOnAFreshMachine", core, {"Tahoma", 200, false}, "DejaVuSans", "DejaVuSans", 180},
        Row{"NoHouseFamilyAtAll",
            {noto + "NotoNaskhArabic-Regular.ttf", noto + "NotoSerif-Regular.ttf"},
            {"Noto Sans Arabic", 170, false},
            "NotoNaskhArabic-Regular",
            "NotoSerif-Regular",
            170}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Fonts, NoneAtAllIsAFailureWithAdvice) {
    const FontFolder folder({});
    const FontConfiguration configuration(folder.Configuration());
    TextEngine engine;
    try {
        engine.Style(Body);
        FAIL() << "a machine without fonts";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::Report);
        EXPECT_THAT(failure.Description(), HasSubstr("fonts-dejavu-core"));
    }
}

TEST(Fonts, MissingCharactersAreListedOnce) {
    const FontFolder folder(core);
    const FontConfiguration configuration(folder.Configuration());
    TextEngine engine;
    const auto style = engine.Style(Body);
    const auto block = engine.Layout("محمد 中 中文", style, 0, BaseDirection::RightToLeft);
    EXPECT_GT(block->width, 0) << "a box stands for it";
    EXPECT_THAT(engine.MissingGlyphs(), ElementsAre("U+4E2D 中", "U+6587 文"));
}

TEST(Fonts, NamesInOtherScriptsFindAnyFontThatHasThem) {
    const FontFolder folder(With(
        everything, {noto + "NotoSerifDevanagari-Regular.ttf", noto + "NotoSansDevanagari-Regular.ttf"}));
    const FontConfiguration configuration(folder.Configuration());
    TextEngine engine;
    const auto block = engine.Layout("मोहन", engine.Style(Body), 0, BaseDirection::RightToLeft);
    const auto& runs = block->lines.at(0).words.at(0).word->runs;
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(engine.Fonts().Face(runs[0].face).PostScriptName(), "NotoSansDevanagari-Regular");
    EXPECT_TRUE(engine.MissingGlyphs().empty());
}

TEST(Fonts, TheSameFontIsTheSameStyle) {
    TextEngine engine;
    const auto body = engine.Style(Body);
    const auto bold = engine.Style({"Noto Sans Arabic", 180, true});
    EXPECT_EQ(engine.Style(Body), body);
    EXPECT_NE(bold, body);
    EXPECT_EQ(engine.Style({"Noto Sans Arabic", 180, true}), bold);
}

// Ports announce their calls to the platform's observers.
class FontList : public testing::Test {
protected:
    void SetUp() override { Platform::Install(std::make_unique<Platform>()); }
    void TearDown() override { Platform::Install(nullptr); }
};

std::vector<std::string> Listed(FontSource& source, int charset, std::size_t most = 1000) {
    std::vector<std::string> names;
    const std::intptr_t context = source.GetDesktopDC();
    EXPECT_NE(context, 0);
    source.EnumFontFamiliesEx(context, charset, [&](const EnumLogFont* font) {
        EXPECT_EQ(font->outPrecision, OutStrokePrecision);
        names.push_back(font->fullName);
        return names.size() < most ? 1 : 0;
    });
    source.ReleaseDC(context);
    return names;
}

TEST_F(FontList, ArabicFontsBeginWithTheHousesChain) {
    const FontFolder folder(everything);
    const FontConfiguration configuration(folder.Configuration());
    const auto source = MakeFontSource();
    EXPECT_THAT(Listed(*source, ArabicCharset),
                ElementsAre("Noto Sans Arabic", "DejaVu Sans Condensed", "DejaVu Sans", "Noto Kufi Arabic",
                            "DejaVu Sans Mono", "Noto Naskh Arabic"));
    EXPECT_THAT(Listed(*source, 1), Contains("Noto Sans"));
    EXPECT_THAT(Listed(*source, 204), ElementsAre()) << "a character set that nobody asks for";
}

TEST_F(FontList, StopsWhenTheCallerSaysSo) {
    const FontFolder folder(core);
    const FontConfiguration configuration(folder.Configuration());
    const auto source = MakeFontSource();
    EXPECT_THAT(Listed(*source, ArabicCharset, 1), ElementsAre("DejaVu Sans"));
    EXPECT_EQ(source->EnumFontFamiliesEx(1, ArabicCharset, [](const EnumLogFont*) { return 0; }), 0);
    EXPECT_EQ(source->EnumFontFamiliesEx(1, ArabicCharset, [](const EnumLogFont*) { return 7; }), 7);
}

TEST_F(FontList, IsEmptyWithoutFonts) {
    const FontFolder folder({});
    const FontConfiguration configuration(folder.Configuration());
    const auto source = MakeFontSource();
    EXPECT_EQ(source->EnumFontFamiliesEx(1, ArabicCharset, [](const EnumLogFont*) { return 1; }), 0);
}

} // namespace
} // namespace qbrpt::text
