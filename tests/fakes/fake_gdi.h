// Hands out handles and keeps count of them; draws nothing.
#pragma once

#include "platform/gdi.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeGdi final : public Gdi {
public:
    std::map<GdiHandle, GdiObject> types;       ///< of objects that a test made up
    std::map<GdiHandle, BitmapRecord> bitmaps;  ///< their records
    std::map<GdiHandle, EnhMetaHeader> headers; ///< of metafiles
    std::map<GdiHandle, IconRecord> icons;
    std::map<std::pair<std::int32_t, std::int32_t>, ColorRef> pixels;
    BitmapInfoHeader ownHeader; ///< what a bitmap says of its own bits
    std::int32_t displayColors = 0;
    std::int32_t linesRead = 1; ///< by GetDIBits with room for bits

    std::set<GdiHandle> live;         ///< handed out, and not taken back
    std::vector<LogPalette> palettes; ///< that were made
    std::map<GdiHandle, std::vector<std::uint8_t>> memory;

private:
    static constexpr GdiHandle Stock = 9; ///< what a context begins with

    GdiHandle New() {
        live.insert(++mLast);
        return mLast;
    }
    GdiHandle Select(std::map<GdiHandle, GdiHandle>& held, GdiHandle hdc, GdiHandle object) {
        const auto [place, first] = held.emplace(hdc, Stock);
        return std::exchange(place->second, object);
    }
    template <class Record>
    static std::optional<Record> Of(const std::map<GdiHandle, Record>& records, GdiHandle handle) {
        const auto found = records.find(handle);
        return found == records.end() ? std::nullopt : std::optional(found->second);
    }

    GdiHandle DoGetDC(GdiHandle) override { return New(); }
    bool DoReleaseDC(GdiHandle, GdiHandle hdc) override { return live.erase(hdc) != 0; }
    GdiHandle DoCreateDCA(const std::string&) override { return New(); }
    GdiHandle DoCreateCompatibleDC(GdiHandle) override { return New(); }
    bool DoDeleteDC(GdiHandle hdc) override { return live.erase(hdc) != 0; }
    GdiHandle DoSelectObject(GdiHandle hdc, GdiHandle object) override {
        return Select(mSelected, hdc, object);
    }
    ColorRef DoSetBkColor(GdiHandle, ColorRef) override { return ColorWhite; }
    ColorRef DoSetTextColor(GdiHandle, ColorRef) override { return ColorBlack; }
    ColorRef DoGetBkColor(GdiHandle) override { return 111; }
    ColorRef DoGetTextColor(GdiHandle) override { return 222; }
    bool DoDeleteObject(GdiHandle object) override { return live.erase(object) != 0; }
    GdiObject DoGetObjectType(GdiHandle object) override {
        return Of(types, object).value_or(GdiObject::None);
    }
    std::optional<BitmapRecord> DoGetObjectA(GdiHandle bitmap) override { return Of(bitmaps, bitmap); }
    GdiHandle DoCreateCompatibleBitmap(GdiHandle, std::int32_t, std::int32_t) override { return New(); }
    GdiHandle DoCreateBitmap(std::int32_t, std::int32_t, std::int32_t, std::int32_t) override {
        return New();
    }
    GdiHandle DoCreateSolidBrush(ColorRef) override { return New(); }
    GdiHandle DoCreateHalftonePalette(GdiHandle) override { return New(); }
    GdiHandle DoCreatePalette(const LogPalette& palette) override {
        palettes.push_back(palette);
        return New();
    }
    GdiHandle DoSelectPalette(GdiHandle hdc, GdiHandle palette, bool) override {
        return Select(mPalettes, hdc, palette);
    }
    std::int32_t DoRealizePalette(GdiHandle) override { return 0; }
    std::int32_t DoGetSystemPaletteEntries(GdiHandle, std::int32_t, std::span<PaletteEntry>) override {
        return displayColors;
    }
    bool DoBitBlt(GdiHandle, const GdiArea&, GdiHandle, std::int32_t, std::int32_t, RasterOp) override {
        return true;
    }
    bool DoStretchBlt(GdiHandle, const GdiArea&, GdiHandle, const GdiArea&, RasterOp) override {
        return true;
    }
    bool DoFillRect(GdiHandle, std::int32_t, std::int32_t, std::int32_t, std::int32_t, GdiHandle) override {
        return true;
    }
    ColorRef DoGetPixel(GdiHandle, std::int32_t x, std::int32_t y) override {
        const auto found = pixels.find({x, y});
        return found == pixels.end() ? ColorNone : found->second;
    }
    std::int32_t DoGetDIBits(GdiHandle, GdiHandle, std::int32_t, std::int32_t, std::span<std::uint8_t> bits,
                             std::span<std::uint8_t> info, std::int32_t) override {
        if (!bits.empty()) return linesRead;
        if (info.empty()) return 0;
        std::memcpy(info.data(), &ownHeader, std::min(info.size(), sizeof ownHeader));
        return 1;
    }
    std::int32_t DoStretchDIBits(GdiHandle, const GdiArea&, const GdiArea&, std::span<const std::uint8_t>,
                                 std::span<const std::uint8_t>, std::int32_t, RasterOp) override {
        return 1;
    }
    std::optional<IconRecord> DoGetIconInfo(GdiHandle icon) override { return Of(icons, icon); }
    bool DoDrawIcon(GdiHandle, std::int32_t, std::int32_t, GdiHandle) override { return true; }
    std::optional<EnhMetaHeader> DoGetEnhMetaFileHeader(GdiHandle metafile, std::int32_t) override {
        return Of(headers, metafile);
    }
    GdiHandle DoLocalAlloc(std::int32_t, std::int32_t size) override {
        const GdiHandle handle = New();
        memory[handle].resize(static_cast<std::size_t>(size));
        return handle;
    }
    std::span<std::uint8_t> DoLocalLock(GdiHandle block) override { return memory[block]; }
    bool DoLocalUnlock(GdiHandle) override { return true; }
    bool DoLocalFree(GdiHandle block) override { return live.erase(block) != 0; }

    GdiHandle mLast = 100;
    std::map<GdiHandle, GdiHandle> mSelected;
    std::map<GdiHandle, GdiHandle> mPalettes;
};

} // namespace qbrpt::fakes
