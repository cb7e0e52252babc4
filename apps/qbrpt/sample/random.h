// Numbers that are the same on every machine.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace qbrpt::sample {

/// A small generator (SplitMix64). The library's own distributions differ between its versions.
class Random {
public:
    explicit Random(std::uint64_t seed) : mState(seed) {}

    std::uint64_t Next() {
        mState += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = mState;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    /// A whole number from `least` to `most`.
    int Between(int least, int most) {
        const auto width = static_cast<std::uint64_t>(most) - static_cast<std::uint64_t>(least) + 1;
        return least + static_cast<int>(Next() % width);
    }

    /// True in `percent` of 100 cases.
    bool Chance(int percent) { return Between(0, 99) < percent; }

    /// True in `share` of 1000 cases.
    bool Rarely(int share) { return Between(0, 999) < share; }

    template <class T, std::size_t N>
    const T& Pick(const std::array<T, N>& items) {
        return items[Next() % N];
    }

private:
    std::uint64_t mState;
};

} // namespace qbrpt::sample
