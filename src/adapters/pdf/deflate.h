// Compression of a whole block at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct libdeflate_compressor;

namespace qbrpt::pdf {

class Deflater {
public:
    Deflater();

    /// `bytes` in zlib form; valid until the next call.
    std::string_view Compress(std::string_view bytes);

private:
    struct Deleter {
        void operator()(libdeflate_compressor* compressor) const;
    };
    std::unique_ptr<libdeflate_compressor, Deleter> mCompressor;
    std::string mBuffer;
};

/// A check sum over bytes that come in parts: the one before goes in as `sum`, 0 at the start.
[[nodiscard]] std::uint32_t Checksum(std::uint32_t sum, std::string_view bytes);

} // namespace qbrpt::pdf
