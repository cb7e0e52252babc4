// What the handles of the drawing system stand for.
#pragma once

#include "adapters/gdi/surface.h"
#include "base/failure.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace qbrpt::gdi {

struct Brush {
    ColorRef color = ColorBlack;
};

/// Kept for its handle's sake: our displays have all colours.
struct Palette {
    std::vector<PaletteEntry> entries;
};

struct Icon {
    Surface mask;  ///< one colour: white where the surroundings stay
    Surface color; ///< black where the surroundings stay
};

struct Metafile {
    EnhMetaHeader header;
};

struct Memory {
    std::vector<std::uint8_t> bytes;
};

/// How a context came, and so how it goes.
enum class ContextKind : std::uint8_t { Screen, Device, Memory, Canvas };

struct Context {
    ContextKind kind = ContextKind::Memory;
    ContextColors colors{};
    GdiHandle bitmap = 0;  ///< of a context in memory
    GdiHandle palette = 0; ///< selected into it
    Surface canvas{};      ///< of a window's canvas
};

using Object = std::variant<Context, Surface, Brush, Palette, Icon, Metafile, Memory>;

/// Gives out handles, each number once.
class Objects {
public:
    GdiHandle Add(Object object) {
        mObjects.emplace(++mLast, std::move(object));
        return mLast;
    }

    /// Null for another kind of object and for one that is gone.
    template <class Kind>
    [[nodiscard]] Kind* Find(GdiHandle handle) {
        const auto found = mObjects.find(handle);
        return found == mObjects.end() ? nullptr : std::get_if<Kind>(&found->second);
    }
    [[nodiscard]] const Object* FindAny(GdiHandle handle) const {
        const auto found = mObjects.find(handle);
        return found == mObjects.end() ? nullptr : &found->second;
    }

    bool Remove(GdiHandle handle) { return mObjects.erase(handle) != 0; }
    [[nodiscard]] std::size_t Count() const { return mObjects.size(); }

    /// Whether a context holds the bitmap or the palette.
    [[nodiscard]] bool Selected(GdiHandle handle) const {
        for (const auto& [number, object] : mObjects) {
            const auto* context = std::get_if<Context>(&object);
            if (context && (context->bitmap == handle || context->palette == handle)) return true;
        }
        return false;
    }

private:
    std::map<GdiHandle, Object> mObjects;
    GdiHandle mLast = 0;
};

} // namespace qbrpt::gdi
