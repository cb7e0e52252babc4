#include "platform/platform.h"

#include <utility>

namespace qbrpt {

namespace {

std::unique_ptr<Platform>& TheOne() {
    static std::unique_ptr<Platform> platform;
    return platform;
}

} // namespace

Platform& Platform::Current() {
    auto& platform = TheOne();
    if (!platform) platform = MakeRealPlatform();
    return *platform;
}

std::unique_ptr<Platform> Platform::Install(std::unique_ptr<Platform> platform) {
    return std::exchange(TheOne(), std::move(platform));
}

} // namespace qbrpt
