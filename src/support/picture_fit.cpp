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

} // namespace

std::int32_t GetPictureSize(const Picture& picture) {
    return MakeLong(CheckedShort(picture.width), CheckedShort(picture.height));
}

void FitPictureToBox(const Picture& picture, CrystalRuntime::ReportObject& object, std::int32_t nMaxWidth,
                     std::int32_t nMaxHeight) {
    const std::int32_t size = GetPictureSize(picture);
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

} // namespace qbrpt
