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
/// closed; one without a viewer, which would ask the user, is a failure.
class QuietForms : public Forms {
public:
    explicit QuietForms(ReportTaker taker);

private:
    Ref<Form> DoLoad(const FormTable& table, FormEvents& events) override;

    ReportTaker mTaker;
};

/// Takes the user's place at a window: sets its controls, and tells its rules what was done.
using FormAnswer = std::function<void(Form& form, FormEvents& events)>;

/// One window is answered and never seen; all others are those of `others`.
class AnsweredForms : public Forms {
public:
    AnsweredForms(Ref<Forms> others, std::string name, FormAnswer answer);

private:
    Ref<Form> DoLoad(const FormTable& table, FormEvents& events) override;

    Ref<Forms> mOthers;
    std::string mName;
    FormAnswer mAnswer;
};

} // namespace qbrpt
