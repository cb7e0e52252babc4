// A test that draws on pixels of the real drawing system.
#pragma once

#include "adapters/gdi/raster_gdi.h"
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "gdi/picture_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace qbrpt::test {

class GdiTest : public ::testing::Test {
protected:
    GdiTest() { Platform::Current().gdi = gdi; }

    /// The pixels of a bitmap.
    Rows PixelsOf(GdiHandle bitmap) {
        const BitmapRecord record = gdi->GetObjectA(bitmap).value();
        const Rows ground(static_cast<std::size_t>(record.bmHeight),
                          std::string(static_cast<std::size_t>(record.bmWidth), 'y'));
        const GdiHandle canvas = gdi->OpenCanvas(PictureOf(ground));
        const GdiHandle memory = gdi->CreateCompatibleDC(0);
        const GdiHandle old = gdi->SelectObject(memory, bitmap);
        EXPECT_NE(old, 0) << "the bitmap is still selected elsewhere";
        gdi->BitBlt(canvas, {.width = record.bmWidth, .height = record.bmHeight}, memory, 0, 0,
                    RasterOp::SourceCopy);
        gdi->SelectObject(memory, old);
        gdi->DeleteDC(memory);
        return RowsOf(gdi->CloseCanvas(canvas));
    }

    fakes::FakePlatform platform;
    std::shared_ptr<gdi::RasterGdi> gdi = std::make_shared<gdi::RasterGdi>();
};

} // namespace qbrpt::test
