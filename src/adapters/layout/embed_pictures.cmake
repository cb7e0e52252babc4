# Writes the pictures of FOLDER into the source file OUTPUT, so that the program carries them.
file(GLOB pictures "${FOLDER}/*.png")
list(SORT pictures)
set(rows "")
foreach(picture IN LISTS pictures)
  get_filename_component(name "${picture}" NAME)
  file(READ "${picture}" bytes HEX)
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  string(APPEND rows "    {\"${name}\", std::string_view(\"${bytes}\"")
  file(SIZE "${picture}" size)
  string(APPEND rows ", ${size})},\n")
endforeach()
file(WRITE "${OUTPUT}" "// Written by embed_pictures.cmake; change the pictures instead.
#include \"adapters/layout/picture_shelf.h\"

#include <array>

namespace qbrpt::layout {

namespace {

constexpr auto Files = std::to_array<BuiltInPicture>({
${rows}});

} // namespace

std::span<const BuiltInPicture> BuiltInPictures() {
    return Files;
}

} // namespace qbrpt::layout
")
