// For test programs that link no adapters: a port used without a fake in place is a mistake of the test.
#include "platform/platform.h"

#include <stdexcept>

namespace qbrpt {

std::unique_ptr<Platform> MakeRealPlatform() {
    throw std::logic_error("no platform is installed in this test");
}

} // namespace qbrpt
