// Pictures in boxes.
#pragma once

#include "base/picture.h"
#include "platform/CrystalRuntime.h"
#include "platform/gdi.h"

#include <cstdint>

namespace qbrpt {

/// Width and height in pixels, packed as by MakeLong. What does not fit 16 bits is FailureNumber::Overflow.
[[nodiscard]] std::int32_t GetPictureSize(const Picture& picture);
/// The same of a bitmap by its handle, and of the bounds of an enhanced metafile; 0 of any other object.
[[nodiscard]] std::int32_t GetPictureSize(GdiHandle hPic);

/// Gives `object` the size of `picture` on the screen, shrunk in proportion where it is wider or higher than
/// the box; twips. A smaller picture is not enlarged; one without a size changes nothing. One without a
/// height alone is FailureNumber::DivisionByZero.
void FitPictureToBox(const Picture& picture, CrystalRuntime::ReportObject& object, std::int32_t nMaxWidth,
                     std::int32_t nMaxHeight);
void FitPictureToBox(GdiHandle hPic, CrystalRuntime::ReportObject& object, std::int32_t nMaxWidth,
                     std::int32_t nMaxHeight);

} // namespace qbrpt
