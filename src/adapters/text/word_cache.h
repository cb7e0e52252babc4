// A cache that forgets what has not been asked for of late.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qbrpt::text {

/// Keeps at most twice `capacity` values, in two generations: when the young one is full it becomes the old
/// one, whose values are lost unless they are asked for before the next turn. No list to keep in order, so
/// a hit costs one look-up. A value is kept from the second time on that it is offered: of the many that
/// come once, numbers above all, only a trace of the key remains.
template <typename T>
class WordCache {
public:
    explicit WordCache(std::size_t capacity) : mCapacity(capacity), mTraces(TraceCount, 0) {}

    /// The value of `key`, or null. Valid until the next call.
    const T* Find(std::string_view key) {
        const auto young = mYoung.find(key);
        if (young != mYoung.end()) return &young->second;
        const auto old = mOld.find(key);
        if (old == mOld.end()) return nullptr;
        T value = std::move(old->second);
        mOld.erase(old);
        return &Keep(key, std::move(value));
    }

    void Offer(std::string_view key, const T& value) {
        const std::size_t hash = Hash{}(key) | 1U; // 0 marks a place that is free
        std::size_t& trace = mTraces[(hash >> 1U) % TraceCount];
        if (trace == hash) {
            Keep(key, value);
        } else {
            trace = hash;
        }
    }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
    };
    using Map = std::unordered_map<std::string, T, Hash, std::equal_to<>>;
    static constexpr std::size_t TraceCount = 32768;

    const T& Keep(std::string_view key, T value) {
        if (mYoung.size() >= mCapacity) {
            mOld = std::move(mYoung);
            mYoung = {};
        }
        return mYoung.insert_or_assign(std::string(key), std::move(value)).first->second;
    }

    std::size_t mCapacity;
    Map mYoung;
    Map mOld;
    std::vector<std::size_t> mTraces; ///< hashes of keys that were offered once
};

} // namespace qbrpt::text
