// Controls with nothing but their values.
#pragma once

#include "base/failure.h"
#include "platform/controls.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeTextBox final : public TextBox {
public:
    explicit FakeTextBox(std::string content = {}, std::int32_t start = 0, std::int32_t length = 0)
        : text(std::move(content)), selStart(start), selLength(length) {}

    std::string text;
    std::int32_t selStart;
    std::int32_t selLength;

private:
    [[nodiscard]] std::string DoText() const override { return text; }
    [[nodiscard]] std::int32_t DoSelStart() const override { return selStart; }
    [[nodiscard]] std::int32_t DoSelLength() const override { return selLength; }
};

class FakeList final : public ListControl {
public:
    std::vector<std::int32_t> itemData;
    std::int32_t listIndex = -1;

private:
    [[nodiscard]] std::int32_t DoListCount() const override {
        return static_cast<std::int32_t>(itemData.size());
    }
    [[nodiscard]] std::int32_t DoListIndex() const override { return listIndex; }
    [[nodiscard]] std::int32_t DoItemData(std::int32_t index) const override {
        return itemData.at(static_cast<std::size_t>(index));
    }
};

class FakeTabs final : public TabStrip {
public:
    std::int16_t count = 0;
    std::int16_t selected = 0;
    std::set<std::int16_t> broken; ///< tabs that cannot be read

private:
    [[nodiscard]] std::int16_t DoTabCount() const override { return count; }
    [[nodiscard]] bool DoTabSelected(std::int16_t index) const override {
        if (broken.contains(index)) throw Failure(FailureNumber::Device, "the tab is gone");
        return index == selected;
    }
};

} // namespace qbrpt::fakes
