// The course of a search through all pages: what is known so far, which page comes next.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace qbrpt::viewer {

/// One place among all: a page and the number of the place on it, both from 0.
struct HitPlace {
    std::int32_t page = 0;
    std::size_t hit = 0;
    friend bool operator==(const HitPlace&, const HitPlace&) = default;
};

/// Keeps a number a page, however many places there are. Pages are looked through from the one that the
/// reader has before him, to the end and then from the beginning; but if he steps into pages not looked
/// through yet, those come first.
class SearchCourse {
public:
    SearchCourse(std::int32_t pages, std::int32_t from);

    /// The page to be looked through now; none when all are.
    [[nodiscard]] std::optional<std::int32_t> NextPage() const;
    void Found(std::int32_t page, std::size_t hits);

    [[nodiscard]] bool Complete() const { return mDone == mHits.size(); }
    [[nodiscard]] std::size_t Pages() const { return mHits.size(); }
    [[nodiscard]] std::size_t PagesDone() const { return mDone; }
    [[nodiscard]] std::size_t Total() const { return mTotal; }
    [[nodiscard]] const std::optional<HitPlace>& Current() const { return mCurrent; }
    /// The number of the current place among those found so far, from 1.
    [[nodiscard]] std::size_t CurrentNumber() const;

    /// Goes to the next place, or the one before, around the end of the report. Where the way there leads
    /// over pages not looked through yet, the step is made as soon as they are. True when it was made now.
    bool Step(bool forward);
    /// Makes the step that waits, once it can be made. True when it was made now.
    bool Resume();

private:
    bool Walk();

    static constexpr std::int64_t Unknown = -1;
    std::vector<std::int64_t> mHits; ///< by page
    std::int32_t mFrom = 0;
    std::int32_t mScan = 0; ///< where the steady walk stands
    std::size_t mDone = 0;
    std::size_t mTotal = 0;
    std::optional<HitPlace> mCurrent;

    struct Wait {
        bool forward = true;
        std::int32_t page = 0; ///< to be looked through next
        std::size_t walked = 0;
    };
    std::optional<Wait> mWait;
};

} // namespace qbrpt::viewer
