// What the controls of a form tell its rules.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace qbrpt::qt {

/// Each hears the name of the control that it comes from.
struct ControlEvents {
    using Told = std::function<void(const std::string& name)>;
    Told click = [](const std::string&) {};
    Told dblClick = [](const std::string&) {};
    Told itemClick = [](const std::string&) {};
    Told change = [](const std::string&) {};
    Told gotFocus = [](const std::string&) {};
    Told paint = [](const std::string&) {};
    std::function<bool(const std::string& name)> beforeLabelEdit = [](const std::string&) { return true; };
    std::function<std::int16_t(const std::string& name, std::int16_t key)> keyPress =
        [](const std::string&, std::int16_t key) { return key; };
    std::function<void(const std::string& key)> buttonClick = [](const std::string&) {};
    std::function<void()> pageChanged = [] {};
};

} // namespace qbrpt::qt
