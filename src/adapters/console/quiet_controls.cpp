#include "adapters/console/quiet_controls.h"

#include <optional>

namespace qbrpt {

namespace {

template <class Kind>
class QuietControl : public Kind {
    [[nodiscard]] WindowHandle DohWnd() const override { return 0; }
    [[nodiscard]] bool DoEnabled() const override { return mEnabled; }
    void DoSetEnabled(bool enabled) override { mEnabled = enabled; }
    [[nodiscard]] bool DoVisible() const override { return false; }
    void DoSetVisible(bool) override {}
    [[nodiscard]] ControlPlace DoPlace() const override { return {}; }
    void DoMove(const ControlPlace&) override {}
    void DoZOrder() override {}
    void DoSetFocus() override {}

    bool mEnabled = true;
};

class QuietToggle final : public QuietControl<ToggleControl> {
public:
    explicit QuietToggle(bool on) : mOn(on) {}

private:
    [[nodiscard]] bool DoValue() const override { return mOn; }
    void DoSetValue(bool on) override { mOn = on; }
    bool mOn;
};

class QuietDatePicker final : public QuietControl<DatePicker> {
    [[nodiscard]] std::optional<double> DoValue() const override { return mValue; }
    void DoSetValue(std::optional<double> value) override { mValue = value; }
    std::optional<double> mValue;
};

} // namespace

QuietControls::QuietControls(const FormTable& table) {
    for (const ControlRow& row : table.controls) {
        const std::string name(row.name);
        if (row.kind == ControlKind::OptionButton || row.kind == ControlKind::CheckBox)
            mControls[name] = std::make_shared<QuietToggle>(row.on);
        if (row.kind == ControlKind::DatePicker) mControls[name] = std::make_shared<QuietDatePicker>();
    }
}

Ref<Control> QuietControls::Get(const std::string& name) const {
    const auto found = mControls.find(name);
    if (found == mControls.end())
        throw Failure(FailureNumber::NotInCollection,
                      "Without windows there is no control \"" + name + "\".");
    return found->second;
}

} // namespace qbrpt
