# Writes the layout files of FOLDER into the source file OUTPUT, so that the program carries them.
file(GLOB layouts "${FOLDER}/*.toml")
list(SORT layouts)
set(rows "")
foreach(layout IN LISTS layouts)
  get_filename_component(name "${layout}" NAME_WE)
  file(READ "${layout}" text)
  string(APPEND rows "    {\"${name}\", R\"layout(${text})layout\"},\n")
endforeach()
file(WRITE "${OUTPUT}" "// Written by embed_layouts.cmake; change the layout files instead.
#include \"adapters/layout/library.h\"

#include <array>

namespace qbrpt::layout {

namespace {

constexpr auto Files = std::to_array<BuiltInFile>({
${rows}});

} // namespace

std::span<const BuiltInFile> BuiltInFiles() {
    return Files;
}

} // namespace qbrpt::layout
")
