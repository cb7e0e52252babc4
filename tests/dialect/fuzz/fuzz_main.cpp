// The long run: fuzz_dialect [-max_total_time=SECONDS] [CORPUS].
#include "dialect/fuzz_dialect.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    return FuzzDialect(bytes, size);
}
