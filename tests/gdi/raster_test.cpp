// The drawing system by itself: handles, one-colour bitmaps, metafiles, and the pictures of forms.
#include "adapters/gdi/form_pictures.h"
#include "gdi/gdi_fixture.h"
#include "support/picture_fit.h"

#include <cstring>
#include <string>
#include <vector>

namespace qbrpt::test {
namespace {

using Raster = GdiTest;

constexpr ColorRef Red = 255;
constexpr ColorRef Green = 0x00FF00;

TEST_F(Raster, ADestroyedHandleIsOfNoUse) {
    const GdiHandle memory = gdi->CreateCompatibleDC(0);
    const GdiHandle bitmap = gdi->MakeBitmap(PictureOf({"rg"}));
    EXPECT_TRUE(gdi->DeleteDC(memory));
    EXPECT_FALSE(gdi->DeleteDC(memory));
    EXPECT_EQ(gdi->SelectObject(memory, bitmap), 0U);
    EXPECT_EQ(gdi->SetBkColor(memory, Red), ColorNone);
    EXPECT_EQ(gdi->GetPixel(memory, 0, 0), ColorNone);
    EXPECT_FALSE(gdi->BitBlt(memory, {.width = 1, .height = 1}, memory, 0, 0, RasterOp::SourceCopy));
    EXPECT_TRUE(gdi->DeleteObject(bitmap));
    EXPECT_EQ(gdi->GetObjectType(bitmap), GdiObject::None);
    EXPECT_EQ(gdi->LiveHandles(), 0U);
}

TEST_F(Raster, WhatIsSelectedCannotBeDeleted) {
    const GdiHandle memory = gdi->CreateCompatibleDC(0);
    const GdiHandle other = gdi->CreateCompatibleDC(0);
    const GdiHandle bitmap = gdi->MakeBitmap(PictureOf({"rg"}));
    const GdiHandle palette = gdi->CreateHalftonePalette(memory);
    const GdiHandle stock = gdi->SelectObject(memory, bitmap);
    const GdiHandle stockPalette = gdi->SelectPalette(memory, palette, true);
    EXPECT_EQ(gdi->SelectObject(other, bitmap), 0U) << "one context at a time";
    EXPECT_FALSE(gdi->DeleteObject(bitmap));
    EXPECT_FALSE(gdi->DeleteObject(palette));
    EXPECT_EQ(gdi->SelectObject(memory, stock), bitmap);
    EXPECT_EQ(gdi->SelectPalette(memory, stockPalette, true), palette);
    EXPECT_TRUE(gdi->DeleteObject(bitmap));
    EXPECT_TRUE(gdi->DeleteObject(palette));
    EXPECT_FALSE(gdi->DeleteObject(stock)) << "nobody's to delete";
}

TEST_F(Raster, ContextsGoTheWayThatTheyCame) {
    const GdiHandle screen = gdi->GetDC(0);
    const GdiHandle display = gdi->CreateDCA("DISPLAY");
    EXPECT_EQ(gdi->CreateDCA("LPT1:"), 0U);
    EXPECT_EQ(gdi->GetDC(5), 0U);
    EXPECT_FALSE(gdi->DeleteDC(screen));
    EXPECT_FALSE(gdi->ReleaseDC(0, display));
    EXPECT_TRUE(gdi->ReleaseDC(0, screen));
    EXPECT_TRUE(gdi->DeleteDC(display));
    EXPECT_EQ(gdi->LiveHandles(), 0U);
}

TEST_F(Raster, ABitmapHasTheBitsOfItsContext) {
    const GdiHandle screen = gdi->GetDC(0);
    const GdiHandle memory = gdi->CreateCompatibleDC(screen);
    const auto bits = [&](GdiHandle bitmap) { return gdi->GetObjectA(bitmap)->bmBitsPixel; };
    EXPECT_EQ(bits(gdi->CreateCompatibleBitmap(screen, 3, 2)), 32);
    EXPECT_EQ(bits(gdi->CreateCompatibleBitmap(memory, 3, 2)), 1) << "a new context holds one colour";
    const BitmapRecord nothing = gdi->GetObjectA(gdi->CreateCompatibleBitmap(screen, 0, 2)).value();
    EXPECT_EQ(std::pair(nothing.bmWidth, nothing.bmHeight), std::pair(1, 1));
    EXPECT_EQ(gdi->CreateCompatibleBitmap(screen, -1, 2), 0U);
    EXPECT_EQ(gdi->CreateCompatibleBitmap(screen, 30'000, 30'000), 0U);
    EXPECT_EQ(gdi->GetObjectA(gdi->MakeBitmap(PictureOf({"rgb"})))->bmWidthBytes, 10);
    constexpr std::int32_t widest = 1 << 26; // its bits are more than 32 bits count
    EXPECT_EQ(gdi->GetObjectA(gdi->CreateCompatibleBitmap(screen, widest, 1))->bmWidthBytes, 4 * widest);
}

TEST_F(Raster, ColoursTurnIntoOneAndBack) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf({"rgwk"}));
    const GdiHandle mono = gdi->CreateBitmap(4, 1, 1, 1);
    const GdiHandle coloured = gdi->CreateCompatibleDC(0);
    const GdiHandle single = gdi->CreateCompatibleDC(0);
    gdi->SelectObject(coloured, picture);
    gdi->SelectObject(single, mono);
    const GdiArea whole = {.width = 4, .height = 1};

    gdi->SetBkColor(coloured, Green); // of the source: that turns white
    gdi->BitBlt(single, whole, coloured, 0, 0, RasterOp::SourceCopy);
    EXPECT_EQ(gdi->GetPixel(single, 0, 0), ColorBlack);
    EXPECT_EQ(gdi->GetPixel(single, 1, 0), ColorWhite);
    EXPECT_EQ(gdi->GetPixel(single, 2, 0), ColorBlack) << "white itself is another colour";

    gdi->SetTextColor(coloured, Red); // of the destination: black takes it, white the background
    gdi->BitBlt(coloured, whole, single, 0, 0, RasterOp::SourceCopy);
    EXPECT_EQ(gdi->GetPixel(coloured, 0, 0), Red);
    EXPECT_EQ(gdi->GetPixel(coloured, 1, 0), Green);
}

TEST_F(Raster, AContextCopiesOntoItselfWhereBothOverlap) {
    const GdiHandle canvas = gdi->OpenCanvas(PictureOf({"rgbwk"}));
    gdi->BitBlt(canvas, {.x = 1, .width = 4, .height = 1}, canvas, 0, 0, RasterOp::SourceCopy);
    EXPECT_EQ(RowsOf(gdi->CloseCanvas(canvas)), Rows({"rrgbw"}));
    EXPECT_TRUE(gdi->CloseCanvas(canvas).rgba.empty()) << "it is gone";
}

// An enhanced metafile as it lies in a file: a head of 108 bytes, and the record that ends it.
std::vector<std::uint8_t> MetafileBytes() {
    EnhMetaHeader head;
    head.iType = 1;
    head.nSize = 108;
    head.rclBounds = {-4, 2, 95, 51};
    head.rclFrame = {-106, 53, 2'514, 1'349};
    head.dSignature = 0x464D4520;
    head.nVersion = 0x10000;
    head.nBytes = 128;
    head.nRecords = 2;
    head.nHandles = 1;
    std::vector<std::uint8_t> bytes(128);
    std::memcpy(bytes.data(), &head, sizeof head);
    bytes[108] = 14; // the end
    bytes[112] = 20; // its size, also as its last four bytes
    bytes[124] = 20;
    return bytes;
}

TEST_F(Raster, AnEnhancedMetafileIsMeasuredByItsHead) {
    const GdiHandle metafile = gdi->MakeMetafile(MetafileBytes());
    EXPECT_EQ(gdi->GetObjectType(metafile), GdiObject::EnhancedMetafile);
    EXPECT_EQ(GetPictureSize(metafile), 49 * 65'536 + 99);
    EXPECT_FALSE(gdi->GetEnhMetaFileHeader(metafile, 87).has_value());
    EXPECT_TRUE(gdi->DeleteEnhMetaFile(metafile));
    EXPECT_EQ(GetPictureSize(metafile), 0);
    EXPECT_EQ(gdi->LiveHandles(), 0U);
}

struct BrokenRow {
    std::string name;
    std::size_t place;
    std::uint8_t byte;
    std::size_t size;
};

class BrokenMetafile : public GdiTest, public ::testing::WithParamInterface<BrokenRow> {};

TEST_P(BrokenMetafile, IsNone) {
    std::vector<std::uint8_t> bytes = MetafileBytes();
    bytes[GetParam().place] = GetParam().byte;
    bytes.resize(GetParam().size);
    EXPECT_EQ(gdi->MakeMetafile(bytes), 0U);
}

INSTANTIATE_TEST_SUITE_P(Rows, BrokenMetafile,
                         ::testing::Values(BrokenRow{"AnotherFirstRecord", 0, 2, 128},
                                           BrokenRow{"AnotherSignature", 40, 0x21, 128},
                                           BrokenRow{"AHeadTooShort", 4, 80, 128},
                                           BrokenRow{"CutOff", 0, 1, 127},
                                           BrokenRow{"CutInItsHead", 0, 1, 87}),
                         [](const auto& row) { return row.param.name; });

TEST_F(Raster, TheBitsOfABitmapAreReadLineByLine) {
    const GdiHandle picture = gdi->MakeBitmap(PictureOf({"rgb", "wky"}));
    const GdiHandle screen = gdi->GetDC(0);
    std::vector<std::uint8_t> info(40);
    BitmapInfoHeader header = {.biSize = 40};
    std::memcpy(info.data(), &header, 40);
    EXPECT_EQ(gdi->GetDIBits(screen, picture, 0, 0, {}, info, 0), 2);
    std::memcpy(&header, info.data(), 40);
    EXPECT_EQ(header.biBitCount, 24);
    EXPECT_EQ(header.biSizeImage, 24) << "rows of 9 bytes take 12";

    std::vector<std::uint8_t> bits(24, 99);
    EXPECT_EQ(gdi->GetDIBits(screen, picture, 1, 5, bits, info, 0), 1) << "the upper line alone";
    EXPECT_EQ(std::vector<std::uint8_t>(bits.begin(), bits.begin() + 12),
              std::vector<std::uint8_t>({0, 0, 255, 0, 255, 0, 255, 0, 0, 0, 0, 0}));
    EXPECT_EQ(bits[12], 99);
    EXPECT_EQ(gdi->GetDIBits(screen, picture, 0, 2, std::span(bits).first(23), info, 0), 0) << "no room";
    EXPECT_EQ(gdi->GetDIBits(screen, picture, 0, 2, bits, info, 1), 0) << "colours of no palette";
}

TEST(FormPictures, SheetsAreOfTheSizesOfTheirPlaces) {
    EXPECT_FALSE(gdi::FormPicture("").has_value());
    for (const auto& [name, width, height] :
         {std::tuple{"sheet-portrait", 26, 32}, std::tuple{"sheet-landscape", 31, 23}}) {
        const Picture sheet = gdi::FormPicture(name).value();
        EXPECT_EQ(std::pair(sheet.width, sheet.height), std::pair(width, height));
        ASSERT_EQ(sheet.rgba.size(), static_cast<std::size_t>(width * height) * 4) << "no row is cut";
        const Rows rows = RowsOf(sheet);
        EXPECT_EQ(rows.front(), std::string(rows.front().size(), 'r')) << "transparent around";
        EXPECT_NE(rows[12].find('w'), std::string::npos) << "and paper inside";
    }
}

} // namespace
} // namespace qbrpt::test
