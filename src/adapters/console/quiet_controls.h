// Controls of windows that are answered without being seen.
#pragma once

#include "platform/forms.h"

#include <map>
#include <memory>
#include <string>

namespace qbrpt {

/// The options, check boxes and date pickers of a table, as they stand when its window opens. What is set is
/// kept, and not told to the window's rules.
class QuietControls {
public:
    explicit QuietControls(const FormTable& table);

    /// NotInCollection where there is none, or one of another kind.
    [[nodiscard]] Ref<Control> Get(const std::string& name) const;

private:
    std::map<std::string, std::shared_ptr<Control>> mControls;
};

} // namespace qbrpt
