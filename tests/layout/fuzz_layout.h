// One turn of the fuzzer: any text is taken for a layout file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Reads `text` as a layout for the fields of the template `templateIndex` (of AllTemplates, counted round).
/// Whatever is wrong must end in a layout failure; what is taken must come out on pages and as a web page.
/// Stops the program where either does not hold. Returns whether it was taken.
bool FuzzLayout(std::size_t templateIndex, std::string_view text);
