// The controls of a fake form, made from its table; what they do is heard by its rules.
#pragma once

#include "fakes/fake_controls.h"
#include "platform/forms.h"

#include <map>
#include <memory>
#include <string>

namespace qbrpt::fakes {

class FakeFormControls {
public:
    explicit FakeFormControls(FormEvents& events) : mEvents(events) {}

    void Add(const ControlRow& row) {
        const std::string name(row.name);
        switch (row.kind) {
        case ControlKind::Label:
            Made<FakeLabel>(row)->caption = row.caption;
            break;
        case ControlKind::Frame:
            Made<FakeFrame>(row);
            break;
        case ControlKind::TextBox: {
            auto box = Made<FakeTextBox>(row);
            box->text = row.text;
            box->changed = [this, name] { mEvents.Change(name); };
            break;
        }
        case ControlKind::CommandButton: {
            auto button = Made<FakeCommandButton>(row);
            button->isDefault = row.isDefault;
            button->madeDefault = [this] {
                for (const auto& [key, other] : All<FakeCommandButton>())
                    other->isDefault = false;
            };
            break;
        }
        case ControlKind::OptionButton:
        case ControlKind::CheckBox:
            AddToggle(row);
            break;
        case ControlKind::ComboBox:
            Made<FakeList>(row)->clicked = [this, name] { mEvents.Click(name); };
            break;
        case ControlKind::ListView:
            Made<FakeListView>(row);
            break;
        case ControlKind::TabStrip:
            Made<FakeTabs>(row)->selected = 1;
            break;
        case ControlKind::Tab:
            ++Of<FakeTabs>(std::string(row.parent))->count;
            break;
        case ControlKind::DatePicker:
            Made<FakeDatePicker>(row)->canBeEmpty = row.canBeEmpty;
            break;
        case ControlKind::VScrollBar: {
            auto bar = Made<FakeScrollBar>(row);
            bar->minimum = bar->value = row.minimum;
            bar->maximum = row.maximum;
            bar->changed = [this, name] { mEvents.Change(name); };
            break;
        }
        case ControlKind::PictureBox:
            Made<FakePictureBox>(row)->paint = [this, name] { mEvents.Paint(name); };
            break;
        default:
            break;
        }
    }

    [[nodiscard]] Ref<Control> Get(const std::string& name) const {
        const auto found = mControls.find(name);
        if (found == mControls.end())
            throw Failure(FailureNumber::NotInCollection, "There is no control \"" + name + "\".");
        return found->second;
    }

    /// The control as the fake that it is.
    template <class Fake>
    [[nodiscard]] std::shared_ptr<Fake> Of(const std::string& name) const {
        auto control = std::dynamic_pointer_cast<Fake>(Get(name).Shared());
        if (!control) throw Failure(FailureNumber::NotInCollection, "\"" + name + "\" is of another kind.");
        return control;
    }

private:
    template <class Fake>
    std::shared_ptr<Fake> Made(const ControlRow& row) {
        auto control = std::make_shared<Fake>();
        control->handle = static_cast<WindowHandle>(1000 + mControls.size());
        control->visible = !row.hidden;
        control->place = row.place;
        control->takeFocus = [this, name = std::string(row.name)] { mEvents.GotFocus(name); };
        mControls[std::string(row.name)] = control;
        return control;
    }

    template <class Fake>
    [[nodiscard]] std::map<std::string, std::shared_ptr<Fake>> All() const {
        std::map<std::string, std::shared_ptr<Fake>> all;
        for (const auto& [name, control] : mControls) {
            if (auto fake = std::dynamic_pointer_cast<Fake>(control)) all[name] = fake;
        }
        return all;
    }

    void AddToggle(const ControlRow& row) {
        const std::string name(row.name);
        auto toggle = Made<FakeToggle>(row);
        toggle->on = row.on;
        // A check box tells of each switch, an option button of being chosen.
        if (row.kind == ControlKind::CheckBox) {
            toggle->clicked = [this, name] { mEvents.Click(name); };
            return;
        }
        const std::string container(row.parent);
        mOptions[container].push_back(toggle);
        toggle->switchedOn = [this, container] {
            for (const auto& other : mOptions[container])
                other->on = false;
        };
        toggle->clicked = [this, name, raw = toggle.get()] {
            if (raw->on) mEvents.Click(name);
        };
    }

    FormEvents& mEvents;
    std::map<std::string, std::shared_ptr<Control>> mControls;
    std::map<std::string, std::vector<std::shared_ptr<FakeToggle>>> mOptions;
};

} // namespace qbrpt::fakes
