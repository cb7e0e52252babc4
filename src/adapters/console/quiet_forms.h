// Windows of a process that shows none: what would be read on screen goes somewhere else.
#pragma once

#include "platform/CRViewer.h"
#include "platform/forms.h"

#include <functional>
#include <string>

namespace qbrpt {

/// Takes a report at the moment at which it would be shown.
using ReportTaker = std::function<void(const Ref<CrystalRuntime::Report>& report)>;

/// Forms whose controls do nothing. A form that would be shown hands its viewer's report to `taker` and is
/// closed.
class QuietForms : public Forms {
public:
    explicit QuietForms(ReportTaker taker);

private:
    Ref<Form> DoLoad(const FormTable& table, FormEvents& events) override;

    ReportTaker mTaker;
};

} // namespace qbrpt
