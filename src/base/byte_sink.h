// Where bytes go: a file, a spooler, a test's string.
#pragma once

#include <string_view>

namespace qbrpt {

class ByteSink {
public:
    virtual ~ByteSink() = default;
    /// Takes all of `bytes`, or raises a Failure.
    virtual void Write(std::string_view bytes) = 0;
};

} // namespace qbrpt
