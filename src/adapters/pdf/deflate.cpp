#include "adapters/pdf/deflate.h"

#include "base/failure.h"

#include <libdeflate.h>

namespace qbrpt::pdf {

namespace {
// Level 1 takes half the time of level 6 and a seventh more room; the pages of a report are all alike.
constexpr int Level = 1;
} // namespace

void Deflater::Deleter::operator()(libdeflate_compressor* compressor) const {
    libdeflate_free_compressor(compressor);
}

Deflater::Deflater() : mCompressor(libdeflate_alloc_compressor(Level)) {
    if (!mCompressor) throw Failure(FailureNumber::Output, "the PDF cannot be written: out of memory");
}

std::string_view Deflater::Compress(std::string_view bytes) {
    const std::size_t bound = libdeflate_zlib_compress_bound(mCompressor.get(), bytes.size());
    if (mBuffer.size() < bound) mBuffer.resize(bound);
    const std::size_t size = libdeflate_zlib_compress(mCompressor.get(), bytes.data(), bytes.size(),
                                                      mBuffer.data(), mBuffer.size());
    return {mBuffer.data(), size};
}

std::uint32_t Checksum(std::uint32_t sum, std::string_view bytes) {
    return libdeflate_crc32(sum, bytes.data(), bytes.size());
}

} // namespace qbrpt::pdf
