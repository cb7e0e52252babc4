#include "adapters/pictures/picture_file.h"

#include "base/failure.h"

#include <png.h>
#include <turbojpeg.h>

#include <cstdint>

namespace qbrpt {

namespace {

constexpr std::int64_t MostPixels = 25'000'000;
constexpr int Channels = 4;

[[noreturn]] void Refuse(const std::string& name, const std::string& words) {
    throw Failure(FailureNumber::FileAccess, name + ": the picture cannot be read: " + words + ".");
}

std::shared_ptr<Picture> Blank(std::int64_t width, std::int64_t height, const std::string& name) {
    if (width <= 0 || height <= 0) Refuse(name, "it is empty");
    if (width > MostPixels || height > MostPixels || width * height > MostPixels)
        Refuse(name, "it is too large");
    auto picture = std::make_shared<Picture>();
    picture->width = static_cast<std::int32_t>(width);
    picture->height = static_cast<std::int32_t>(height);
    picture->rgba.resize(static_cast<std::size_t>(width * height * Channels));
    return picture;
}

std::shared_ptr<const Picture> ReadPng(std::string_view bytes, const std::string& name) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const std::shared_ptr<void> freed(nullptr, [&image](void*) { png_image_free(&image); });
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0)
        Refuse(name, image.message);
    image.format = PNG_FORMAT_RGBA;
    const auto picture = Blank(image.width, image.height, name);
    if (png_image_finish_read(&image, nullptr, picture->rgba.data(), 0, nullptr) == 0)
        Refuse(name, image.message);
    return picture;
}

std::shared_ptr<const Picture> ReadJpeg(std::string_view bytes, const std::string& name) {
    const std::shared_ptr<void> reader(tjInitDecompress(), [](void* handle) {
        if (handle != nullptr) tjDestroy(handle);
    });
    if (!reader) Refuse(name, "there is no memory for it");
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    int width = 0;
    int height = 0;
    int sampling = 0;
    int colors = 0;
    if (tjDecompressHeader3(reader.get(), data, bytes.size(), &width, &height, &sampling, &colors) != 0)
        Refuse(name, tjGetErrorStr2(reader.get()));
    const auto picture = Blank(width, height, name);
    const int done =
        tjDecompress2(reader.get(), data, bytes.size(), picture->rgba.data(), width, 0, height, TJPF_RGBA, 0);
    // A warning leaves a picture that can be shown; an error leaves none.
    if (done != 0 && tjGetErrorCode(reader.get()) == TJERR_FATAL) Refuse(name, tjGetErrorStr2(reader.get()));
    return picture;
}

} // namespace

std::shared_ptr<const Picture> ReadPicture(std::string_view bytes, const std::string& name) {
    if (bytes.starts_with("\x89PNG")) return ReadPng(bytes, name);
    if (bytes.starts_with("\xFF\xD8")) return ReadJpeg(bytes, name);
    Refuse(name, "it is neither a PNG nor a JPEG file");
}

} // namespace qbrpt
