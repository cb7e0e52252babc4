// A template that can carry the café's picture.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class LogoTemplate : public ReportTemplate {
public:
    /// Keeps the picture for the objects that show it. A failure ends here, in a plain box.
    void SetLogo(const Ref<const Picture>& logo);

protected:
    using ReportTemplate::ReportTemplate;
    /// Empty as long as SetLogo was not called.
    [[nodiscard]] const Ref<const Picture>& Logo() const { return mLogo; }

private:
    Ref<const Picture> mLogo;
};

} // namespace qbrpt
