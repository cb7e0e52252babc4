#include "adapters/layout/picture_shelf.h"

#include "adapters/layout/own_file.h"
#include "adapters/pictures/picture_file.h"
#include "base/failure.h"

namespace qbrpt::layout {

namespace {

constexpr std::uintmax_t LargestPicture = 20'000'000;

} // namespace

std::shared_ptr<const Picture> PictureShelf::Find(const std::string& file, const Place& usedAt) const {
    try {
        if (const auto own = ReadOwnFile(mFolder, file, LargestPicture, "picture"))
            return ReadPicture(own->text, own->path);
        for (const BuiltInPicture& builtIn : BuiltInPictures())
            if (builtIn.name == file) return ReadPicture(builtIn.bytes, file);
    } catch (const Failure& failure) {
        mMistakes.Add(usedAt, failure.Description());
        return nullptr;
    }
    std::vector<std::string_view> known;
    for (const BuiltInPicture& builtIn : BuiltInPictures())
        known.push_back(builtIn.name);
    mMistakes.Add(usedAt, "there is no picture " + Quoted(file) +
                              (mFolder.empty() ? "" : " in the folder " + mFolder) + Suggestion(file, known));
    return nullptr;
}

} // namespace qbrpt::layout
