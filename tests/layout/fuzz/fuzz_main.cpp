// The long run: fuzz_layout [-max_total_time=SECONDS] [CORPUS]. The first byte of an input chooses the
// template.
#include "layout/fuzz_layout.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size > 0) FuzzLayout(bytes[0], {reinterpret_cast<const char*>(bytes + 1), size - 1});
    return 0;
}
