// Prepaid cards to cut out, two cards a row.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

/// A template whose rows are cards. Each card shows the picture that the layout carries, or the logo.
class CardTemplate : public ReportTemplate {
protected:
    explicit CardTemplate(std::string_view name);

    /// The café's name on the cards themselves.
    void SetCafeName(const std::string& name);
    void Section3_Format();

private:
    /// Fits the logo into the object's place and centres it on the page. Without a logo the object stays as
    /// it is. A failure ends here, in a box.
    void ShowCardPicture(const Ref<CrystalRuntime::ReportObject>& picture);
};

} // namespace qbrpt
