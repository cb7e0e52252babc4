// The frame of a PDF file: numbered objects, the table of their places, the trailer.
#pragma once

#include "adapters/pdf/deflate.h"
#include "base/byte_sink.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::pdf {

/// The number of an object; they count from 1.
using ObjectId = std::uint32_t;

class ObjectFile {
public:
    explicit ObjectFile(ByteSink& sink);

    /// A number for an object that is written later.
    ObjectId Reserve();

    void WriteObject(ObjectId id, std::string_view body);
    /// A stream, compressed; `entries` are its dictionary's entries beside length and filter.
    void WriteStream(ObjectId id, std::string_view entries, std::string_view bytes);
    ObjectId AddObject(std::string_view body);
    ObjectId AddStream(std::string_view entries, std::string_view bytes);

    /// Writes the table of places and the trailer.
    void Finish(ObjectId catalog, ObjectId info);

private:
    void Begin(ObjectId id);
    void Put(std::string_view bytes);
    void Flush();

    ByteSink& mSink;
    Deflater mDeflater;
    std::string mPending;
    std::vector<std::uint64_t> mOffsets; ///< by number less 1
    std::uint64_t mSize = 0;
    std::uint32_t mSum = 0;
};

/// "12 0 R"
[[nodiscard]] std::string Reference(ObjectId id);

/// A text string of a PDF dictionary.
[[nodiscard]] std::string TextString(std::string_view utf8);

} // namespace qbrpt::pdf
