#include "support/picture_fit.h"

#include "base/numbers.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "support/words.h"

namespace qbrpt {

namespace {

double Ratio(std::int32_t part, std::int32_t whole) {
    if (whole == 0) throw Failure(FailureNumber::DivisionByZero, "Division by zero.");
    return static_cast<double>(part) / whole;
}

std::int32_t Packed(std::int64_t width, std::int64_t height) {
    return MakeLong(CheckedShort(width), CheckedShort(height));
}

void FitSizeToBox(std::int32_t size, CrystalRuntime::ReportObject& object, std::int32_t nMaxWidth,
                  std::int32_t nMaxHeight) {
    if (size == 0) return;
    Screen& screen = *Platform::Current().screen;
    std::int32_t width = RoundToLong(LoWord(size) * screen.TwipsPerPixelX());
    std::int32_t height = RoundToLong(HiWord(size) * screen.TwipsPerPixelY());
    const double widthToHeight = Ratio(width, height);
    const double heightToWidth = Ratio(height, width);
    if (width > nMaxWidth) {
        width = nMaxWidth;
        height = RoundToLong(nMaxWidth * heightToWidth);
    }
    if (height > nMaxHeight) {
        height = nMaxHeight;
        width = RoundToLong(nMaxHeight * widthToHeight);
    }
    object.SetWidth(width);
    object.SetHeight(height);
}

} // namespace

std::int32_t GetPictureSize(const Picture& picture) {
    return Packed(picture.width, picture.height);
}

std::int32_t GetPictureSize(GdiHandle hPic) {
    Gdi& gdi = *Platform::Current().gdi;
    const GdiObject type = gdi.GetObjectType(hPic);
    if (type == GdiObject::Bitmap) {
        if (const auto record = gdi.GetObjectA(hPic)) return Packed(record->bmWidth, record->bmHeight);
    } else if (type == GdiObject::EnhancedMetafile) {
        if (const auto header = gdi.GetEnhMetaFileHeader(hPic, sizeof(EnhMetaHeader))) {
            const auto [left, top, right, bottom] = header->rclBounds;
            return Packed(std::int64_t{right} - left, std::int64_t{bottom} - top);
        }
    }
    return 0;
}

void FitPictureToBox(const Picture& picture, CrystalRuntime::ReportObject& object, std::int32_t nMaxWidth,
                     std::int32_t nMaxHeight) {
    FitSizeToBox(GetPictureSize(picture), object, nMaxWidth, nMaxHeight);
}

void FitPictureToBox(GdiHandle hPic, CrystalRuntime::ReportObject& object, std::int32_t nMaxWidth,
                     std::int32_t nMaxHeight) {
    FitSizeToBox(GetPictureSize(hPic), object, nMaxWidth, nMaxHeight);
}

} // namespace qbrpt
