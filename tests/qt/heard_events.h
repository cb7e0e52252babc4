// The rules of a form that only listens.
#pragma once

#include "platform/forms.h"

#include <functional>
#include <string>
#include <vector>

namespace qbrpt::test {

class HeardEvents : public FormEvents {
public:
    std::vector<std::string> heard;
    std::function<void(const std::string& what)> then = [](const std::string&) {};

private:
    void Hear(const std::string& what) {
        heard.push_back(what);
        then(what);
    }
    void Resize() override { Hear("resize"); }
    void QueryUnload() override { Hear("unload"); }
    void Click(const std::string& name) override { Hear("click " + name); }
    void ButtonClick(const std::string& key) override { Hear("button " + key); }
    void PageChanged() override { Hear("page"); }
};

} // namespace qbrpt::test
