#include "adapters/pdf/image_objects.h"

#include "adapters/pdf/deflate.h"
#include "adapters/pdf/numbers.h"
#include "base/failure.h"

#include <functional>
#include <limits>
#include <string>
#include <string_view>

namespace qbrpt::pdf {

namespace {

std::string_view Bytes(const Picture& picture) {
    return {reinterpret_cast<const char*>(picture.rgba.data()), picture.rgba.size()};
}

std::string Entries(const Picture& picture, std::string_view colorSpace) {
    std::string entries = "/Type/XObject/Subtype/Image/BitsPerComponent 8/ColorSpace/";
    entries += colorSpace;
    entries += "/Width ";
    AppendInteger(entries, picture.width);
    entries += "/Height ";
    AppendInteger(entries, picture.height);
    return entries;
}

} // namespace

ObjectId ImageObjects::Write(const Picture& picture) {
    std::string colors;
    std::string alphas;
    colors.reserve(picture.rgba.size() / 4 * 3);
    alphas.reserve(picture.rgba.size() / 4);
    bool opaque = true;
    const std::string_view bytes = Bytes(picture);
    for (std::size_t i = 0; i + 3 < bytes.size(); i += 4) {
        colors += bytes.substr(i, 3);
        alphas.push_back(bytes[i + 3]);
        opaque = opaque && picture.rgba[i + 3] == 0xFF;
    }
    std::string entries = Entries(picture, "DeviceRGB");
    if (!opaque) entries += "/SMask " + Reference(mFile.AddStream(Entries(picture, "DeviceGray"), alphas));
    return mFile.AddStream(entries, colors);
}

ImageId ImageObjects::IdOf(const std::shared_ptr<const Picture>& picture) {
    if (picture == mLast.lock()) return mLastId;
    const std::int64_t pixels = std::int64_t{picture->width} * picture->height;
    if (picture->width <= 0 || picture->height <= 0 ||
        static_cast<std::int64_t>(picture->rgba.size()) != 4 * pixels)
        throw Failure(FailureNumber::InvalidArgument, "a picture of the report does not have the pixels that "
                                                      "its width and height say");
    const Content content{picture->width, picture->height, Checksum(0, Bytes(*picture)),
                          std::hash<std::string_view>{}(Bytes(*picture))};
    auto known = mByContent.find(content);
    if (known == mByContent.end()) {
        if (mObjects.size() > std::numeric_limits<ImageId>::max())
            throw Failure(FailureNumber::Output,
                          "the PDF cannot be written: it has more than 65536 pictures");
        const auto id = static_cast<ImageId>(mObjects.size());
        mObjects.push_back(Write(*picture));
        known = mByContent.emplace(content, id).first;
    }
    mLast = picture;
    mLastId = known->second;
    return mLastId;
}

} // namespace qbrpt::pdf
