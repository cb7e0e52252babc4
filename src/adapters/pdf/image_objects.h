// Pictures of a PDF file, each written once.
#pragma once

#include "adapters/pdf/object_file.h"
#include "base/picture.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace qbrpt::pdf {

/// Number of a picture in the file; its resource name is "I" and this number.
using ImageId = std::uint16_t;

class ImageObjects {
public:
    explicit ImageObjects(ObjectFile& file) : mFile(file) {}

    /// Writes the picture at its first use. Raises FailureNumber::InvalidArgument when it has fewer pixels
    /// than its size says.
    ImageId IdOf(const std::shared_ptr<const Picture>& picture);

    /// By ImageId.
    [[nodiscard]] const std::vector<ObjectId>& Objects() const { return mObjects; }

private:
    using Content = std::tuple<std::int32_t, std::int32_t, std::uint32_t, std::size_t>;
    ObjectId Write(const Picture& picture);

    ObjectFile& mFile;
    std::vector<ObjectId> mObjects;
    std::map<Content, ImageId> mByContent;
    std::weak_ptr<const Picture> mLast; ///< the same logo comes on every page: no need to look at its pixels
    ImageId mLastId = 0;
};

} // namespace qbrpt::pdf
