// The pictures of tool bars, boxes and windows.
#pragma once

#include <QtGui/QIcon>

#include <cstdint>
#include <string_view>

namespace qbrpt::qt {

/// Picture `number`, from 1, of an image list: "ImageList1" for right-to-left tool bars, "ImageList2" for
/// left-to-right ones. An empty icon for any other.
[[nodiscard]] QIcon ListPicture(std::string_view list, std::int16_t number);

/// Picture `number`, from 1, of the tabs of a form; an empty icon where there is none.
[[nodiscard]] QIcon TabPicture(std::string_view form, std::int16_t number);

/// One of the drawings in icons/, by its file name without the ending.
[[nodiscard]] QIcon Drawing(const QString& name, bool mirrored = false);

} // namespace qbrpt::qt
