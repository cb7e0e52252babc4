// The calls of the drawing operations, one by one.
#include "fakes/call_log.h"
#include "fakes/fault_observer.h"
#include "support/DrawCls.h"
#include "support/picture_fit.h"
#include "support_fixture.h"

#include <gmock/gmock.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt {
namespace {

using fakes::CallLog;
using fakes::FaultObserver;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

constexpr GdiHandle Destination = 11;
constexpr GdiHandle Source = 12;
constexpr GdiHandle Bitmap = 21;
constexpr GdiHandle Icon = 22;
constexpr GdiHandle OwnPalette = 31;

class DrawCalls : public SupportTest {
protected:
    DrawCalls() {
        gdi.types[Bitmap] = GdiObject::Bitmap;
        gdi.bitmaps[Bitmap] = {.bmWidth = 40, .bmHeight = 30, .bmPlanes = 1, .bmBitsPixel = 24};
        gdi.icons[Icon] = {.hbmMask = 23, .hbmColor = 24};
        gdi.ownHeader = {.biSize = 40, .biSizeImage = 3'600};
        fakes::FakePlatform::Observe(log);
    }

    /// The calls from here on.
    void Begin() { mBegin = log->Lines().size(); }
    [[nodiscard]] Lines Calls() const {
        return {log->Lines().begin() + static_cast<std::ptrdiff_t>(mBegin), log->Lines().end()};
    }

    fakes::FakeGdi& gdi = *platform.gdi;
    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();

private:
    std::size_t mBegin = 0;
};

TEST_F(DrawCalls, APaletteIsMadeAndDeleted) {
    { const DrawCls drawing; }
    EXPECT_THAT(Calls(), ElementsAre("GDI.GetDC(0)", "GDI.CreateHalftonePalette(101)",
                                     "GDI.ReleaseDC(0, 101)", "GDI.DeleteObject(102)"));
    EXPECT_THAT(gdi.live, IsEmpty());
}

/// Handles run on: the screen, then bitmap and context of back buffer, source copy and mask.
Lines TransparentCalls(int screen, const std::string& source, const std::string& place,
                       const std::string& from, int palette, int mask) {
    const auto handle = [&](int next) { return std::to_string(screen + next); };
    const std::string pal = std::to_string(palette);
    const std::string size = "0, 0, 8, 6, ";
    return {"GDI.GetDC(0)",
            "GDI.CreateCompatibleBitmap(" + handle(0) + ", 8, 6)",
            "GDI.CreateCompatibleDC(" + handle(0) + ")",
            "GDI.SelectObject(" + handle(2) + ", " + handle(1) + ")",
            "GDI.SelectPalette(" + handle(2) + ", " + pal + ", true)",
            "GDI.RealizePalette(" + handle(2) + ")",
            "GDI.BitBlt(" + handle(2) + ", " + size + "11, " + place + ", 13369376)",
            "GDI.CreateCompatibleBitmap(" + handle(0) + ", 8, 6)",
            "GDI.CreateCompatibleDC(" + handle(0) + ")",
            "GDI.SelectObject(" + handle(4) + ", " + handle(3) + ")",
            "GDI.SelectPalette(" + handle(4) + ", " + pal + ", true)",
            "GDI.RealizePalette(" + handle(4) + ")",
            "GDI.GetBkColor(" + source + ")",
            "GDI.SetBkColor(" + handle(4) + ", 111)",
            "GDI.GetTextColor(" + source + ")",
            "GDI.SetTextColor(" + handle(4) + ", 222)",
            "GDI.BitBlt(" + handle(4) + ", " + size + source + ", " + from + ", 13369376)",
            "GDI.CreateBitmap(8, 6, 1, 1)",
            "GDI.CreateCompatibleDC(" + handle(0) + ")",
            "GDI.SelectObject(" + handle(6) + ", " + handle(5) + ")",
            "GDI.SetBkColor(" + handle(4) + ", " + std::to_string(mask) + ")",
            "GDI.SetTextColor(" + handle(4) + ", 16777215)",
            "GDI.BitBlt(" + handle(6) + ", " + size + handle(4) + ", 0, 0, 13369376)",
            "GDI.SetTextColor(" + handle(4) + ", 0)",
            "GDI.SetBkColor(" + handle(4) + ", 16777215)",
            "GDI.BitBlt(" + handle(4) + ", " + size + handle(6) + ", 0, 0, 2229030)",
            "GDI.BitBlt(" + handle(2) + ", " + size + handle(6) + ", 0, 0, 8913094)",
            "GDI.BitBlt(" + handle(2) + ", " + size + handle(4) + ", 0, 0, 15597702)",
            "GDI.BitBlt(11, " + place + ", 8, 6, " + handle(2) + ", 0, 0, 13369376)",
            "GDI.SelectObject(" + handle(2) + ", 9)",
            "GDI.SelectObject(" + handle(4) + ", 9)",
            "GDI.SelectObject(" + handle(6) + ", 9)",
            "GDI.DeleteObject(" + handle(1) + ")",
            "GDI.DeleteObject(" + handle(3) + ")",
            "GDI.DeleteObject(" + handle(5) + ")",
            "GDI.DeleteDC(" + handle(2) + ")",
            "GDI.DeleteDC(" + handle(4) + ")",
            "GDI.DeleteDC(" + handle(6) + ")",
            "GDI.SelectPalette(" + handle(2) + ", 9, true)",
            "GDI.SelectPalette(" + handle(4) + ", 9, true)",
            "GDI.ReleaseDC(0, " + handle(0) + ")"};
}

TEST_F(DrawCalls, PaintTransparentDC) {
    DrawCls drawing; // takes 101 and, for its palette, 102
    Begin();
    drawing.PaintTransparentDC(Destination, 3, 4, 8, 6, Source, 1, 2, 255);
    EXPECT_THAT(Calls(), ElementsAreArray(TransparentCalls(103, "12", "3, 4", "1, 2", 102, 255)));
    Begin();
    drawing.PaintTransparentDC(Destination, 3, 4, 8, 6, Source, 1, 2, 255, OwnPalette);
    EXPECT_THAT(Calls(), ElementsAreArray(TransparentCalls(110, "12", "3, 4", "1, 2", OwnPalette, 255)));
    EXPECT_THAT(gdi.live, ElementsAre(102U));
}

TEST_F(DrawCalls, PaintPicOfABitmap) {
    DrawCls drawing;
    Begin();
    drawing.PaintPic(Destination, 3, 4, 8, 6, Bitmap, 1, 2, 255);
    Lines expected = {"GDI.GetObjectType(21)",
                      "GDI.GetDC(0)",
                      "GDI.CreateCompatibleDC(103)",
                      "GDI.SelectObject(104, 21)",
                      "GDI.SelectPalette(104, 102, true)",
                      "GDI.RealizePalette(104)"};
    for (const std::string& line : TransparentCalls(105, "104", "3, 4", "1, 2", 102, 255))
        expected.push_back(line);
    for (const char* line : {"GDI.SelectObject(104, 9)", "GDI.SelectPalette(104, 9, true)",
                             "GDI.DeleteDC(104)", "GDI.ReleaseDC(0, 103)"})
        expected.emplace_back(line);
    EXPECT_THAT(Calls(), ElementsAreArray(expected));
    EXPECT_THAT(gdi.live, ElementsAre(102U));
}

TEST_F(DrawCalls, PaintPicOfAnIcon) {
    DrawCls drawing;
    Begin();
    drawing.PaintPic(Destination, 3, 4, 8, 6, Icon, 1, 2, 255);
    Lines expected = {"GDI.GetObjectType(22)",
                      "GDI.GetIconInfo(22)",
                      "GDI.GetDC(0)",
                      "GDI.CreateCompatibleBitmap(103, 8, 6)",
                      "GDI.CreateCompatibleDC(103)",
                      "GDI.SelectObject(105, 104)",
                      "GDI.CreateSolidBrush(0)",
                      "GDI.FillRect(105, 0, 0, 8, 6, 106)",
                      "GDI.DeleteObject(106)",
                      "GDI.DrawIcon(105, 0, 0, 22)"};
    for (const std::string& line : TransparentCalls(107, "105", "3, 4", "0, 0", 102, 0))
        expected.push_back(line);
    for (const char* line :
         {"GDI.SelectObject(105, 9)", "GDI.DeleteObject(104)", "GDI.DeleteDC(105)", "GDI.ReleaseDC(0, 103)"})
        expected.emplace_back(line);
    EXPECT_THAT(Calls(), ElementsAreArray(expected));
    EXPECT_THAT(gdi.live, ElementsAre(102U));
}

TEST_F(DrawCalls, PaintPicOfNothingAndOfNoIcon) {
    DrawCls drawing;
    Begin();
    drawing.PaintPic(Destination, 0, 0, 8, 6, 0, 0, 0, 255);
    EXPECT_THAT(Calls(), IsEmpty());
    drawing.PaintPic(Destination, 0, 0, 8, 6, 77, 0, 0, 255);
    EXPECT_THAT(Calls(), ElementsAre("GDI.GetObjectType(77)", "GDI.GetIconInfo(77)"));
}

TEST_F(DrawCalls, PaintNormalStdPic) {
    DrawCls drawing;
    Begin();
    drawing.PaintNormalStdPic(Destination, 3, 4, 8, 6, Bitmap, 1, 2, OwnPalette);
    EXPECT_THAT(Calls(),
                ElementsAre("GDI.GetDC(0)", "GDI.CreateCompatibleDC(103)", "GDI.SelectObject(104, 21)",
                            "GDI.SelectPalette(104, 31, true)", "GDI.RealizePalette(104)",
                            "GDI.BitBlt(11, 3, 4, 8, 6, 104, 1, 2, 13369376)", "GDI.SelectObject(104, 9)",
                            "GDI.SelectPalette(104, 9, true)", "GDI.DeleteDC(104)", "GDI.ReleaseDC(0, 103)"));
}

TEST_F(DrawCalls, GetImageMaskLooksAtFourPixels) {
    gdi.pixels = {{{1, 1}, 1}, {{1, 29}, 2}, {{39, 1}, 3}, {{20, 1}, 3}};
    EXPECT_EQ(DrawCls::GetImageMask(Source, Bitmap), 3U);
    EXPECT_THAT(Calls(),
                ElementsAre("GDI.CreateCompatibleDC(12)", "GDI.SelectObject(101, 21)", "GDI.GetObjectA(21)",
                            "GDI.GetPixel(101, 1, 1)", "GDI.GetPixel(101, 1, 29)", "GDI.GetPixel(101, 39, 1)",
                            "GDI.GetPixel(101, 20, 1)", "GDI.SelectObject(101, 9)", "GDI.DeleteDC(101)"));
}

TEST_F(DrawCalls, ShrinkBmpScalesThroughTheDisplay) {
    EXPECT_EQ(DrawCls::ShrinkBmp(1, Bitmap, 0.5F, 0.25F), 104U);
    EXPECT_THAT(Calls(), ElementsAre("GDI.CreateDCA(\"DISPLAY\")", "GDI.CreateCompatibleDC(101)",
                                     "GDI.CreateCompatibleDC(101)", "GDI.GetObjectA(21)",
                                     "GDI.CreateCompatibleBitmap(101, 20, 8)", "GDI.SelectObject(102, 21)",
                                     "GDI.SelectObject(103, 104)",
                                     "GDI.StretchBlt(103, 0, 0, 20, 8, 102, 0, 0, 40, 30, 13369376)",
                                     "GDI.SelectObject(102, 9)", "GDI.SelectObject(103, 9)",
                                     "GDI.DeleteDC(103)", "GDI.DeleteDC(102)", "GDI.DeleteDC(101)"));
    EXPECT_THAT(gdi.live, ElementsAre(104U));
}

const Lines ReadsInfo = {"GDI.GetObjectA(21)", "GDI.GetDC(0)", "GDI.GetDIBits(101, 21, 0, 0, 0, 40, 0)",
                         "GDI.ReleaseDC(0, 101)"};

TEST_F(DrawCalls, ShrinkBmScalesThroughBits) {
    EXPECT_EQ(DrawCls::ShrinkBm(Bitmap, 0.5F, 0.25F), 106U);
    Lines expected = ReadsInfo;
    for (const char* line :
         {"GDI.LocalAlloc(64, 40)", "GDI.LocalLock(102)", "GDI.LocalLock(102)", "GDI.GetDC(0)",
          "GDI.GetSystemPaletteEntries(103, 0, 256)", "GDI.CreateCompatibleDC(103)",
          "GDI.LocalAlloc(2, 3600)", "GDI.LocalLock(105)", "GDI.GetDIBits(103, 21, 0, 30, 3600, 40, 0)",
          "GDI.CreateCompatibleBitmap(103, 20, 8)", "GDI.SelectObject(104, 106)",
          "GDI.StretchDIBits(104, 0, 0, 20, 8, 0, 0, 40, 30, 3600, 40, 0, 13369376)",
          "GDI.SelectObject(104, 9)", "GDI.LocalUnlock(105)", "GDI.LocalFree(105)", "GDI.LocalFree(102)",
          "GDI.DeleteDC(104)", "GDI.ReleaseDC(0, 103)"})
        expected.emplace_back(line);
    EXPECT_THAT(Calls(), ElementsAreArray(expected));
    EXPECT_THAT(gdi.live, ElementsAre(106U));
}

TEST_F(DrawCalls, ShrinkBmMakesAPaletteOfAsManyColoursAsTheDisplayHas) {
    gdi.displayColors = 256;
    EXPECT_EQ(DrawCls::ShrinkBm(Bitmap, 1, 1), 107U);
    EXPECT_THAT(log->LinesOf({"GDI.CreatePalette", "GDI.SelectPalette", "GDI.RealizePalette",
                              "GDI.DeleteObject", "GDI.LocalFree", "GDI.DeleteDC"}),
                ElementsAre("GDI.CreatePalette(768, 256)", "GDI.SelectPalette(103, 104, true)",
                            "GDI.RealizePalette(103)", "GDI.LocalFree(106)", "GDI.LocalFree(102)",
                            "GDI.SelectPalette(103, 9, true)", "GDI.DeleteObject(104)", "GDI.DeleteDC(105)"));
    ASSERT_EQ(gdi.palettes.size(), 1U);
    const auto& entries = gdi.palettes[0].entries;
    EXPECT_EQ(entries[0], (PaletteEntry{0, 2, 3, 0}));
    EXPECT_EQ(entries[100], (PaletteEntry{100, 102, 103, 0}));
    EXPECT_EQ(entries[255], (PaletteEntry{255, 1, 2, 0})) << "each taken to 8 bits";
    EXPECT_THAT(gdi.live, ElementsAre(107U));
}

TEST_F(DrawCalls, ShrinkBmWithoutBitsIsNothing) {
    gdi.linesRead = 0;
    EXPECT_EQ(DrawCls::ShrinkBm(Bitmap, 1, 1), 0U);
    EXPECT_THAT(log->LinesOf({"GDI.CreateCompatibleBitmap", "GDI.StretchDIBits"}), IsEmpty());
    EXPECT_THAT(gdi.live, IsEmpty());
}

TEST_F(DrawCalls, ShrinkBmOfLessThan48BytesIsNothing) {
    gdi.ownHeader.biSizeImage = 47;
    EXPECT_EQ(DrawCls::ShrinkBm(Bitmap, 1, 1), 0U);
    EXPECT_THAT(Calls(), ElementsAreArray(ReadsInfo));
    gdi.ownHeader.biSizeImage = 48;
    EXPECT_NE(DrawCls::ShrinkBm(Bitmap, 1, 1), 0U);
}

struct BitsRow {
    const char* name;
    std::int16_t planes;
    std::int16_t bitsPixel;
    std::int16_t bits; ///< in the header
    std::int32_t colors;
    std::int32_t size; ///< of the block of memory
};

class DibInfo : public DrawCalls, public ::testing::WithParamInterface<BitsRow> {};

TEST_P(DibInfo, RoundsTheBitsAndLeavesRoomForTheColours) {
    const BitsRow& row = GetParam();
    gdi.bitmaps[Bitmap].bmPlanes = row.planes;
    gdi.bitmaps[Bitmap].bmBitsPixel = row.bitsPixel;
    gdi.ownHeader.biCompression = 3;
    gdi.ownHeader.biClrUsed = 5;
    EXPECT_NE(DrawCls::ShrinkBm(Bitmap, 1, 1), 0U);
    EXPECT_THAT(log->LinesOf({"GDI.LocalAlloc(64"}),
                ElementsAre("GDI.LocalAlloc(64, " + std::to_string(row.size) + ")"));
    BitmapInfoHeader header;
    std::memcpy(&header, gdi.memory.at(102).data(), sizeof header);
    EXPECT_EQ(header.biWidth, 40);
    EXPECT_EQ(header.biHeight, 30);
    EXPECT_EQ(header.biPlanes, row.planes);
    EXPECT_EQ(header.biBitCount, row.bits);
    EXPECT_EQ(header.biCompression, 0);
    EXPECT_EQ(header.biClrUsed, row.colors);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DibInfo,
    ::testing::Values(BitsRow{"One", 1, 1, 1, 2, 48}, BitsRow{"Two", 1, 2, 4, 16, 104},
                      BitsRow{"FourPlanes", 4, 1, 4, 16, 104}, BitsRow{"Five", 1, 5, 8, 256, 1'064},
                      BitsRow{"Fifteen", 1, 15, 16, 65'536, 262'184}, BitsRow{"Seventeen", 1, 17, 24, 5, 40},
                      BitsRow{"TwentyFour", 1, 24, 24, 5, 40}, BitsRow{"TwentyFive", 1, 25, 32, 5, 40},
                      BitsRow{"ThirtyTwo", 1, 32, 32, 5, 40}),
    [](const auto& row) { return std::string(row.param.name); });

// A call that fails passes its nothing on: no operation reports it, and what was made goes again.
TEST_F(DrawCalls, NoFailedCallIsReported) {
    const std::vector<std::function<void(DrawCls&)>> operations = {
        [](DrawCls& drawing) { drawing.PaintPic(Destination, 0, 0, 8, 6, Bitmap, 0, 0, 255); },
        [](DrawCls& drawing) { drawing.PaintPic(Destination, 0, 0, 8, 6, Icon, 0, 0, 255); },
        [](DrawCls& drawing) { drawing.PaintNormalStdPic(Destination, 0, 0, 8, 6, Bitmap, 0, 0); },
        [](DrawCls&) { DrawCls::FillRectangle(Destination, 0, 0, 8, 6, 255); },
        [](DrawCls&) { static_cast<void>(DrawCls::GetImageMask(Destination, Bitmap)); },
        [this](DrawCls&) { gdi.DeleteObject(DrawCls::ShrinkBmp(0, Bitmap, 1, 1)); },
        [this](DrawCls&) { gdi.DeleteObject(DrawCls::ShrinkBm(Bitmap, 1, 1)); }};
    gdi.displayColors = 256;
    for (const auto& operation : operations) {
        bool whole = false;
        for (std::size_t position = 1; !whole; ++position) {
            const auto fault = std::make_shared<FaultObserver>(position, FaultObserver::Reach::Once);
            Platform::Current().observers = {};
            DrawCls drawing;
            const std::size_t before = gdi.live.size();
            fakes::FakePlatform::Observe(fault);
            EXPECT_NO_THROW(operation(drawing)) << position << " " << fault->LastFailed();
            whole = fault->Failed() == 0;
            const std::string& failed = fault->LastFailed();
            const bool release = failed == "GDI.DeleteDC" || failed == "GDI.DeleteObject" ||
                                 failed == "GDI.ReleaseDC" || failed == "GDI.LocalFree";
            EXPECT_EQ(gdi.live.size(), before + (release ? 1 : 0)) << position << " " << failed;
        }
    }
}

struct SizeRow {
    const char* name;
    GdiObject type;
    std::int32_t size;
};

class PictureSize : public DrawCalls, public ::testing::WithParamInterface<SizeRow> {};

TEST_P(PictureSize, IsMeasuredByTheKindOfObject) {
    gdi.types[Bitmap] = GetParam().type;
    gdi.headers[Bitmap] = {.rclBounds = {-10, 5, 90, 55}};
    EXPECT_EQ(GetPictureSize(Bitmap), GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PictureSize,
    ::testing::Values(SizeRow{"Bitmap", GdiObject::Bitmap, 30 * 65'536 + 40},
                      SizeRow{"Metafile", GdiObject::EnhancedMetafile, 50 * 65'536 + 100},
                      SizeRow{"Brush", GdiObject::Brush, 0}, SizeRow{"Icon", GdiObject::None, 0}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(DrawCalls, APictureThatCannotBeReadHasNoSize) {
    gdi.bitmaps.clear();
    EXPECT_EQ(GetPictureSize(Bitmap), 0);
    gdi.types[Bitmap] = GdiObject::EnhancedMetafile;
    EXPECT_EQ(GetPictureSize(Bitmap), 0);
    EXPECT_THAT(log->LinesOf({"GDI.GetEnhMetaFileHeader"}), ElementsAre("GDI.GetEnhMetaFileHeader(21, 88)"));
}

TEST_F(DrawCalls, APictureTooLargeForItsSizeOverflows) {
    gdi.bitmaps[Bitmap].bmWidth = 32'768;
    EXPECT_THROW(static_cast<void>(GetPictureSize(Bitmap)), Failure);
}

TEST_F(DrawCalls, APictureIsFittedByItsHandle) {
    fakes::FakeReportObject object("logo");
    FitPictureToBox(Bitmap, object, 300, 900); // 600 x 450 twips
    EXPECT_EQ(object.width, 300);
    EXPECT_EQ(object.height, 225);
    object.width = 1;
    FitPictureToBox(Icon, object, 300, 900);
    EXPECT_EQ(object.width, 1) << "nothing changes";
}

} // namespace
} // namespace qbrpt
