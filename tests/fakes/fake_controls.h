// Controls with nothing but their values. What is set is heard as in a real window.
#pragma once

#include "base/failure.h"
#include "platform/controls.h"
#include "platform/forms.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

/// What every fake control remembers.
struct ControlState {
    WindowHandle handle = 0;
    bool enabled = true;
    bool visible = true;
    ControlPlace place;
    int focused = 0;        ///< times that it got the focus
    int broughtToFront = 0; ///< times
    std::function<void()> takeFocus = [] {};
};

template <class Kind>
class FakeControl : public Kind, public ControlState {
    [[nodiscard]] WindowHandle DohWnd() const override { return handle; }
    [[nodiscard]] bool DoEnabled() const override { return enabled; }
    void DoSetEnabled(bool value) override { enabled = value; }
    [[nodiscard]] bool DoVisible() const override { return visible; }
    void DoSetVisible(bool value) override { visible = value; }
    [[nodiscard]] ControlPlace DoPlace() const override { return place; }
    void DoMove(const ControlPlace& value) override { place = value; }
    void DoZOrder() override { ++broughtToFront; }
    void DoSetFocus() override {
        if (!enabled || !visible) throw Failure(FailureNumber::InvalidArgument, "It cannot take the focus.");
        ++focused;
        takeFocus();
    }
};

class FakeLabel final : public FakeControl<Label> {
public:
    std::string caption;

private:
    void DoSetCaption(const std::string& value) override { caption = value; }
};

class FakeFrame final : public FakeControl<Control> {};

class FakeTextBox final : public FakeControl<TextBox> {
public:
    explicit FakeTextBox(std::string content = {}, std::int32_t start = 0, std::int32_t length = 0)
        : text(std::move(content)), selStart(start), selLength(length) {}

    std::string text;
    std::int32_t selStart;
    std::int32_t selLength;
    bool broken = false; ///< it cannot be read
    std::function<void()> changed = [] {};

private:
    [[nodiscard]] std::string DoText() const override {
        if (broken) throw Failure(FailureNumber::Device, "the box is gone");
        return text;
    }
    void DoSetText(const std::string& value) override {
        if (std::exchange(text, value) != value) changed();
    }
    [[nodiscard]] std::int32_t DoSelStart() const override { return selStart; }
    void DoSetSelStart(std::int32_t start) override { selStart = start; }
    [[nodiscard]] std::int32_t DoSelLength() const override { return selLength; }
    void DoSetSelLength(std::int32_t length) override { selLength = length; }
};

class FakeCommandButton final : public FakeControl<CommandButton> {
public:
    bool isDefault = false;
    std::function<void()> madeDefault = [] {};

private:
    void DoSetDefault(bool value) override {
        if (value) madeDefault();
        isDefault = value;
    }
};

class FakeToggle final : public FakeControl<ToggleControl> {
public:
    bool on = false;
    std::function<void()> switchedOn = [] {}; ///< before it is on
    std::function<void()> clicked = [] {};

private:
    [[nodiscard]] bool DoValue() const override { return on; }
    void DoSetValue(bool value) override {
        if (value == on) return;
        if (value) switchedOn();
        on = value;
        clicked();
    }
};

class FakeList final : public FakeControl<ListControl> {
public:
    std::vector<std::string> items;
    std::vector<std::int32_t> itemData;
    std::int32_t listIndex = -1;
    std::function<void()> clicked = [] {};

private:
    void DoClear() override {
        items.clear();
        itemData.clear();
        listIndex = -1;
    }
    void DoAddItem(const std::string& text) override {
        items.push_back(text);
        itemData.push_back(0);
    }
    [[nodiscard]] std::int32_t DoListCount() const override {
        return static_cast<std::int32_t>(itemData.size());
    }
    [[nodiscard]] std::int32_t DoListIndex() const override { return listIndex; }
    void DoSetListIndex(std::int32_t index) override {
        if (index < -1 || index >= DoListCount())
            throw Failure(FailureNumber::InvalidArgument, "There is no such entry.");
        listIndex = index;
        if (index >= 0) clicked();
    }
    [[nodiscard]] std::int32_t DoItemData(std::int32_t index) const override {
        return itemData.at(static_cast<std::size_t>(index));
    }
    void DoSetItemData(std::int32_t index, std::int32_t data) override {
        itemData.at(static_cast<std::size_t>(index)) = data;
    }
    [[nodiscard]] std::string DoText() const override {
        return listIndex < 0 ? std::string() : items.at(static_cast<std::size_t>(listIndex));
    }
};

class FakeListView final : public FakeControl<ListView> {
public:
    struct Item {
        std::string key;
        std::string text;
        std::vector<std::string> subItems;
    };
    std::vector<Item> items;
    std::int32_t selected = 0;

private:
    [[nodiscard]] const Item& At(std::int32_t index) const {
        return items.at(static_cast<std::size_t>(index - 1));
    }
    [[nodiscard]] Item& At(std::int32_t index) { return items.at(static_cast<std::size_t>(index - 1)); }

    void DoClear() override {
        items.clear();
        selected = 0;
    }
    void DoAdd(const std::string& key, const std::string& text) override {
        if (std::any_of(items.begin(), items.end(), [&](const Item& item) { return item.key == key; }))
            throw Failure(FailureNumber::NotUnique, "There is an item \"" + key + "\" already.");
        items.push_back({key, text, {}});
    }
    [[nodiscard]] std::int32_t DoItemCount() const override {
        return static_cast<std::int32_t>(items.size());
    }
    [[nodiscard]] std::string DoItemKey(std::int32_t index) const override { return At(index).key; }
    [[nodiscard]] std::string DoItemText(std::int32_t index) const override { return At(index).text; }
    void DoSetItemText(std::int32_t index, const std::string& text) override { At(index).text = text; }
    [[nodiscard]] std::string DoSubItem(std::int32_t index, std::int16_t column) const override {
        const auto at = static_cast<std::size_t>(column - 1);
        return at < At(index).subItems.size() ? At(index).subItems[at] : std::string();
    }
    void DoSetSubItem(std::int32_t index, std::int16_t column, const std::string& text) override {
        std::vector<std::string>& texts = At(index).subItems;
        texts.resize(std::max(texts.size(), static_cast<std::size_t>(column)));
        texts[static_cast<std::size_t>(column - 1)] = text;
    }
    [[nodiscard]] std::int32_t DoSelectedItem() const override { return selected; }
};

class FakeTabs final : public FakeControl<TabStrip> {
public:
    std::int16_t count = 0;
    std::int16_t selected = 0;
    std::set<std::int16_t> broken; ///< tabs that cannot be read
    double tabTop = 0;
    TabStyle style = TabStyle::Tabs;
    ControlPlace client;

private:
    [[nodiscard]] std::int16_t DoTabCount() const override { return count; }
    [[nodiscard]] bool DoTabSelected(std::int16_t index) const override {
        if (broken.contains(index)) throw Failure(FailureNumber::Device, "the tab is gone");
        return index == selected;
    }
    [[nodiscard]] double DoTabTop(std::int16_t) const override { return tabTop; }
    [[nodiscard]] TabStyle DoStyle() const override { return style; }
    [[nodiscard]] ControlPlace DoClientPlace() const override { return client; }
};

class FakeDatePicker final : public FakeControl<DatePicker> {
public:
    std::optional<double> value;
    bool canBeEmpty = false;

private:
    [[nodiscard]] std::optional<double> DoValue() const override { return value; }
    void DoSetValue(std::optional<double> date) override {
        if (!date && !canBeEmpty) throw Failure(FailureNumber::InvalidArgument, "It must hold a date.");
        value = date;
    }
};

class FakeScrollBar final : public FakeControl<ScrollBar> {
public:
    std::int16_t minimum = 0;
    std::int16_t maximum = 32767;
    std::int16_t value = 0;
    std::function<void()> changed = [] {};

private:
    [[nodiscard]] std::int16_t DoMax() const override { return maximum; }
    [[nodiscard]] std::int16_t DoValue() const override { return value; }
    void DoSetValue(std::int16_t number) override {
        if (number < minimum || number > maximum)
            throw Failure(FailureNumber::InvalidArgument, "It is outside the scroll bar's limits.");
        if (std::exchange(value, number) != number) changed();
    }
};

class FakePictureBox final : public FakeControl<PictureBox> {
public:
    DeviceContext dc = 0;
    PictureHandle picture = 0;
    std::int16_t borderStyle = 1;
    std::function<void()> paint = [] {};

private:
    [[nodiscard]] DeviceContext DohDC() const override { return dc; }
    [[nodiscard]] PictureHandle DoPicture() const override { return picture; }
    void DoSetBorderStyle(std::int16_t style) override { borderStyle = style; }
    void DoRefresh() override { paint(); }
};

} // namespace qbrpt::fakes
