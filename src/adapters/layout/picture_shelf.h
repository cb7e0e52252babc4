// Pictures that layouts show.
#pragma once

#include "adapters/layout/mistakes.h"
#include "base/picture.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace qbrpt::layout {

/// A picture file that is built into the program.
struct BuiltInPicture {
    std::string_view name;
    std::string_view bytes;
};
[[nodiscard]] std::span<const BuiltInPicture> BuiltInPictures();

/// Finds pictures by the names that layout files give them.
class PictureShelf {
public:
    /// `folder` holds the café's own files; empty: there are none.
    PictureShelf(std::string folder, Mistakes& mistakes) : mFolder(std::move(folder)), mMistakes(mistakes) {}

    /// The picture `file`: that of the café's folder, else the built-in one. Null and a mistake at `usedAt`
    /// where it is in neither or cannot be read.
    [[nodiscard]] std::shared_ptr<const Picture> Find(const std::string& file, const Place& usedAt) const;

private:
    std::string mFolder;
    Mistakes& mMistakes;
};

} // namespace qbrpt::layout
