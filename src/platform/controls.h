// The window controls, as far as the shared text routines look at them.
#pragma once

#include "platform/port.h"

#include <cstdint>
#include <string>

namespace qbrpt {

class TextBox : public Port {
public:
    [[nodiscard]] std::string Text() const { return DoText(); }
    /// Where the selection begins, in characters from 0.
    [[nodiscard]] std::int32_t SelStart() const { return DoSelStart(); }
    /// Characters selected; 0 for a bare caret.
    [[nodiscard]] std::int32_t SelLength() const { return DoSelLength(); }

private:
    [[nodiscard]] virtual std::string DoText() const = 0;
    [[nodiscard]] virtual std::int32_t DoSelStart() const = 0;
    [[nodiscard]] virtual std::int32_t DoSelLength() const = 0;
};

/// A combo or list box.
class ListControl : public Port {
public:
    [[nodiscard]] std::int32_t ListCount() const { return DoListCount(); }
    /// The selected entry from 0, -1 for none.
    [[nodiscard]] std::int32_t ListIndex() const { return DoListIndex(); }
    [[nodiscard]] std::int32_t ItemData(std::int32_t index) const { return DoItemData(index); }

private:
    [[nodiscard]] virtual std::int32_t DoListCount() const = 0;
    [[nodiscard]] virtual std::int32_t DoListIndex() const = 0;
    [[nodiscard]] virtual std::int32_t DoItemData(std::int32_t index) const = 0;
};

class TabStrip : public Port {
public:
    [[nodiscard]] std::int16_t TabCount() const { return DoTabCount(); }
    /// Whether tab `index`, counted from 1, is the selected one.
    [[nodiscard]] bool TabSelected(std::int16_t index) const { return DoTabSelected(index); }

private:
    [[nodiscard]] virtual std::int16_t DoTabCount() const = 0;
    [[nodiscard]] virtual bool DoTabSelected(std::int16_t index) const = 0;
};

} // namespace qbrpt
