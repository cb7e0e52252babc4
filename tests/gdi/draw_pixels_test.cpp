// DrawCls on real pixels, against pictures made by hand.
#include "base/failure.h"
#include "gdi/gdi_fixture.h"
#include "support/DrawCls.h"

#include <functional>
#include <string>

namespace qbrpt::test {
namespace {

constexpr ColorRef Red = 255;

const Rows Picture4x3 = {"rkkr", //
                         "kwgk", //
                         "rkkb"};

struct PaintRow {
    std::string name;
    Rows ground;
    GdiArea area;
    std::int32_t xSrc;
    std::int32_t ySrc;
    ColorRef mask;
    Rows painted;
};

class PaintTest : public GdiTest, public ::testing::WithParamInterface<PaintRow> {};

TEST_P(PaintTest, PaintsAllButItsBackground) {
    const PaintRow& row = GetParam();
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(Picture4x3));
    const std::size_t before = gdi->LiveHandles();
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf(row.ground));
    DrawCls().PaintPic(canvas, row.area.x, row.area.y, row.area.width, row.area.height, picture, row.xSrc,
                       row.ySrc, row.mask);
    EXPECT_EQ(RowsOf(gdi->CloseCanvas(canvas)), row.painted);
    EXPECT_EQ(gdi->LiveHandles(), before);
    EXPECT_EQ(PixelsOf(picture), Picture4x3) << "the picture itself stays";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PaintTest,
    ::testing::Values(
        PaintRow{"RedIsTransparent",
                 {"yyyyy", "yyyyy", "yyyyy"},
                 {0, 0, 4, 3},
                 0,
                 0,
                 Red,
                 {"ykkyy", "kwgky", "ykkby"}},
        PaintRow{"OverAGroundOfManyColours",
                 {"rgbw", "rgbw", "rgbw"},
                 {0, 0, 4, 3},
                 0,
                 0,
                 Red,
                 {"rkkw", "kwgk", "rkkb"}},
        PaintRow{"AnotherColourIsTransparent",
                 {"yyyy", "yyyy", "yyyy"},
                 {0, 0, 4, 3},
                 0,
                 0,
                 ColorBlack,
                 {"ryyr", "ywgy", "ryyb"}},
        PaintRow{"AColourThatOccursNowhereLeavesAPlainCopy",
                 {"yyyy", "yyyy", "yyyy"},
                 {0, 0, 4, 3},
                 0,
                 0,
                 0x123456,
                 {"rkkr", "kwgk", "rkkb"}},
        PaintRow{"WhiteIsTransparent",
                 {"yyyy", "yyyy", "yyyy"},
                 {0, 0, 4, 3},
                 0,
                 0,
                 ColorWhite,
                 {"rkkr", "kygk", "rkkb"}},
        PaintRow{"SomewhereElse",
                 {"yyyyyy", "yyyyyy", "yyyyyy", "yyyyyy"},
                 {2, 1, 4, 3},
                 0,
                 0,
                 Red,
                 {"yyyyyy", "yyykky", "yykwgk", "yyykkb"}},
        PaintRow{"APartOfThePicture", {"yyy", "yyy"}, {0, 0, 2, 2}, 2, 1, Red, {"gky", "kby"}},
        PaintRow{"OverTheEdgeOfTheGround", {"yyy", "yyy"}, {-1, -1, 4, 3}, 0, 0, Red, {"wgk", "kkb"}},
        // What lies beyond the picture is black there, and so painted.
        PaintRow{"BeyondThePicture", {"yyyyy", "yyyyy"}, {0, 0, 5, 2}, 1, 1, Red, {"wgkkk", "kkbkk"}},
        PaintRow{"NoWidth", {"yy", "yy"}, {0, 0, 0, 3}, 0, 0, Red, {"yy", "yy"}}),
    [](const auto& row) { return row.param.name; });

struct KindRow {
    std::string name;
    std::function<GdiHandle(gdi::RasterGdi&)> picture;
    Rows painted;
    std::size_t leftBehind;
};

class PaintPicTest : public GdiTest, public ::testing::WithParamInterface<KindRow> {};

// An icon is painted whole, from its corner, whatever place and colour are asked for.
TEST_P(PaintPicTest, TakesPicturesOfEveryKind) {
    const KindRow& row = GetParam();
    const GdiHandle picture = row.picture(*gdi);
    const std::size_t before = gdi->LiveHandles();
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf({"yyyy", "yyyy"}));
    DrawCls().PaintPic(canvas, 0, 0, 3, 2, picture, 1, 0, Red);
    EXPECT_EQ(RowsOf(gdi->CloseCanvas(canvas)), row.painted);
    EXPECT_EQ(gdi->LiveHandles(), before + row.leftBehind);
}

GdiHandle OneColor(gdi::RasterGdi& gdi) {
    const GdiHandle bitmap = gdi.CreateBitmap(4, 2, 1, 1);
    const GdiHandle memory = gdi.CreateCompatibleDC(0);
    const GdiHandle old = gdi.SelectObject(memory, bitmap);
    const GdiHandle white = gdi.CreateSolidBrush(ColorWhite);
    gdi.FillRect(memory, 1, 0, 3, 1, white);
    gdi.DeleteObject(white);
    gdi.SelectObject(memory, old);
    gdi.DeleteDC(memory);
    return bitmap;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PaintPicTest,
    ::testing::Values(KindRow{"None", [](auto&) { return 0U; }, {"yyyy", "yyyy"}, 0},
                      KindRow{"ABitmap",
                              [](auto& gdi) {
                                  return gdi.MakeBitmap(PictureOf({"bgrg", "rbbk"}));
                              },
                              {"gygy", "bbky"},
                              0},
                      KindRow{"AOneColourBitmap", OneColor, {"wwky", "kkky"}, 0},
                      // The two bitmaps of an icon's record are nobody's.
                      KindRow{"AnIcon",
                              [](auto& gdi) {
                                  return gdi.MakeIcon(PictureOf({".gr", "wkb"}));
                              },
                              {"ygry", "wyby"},
                              2},
                      KindRow{
                          "APaletteIsTakenForAnIconAndIsNone",
                          [](auto& gdi) { return gdi.CreatePalette({.palVersion = 0x300, .entries = {{}}}); },
                          {"yyyy", "yyyy"},
                          0},
                      KindRow{"AHandleOfNothing", [](auto&) { return 4711U; }, {"yyyy", "yyyy"}, 0}),
    [](const auto& row) { return row.param.name; });

using DrawPixels = GdiTest;

TEST_F(DrawPixels, TheDestinationIsTouchedOnceAndLast) {
    auto log = std::make_shared<fakes::CallLog>();
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(Picture4x3));
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf({"yyyy"}));
    fakes::FakePlatform::Observe(log);
    DrawCls().PaintPic(canvas, 0, 0, 4, 3, picture, 0, 0, Red);
    const auto copies = log->LinesOf({"GDI.BitBlt("});
    ASSERT_EQ(copies.size(), 7U);
    const std::string onCanvas = "GDI.BitBlt(" + std::to_string(canvas) + ",";
    for (const std::string& copy : copies)
        EXPECT_EQ(copy.starts_with(onCanvas), &copy == &copies.back()) << copy;
}

TEST_F(DrawPixels, PaintNormalStdPicCopiesAsItIs) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(Picture4x3));
    const std::size_t before = gdi->LiveHandles();
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf({"yyyyy", "yyyyy", "yyyyy"}));
    DrawCls().PaintNormalStdPic(canvas, 1, 1, 3, 2, picture, 1, 1);
    EXPECT_EQ(RowsOf(gdi->CloseCanvas(canvas)), Rows({"yyyyy", "ywgky", "ykkby"}));
    EXPECT_EQ(gdi->LiveHandles(), before);
}

TEST_F(DrawPixels, GetPicSizeIsOfBitmapsAlone) {
    std::int32_t width = -1;
    std::int32_t height = -1;
    DrawCls::GetPicSize(gdi->MakeBitmap(PictureOf(Picture4x3)), width, height);
    EXPECT_EQ(std::pair(width, height), std::pair(4, 3));
    DrawCls::GetPicSize(gdi->MakeIcon(PictureOf(Picture4x3)), width, height);
    EXPECT_EQ(std::pair(width, height), std::pair(0, 0));
}

TEST_F(DrawPixels, FillRectangleFillsAndDeletesItsBrush) {
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf({"yyyy", "yyyy", "yyyy"}));
    const std::size_t before = gdi->LiveHandles();
    DrawCls::FillRectangle(canvas, 1, 1, 2, 5, Red);
    EXPECT_THROW(DrawCls::FillRectangle(canvas, 1, 0, 2'147'483'647, 1, Red), Failure);
    EXPECT_EQ(gdi->LiveHandles(), before);
    EXPECT_EQ(RowsOf(gdi->CloseCanvas(canvas)), Rows({"yyyy", "yrry", "yrry"}));
}

struct MaskRow {
    std::string name;
    Rows picture;
    ColorRef color;
};

class MaskTest : public GdiTest, public ::testing::WithParamInterface<MaskRow> {};

// Looked at are (1, 1), (1, h - 1), (w - 1, 1) and (w / 2, 1).
TEST_P(MaskTest, GuessesTheBackground) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(GetParam().picture));
    const std::size_t before = gdi->LiveHandles();
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf({"y"}));
    EXPECT_EQ(DrawCls::GetImageMask(canvas, picture), GetParam().color);
    static_cast<void>(gdi->CloseCanvas(canvas));
    EXPECT_EQ(gdi->LiveHandles(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MaskTest,
    ::testing::Values(MaskRow{"AUniformBorder", {"gggggg", "gggggg", "ggrkgg", "gggggg"}, 0x00FF00},
                      MaskRow{"AllDifferAndTheFirstCounts", {"kkkkkk", "kwkrkb", "kgkkkk"}, ColorWhite},
                      MaskRow{"ThirdAndFourthAreAlike", {"kkkkkk", "kwkrkr", "kgkkkk"}, Red},
                      MaskRow{"TwoPairsAndTheFirstCounts", {"kkkkkk", "kwkrkr", "kwkkkk"}, ColorWhite},
                      MaskRow{"BlackRepeatedGivesTheFirst", {"gggggg", "gwgkgk", "gggggg"}, ColorWhite},
                      MaskRow{"AllBlack", {"kkkk", "kkkk", "kkkk"}, ColorBlack},
                      // A width of 5 has its middle at 2, one of 7 at 4: halves go to the even number.
                      MaskRow{"TheMiddleOfFive", {"yyyyy", "ywryr", "ygyyy", "ygyyy"}, Red},
                      MaskRow{"TheMiddleOfSeven", {"yyyyyyy", "ywyyryr", "ygyyyyy", "ygyyyyy"}, Red},
                      MaskRow{"OnePixelHasNoneOfTheFour", {"g"}, ColorNone}),
    [](const auto& row) { return row.param.name; });

struct CellRow {
    std::string name;
    std::int32_t id;
    std::int32_t width;
    std::int32_t x;
    std::int32_t y;
};

class CellTest : public ::testing::TestWithParam<CellRow> {};

TEST_P(CellTest, FindsTheCell) {
    std::int32_t x = -1;
    std::int32_t y = -1;
    DrawCls::PicPostion(GetParam().id, GetParam().width, 99, x, y);
    EXPECT_EQ(std::pair(x, y), std::pair(GetParam().x, GetParam().y));
}

INSTANTIATE_TEST_SUITE_P(Rows, CellTest,
                         ::testing::Values(CellRow{"First", 1, 32, 0, 0}, CellRow{"Second", 2, 32, 16, 0},
                                           CellRow{"Third", 3, 32, 0, 16}, CellRow{"Sixth", 6, 32, 16, 32},
                                           CellRow{"AWidthThatIsNoWholeCells", 3, 40, 32, 0},
                                           CellRow{"AndItsNextRow", 4, 40, 8, 16},
                                           CellRow{"BeforeTheFirst", 0, 32, -16, 0}),
                         [](const auto& row) { return row.param.name; });

TEST(PicPostion, NoWidthIsADivisionError) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    try {
        DrawCls::PicPostion(1, 0, 16, x, y);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::DivisionByZero);
    }
}

} // namespace
} // namespace qbrpt::test
