// One turn of the fuzzer: any bytes are taken for a statement.
#pragma once

#include <cstddef>
#include <cstdint>

/// Translates the bytes against a small café. Whatever is wrong must end in a Failure; what translates must
/// be a statement that the engine takes. Stops the program where either does not hold. Always returns 0.
int FuzzDialect(const std::uint8_t* bytes, std::size_t size);
