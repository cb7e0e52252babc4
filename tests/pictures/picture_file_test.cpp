// Picture files as pixels.
#include "adapters/pictures/picture_file.h"
#include "base/failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>
#include <turbojpeg.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace qbrpt;

/// Red, green; blue, half clear white.
const std::vector<std::uint8_t> FourPixels = {255, 0, 0,   255, 0,   255, 0,   255,
                                              0,   0, 255, 255, 255, 255, 255, 128};

std::string PngFile(std::uint32_t width, std::uint32_t height, const std::vector<std::uint8_t>& rgba) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 0;
    png_image_write_to_memory(&image, nullptr, &size, 0, rgba.data(), 0, nullptr);
    std::string bytes(size, '\0');
    png_image_write_to_memory(&image, bytes.data(), &size, 0, rgba.data(), 0, nullptr);
    bytes.resize(size);
    return bytes;
}

std::string JpegFile(int width, int height, std::uint8_t grey) {
    const std::vector<std::uint8_t> rgb(static_cast<std::size_t>(width * height * 3), grey);
    const tjhandle writer = tjInitCompress();
    unsigned char* data = nullptr;
    unsigned long size = 0;
    tjCompress2(writer, rgb.data(), width, 0, height, TJPF_RGB, &data, &size, TJSAMP_444, 95, 0);
    std::string bytes(reinterpret_cast<const char*>(data), size);
    tjFree(data);
    tjDestroy(writer);
    return bytes;
}

TEST(PictureFile, APngKeepsItsPixels) {
    const auto picture = ReadPicture(PngFile(2, 2, FourPixels), "logo.png");
    EXPECT_EQ(picture->width, 2);
    EXPECT_EQ(picture->height, 2);
    EXPECT_EQ(picture->rgba, FourPixels);
}

TEST(PictureFile, AJpegComesAsNearAsItsKindAllows) {
    const auto picture = ReadPicture(JpegFile(24, 16, 200), "logo.jpg");
    EXPECT_EQ(picture->width, 24);
    EXPECT_EQ(picture->height, 16);
    ASSERT_EQ(picture->rgba.size(), 24U * 16U * 4U);
    EXPECT_NEAR(picture->rgba[0], 200, 3);
    EXPECT_EQ(picture->rgba[3], 255);
}

struct BadFile {
    const char* name;
    std::string bytes;
    const char* told;
};

class BadPicture : public testing::TestWithParam<BadFile> {};

TEST_P(BadPicture, IsRefusedByName) {
    try {
        static_cast<void>(ReadPicture(GetParam().bytes, "logo.png"));
        FAIL() << "it was taken";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::FileAccess);
        EXPECT_THAT(failure.Description(), testing::StartsWith("logo.png: the picture cannot be read: "));
        EXPECT_THAT(failure.Description(), testing::HasSubstr(GetParam().told));
    }
}

/// A PNG file that says it is larger than any memory; it holds no pixels.
std::string HugePng() {
    std::string bytes = PngFile(2, 2, FourPixels);
    const std::string width("\0\0\x80\0", 4);
    return bytes.replace(16, 4, width).replace(20, 4, width);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadPicture,
    testing::Values(BadFile{"Empty", "", "neither a PNG nor a JPEG"}, BadFile{"Text", "logo", "neither"},
                    BadFile{"Bitmap", "BM......", "neither"}, BadFile{"OnlyPngHead", "\x89PNG\r\n\x1a\n", ""},
                    BadFile{"CutPng", PngFile(2, 2, FourPixels).substr(0, 45), ""},
                    BadFile{"HugePng", HugePng(), ""}, BadFile{"OnlyJpegHead", "\xFF\xD8\xFF", ""}),
    [](const auto& row) { return row.param.name; });

} // namespace
