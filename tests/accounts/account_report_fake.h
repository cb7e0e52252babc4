// A fake report with the parts of an account's own report.
#pragma once

#include "fakes/fake_report.h"

#include <memory>
#include <string>

namespace qbrpt {

/// The four sections that can be left out, and the report inside, which writes to `inside`.
inline void GiveAccountParts(fakes::FakeReport& report, const std::shared_ptr<fakes::ReportRecord>& inside) {
    for (int number = 1; number <= 4; ++number)
        report.sections.push_back(
            std::make_shared<fakes::FakeSection>("AccountSection" + std::to_string(number)));
    auto object = std::make_shared<fakes::FakeReportObject>("rptFrom");
    object->subreport = std::make_shared<fakes::FakeReport>(inside);
    report.objects["rptFrom"] = object;
}

} // namespace qbrpt
