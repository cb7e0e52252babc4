// Scaled bitmaps on real pixels, and bits that know no device.
#include "base/failure.h"
#include "gdi/gdi_fixture.h"
#include "support/DrawCls.h"

#include <array>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace qbrpt::test {
namespace {

// Large enough for bits of 48 bytes.
const Rows Four = {"rgbw", //
                   "gbwr", //
                   "bwrg", //
                   "wrgb"};

struct ScaleRow {
    std::string name;
    Rows picture;
    float widthRatio;
    float heightRatio;
    Rows scaled;
};

class ScaleTest : public GdiTest, public ::testing::WithParamInterface<ScaleRow> {
protected:
    void Expect(GdiHandle scaled, GdiHandle picture, std::size_t handlesBefore) {
        const ScaleRow& row = GetParam();
        ASSERT_NE(scaled, 0U);
        EXPECT_EQ(PixelsOf(scaled), row.scaled);
        EXPECT_EQ(PixelsOf(picture), row.picture) << "the old one is not touched";
        EXPECT_EQ(gdi->LiveHandles(), handlesBefore + 1) << "the new one is the caller's";
        EXPECT_TRUE(gdi->DeleteObject(scaled));
    }
};

TEST_P(ScaleTest, ThroughTheDisplay) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(GetParam().picture));
    const std::size_t before = gdi->LiveHandles();
    Expect(DrawCls::ShrinkBmp(77, picture, GetParam().widthRatio, GetParam().heightRatio), picture, before);
}

TEST_P(ScaleTest, ThroughIndependentBits) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(GetParam().picture));
    const std::size_t before = gdi->LiveHandles();
    Expect(DrawCls::ShrinkBm(picture, GetParam().widthRatio, GetParam().heightRatio), picture, before);
}

TEST_P(ScaleTest, ThroughIndependentBitsOnADisplayOfFewColours) {
    gdi = std::make_shared<gdi::RasterGdi>(256);
    Platform::Current().gdi = gdi;
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(GetParam().picture));
    const std::size_t before = gdi->LiveHandles();
    Expect(DrawCls::ShrinkBm(picture, GetParam().widthRatio, GetParam().heightRatio), picture, before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ScaleTest,
    ::testing::Values(ScaleRow{"ARatioOfOneIsACopy", Four, 1, 1, Four},
                      ScaleRow{
                          "AboveOneEnlarges", Four, 2, 1, {"rrggbbww", "ggbbwwrr", "bbwwrrgg", "wwrrggbb"}},
                      // Where pixels meet, the darker one stays.
                      ScaleRow{"HalfAsWide", {"rrkwwwgg", "rrwkwwgg"}, 0.5F, 1, {"rkwg", "rkwg"}},
                      ScaleRow{"HalfAsHigh",
                               {"rrrrrrrr", "rrrrrrrr", "wwwwgggg", "wwwkgggg"},
                               1,
                               0.5F,
                               {"rrrrrrrr", "wwwkgggg"}},
                      // 0.6 x 4 = 2.4 pixels are 2.
                      ScaleRow{"SizesAreRounded", Four, 0.6F, 0.6F, {"kk", "kk"}}),
    [](const auto& row) { return row.param.name; });

using Shrink = GdiTest;

TEST_F(Shrink, NothingBecomesOfBitsBelow48Bytes) {
    const GdiHandle small = gdi->MakeBitmap(PictureOf({"rgb", "gbr", "brg"})); // rows of 12 bytes: 36
    const GdiHandle enough = gdi->MakeBitmap(PictureOf({"rgb", "gbr", "brg", "rgb"}));
    const std::size_t before = gdi->LiveHandles();
    EXPECT_EQ(DrawCls::ShrinkBm(small, 1, 1), 0U);
    EXPECT_EQ(DrawCls::ShrinkBm(0, 1, 1), 0U);
    EXPECT_EQ(DrawCls::ShrinkBm(4'711, 1, 1), 0U);
    EXPECT_EQ(gdi->LiveHandles(), before);
    EXPECT_NE(DrawCls::ShrinkBm(enough, 1, 1), 0U);
}

TEST_F(Shrink, ASizeTooLargeIsAnOverflowAndLeavesNothingBehind) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(Four));
    const std::size_t before = gdi->LiveHandles();
    const float huge = std::numeric_limits<float>::max();
    for (const auto& shrink : {DrawCls::ShrinkBm, +[](GdiHandle hBm, float width, float height) {
                                   return DrawCls::ShrinkBmp(0, hBm, width, height);
                               }}) {
        try {
            static_cast<void>(shrink(picture, huge, 1));
            FAIL();
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::Overflow);
        }
        EXPECT_EQ(gdi->LiveHandles(), before);
    }
}

TEST_F(Shrink, AOneColourBitmapKeepsItsTwo) {
    const GdiHandle bitmap = gdi->CreateBitmap(4, 12, 1, 1); // 48 bytes
    const GdiHandle memory = gdi->CreateCompatibleDC(0);
    const GdiHandle old = gdi->SelectObject(memory, bitmap);
    DrawCls::FillRectangle(memory, 0, 0, 2, 6, ColorWhite);
    gdi->SelectObject(memory, old);
    gdi->DeleteDC(memory);
    EXPECT_EQ(PixelsOf(DrawCls::ShrinkBm(bitmap, 1, 1.0F / 6)), Rows({"wwkk", "kkkk"}));
}

/// A header and room for two colours behind it.
std::vector<std::uint8_t> InfoOf(const BitmapInfoHeader& header) {
    std::vector<std::uint8_t> info(sizeof header + 8);
    std::memcpy(info.data(), &header, sizeof header);
    return info;
}

TEST_F(Shrink, CreateBmDibSectionAnswersNothingAlways) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(Four));
    const std::size_t before = gdi->LiveHandles();
    auto info = InfoOf(
        {.biSize = 40, .biWidth = 4, .biHeight = 4, .biPlanes = 1, .biBitCount = 32, .biSizeImage = 64});
    auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    EXPECT_EQ(DrawCls::CreateBmDibSection(picture, info), 0U);
    EXPECT_EQ(log->Lines().size(), 3U) << "a context, the bits, and the context's end";
    EXPECT_EQ(DrawCls::CreateBmDibSection(0, info), 0U);
    EXPECT_EQ(DrawCls::CreateBmDibSection(picture, {}), 0U);
    EXPECT_EQ(log->Lines().size(), 3U);
    EXPECT_EQ(gdi->LiveHandles(), before);
}

TEST_F(Shrink, CreateBmDibSectionFailsAtAnImageOfNoSize) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf(Four));
    const std::size_t before = gdi->LiveHandles();
    auto info = InfoOf({.biSize = 40, .biHeight = 4});
    try {
        DrawCls::CreateBmDibSection(picture, info);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::OutOfRange);
    }
    EXPECT_EQ(gdi->LiveHandles(), before);
}

} // namespace
} // namespace qbrpt::test
