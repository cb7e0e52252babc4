// Pages of layouts as text, compared with the files in golden/. After a wanted change of a layout, run the
// test program with QBRPT_WRITE_GOLDENS=1 and look at the difference before committing it.
#pragma once

#include "fakes/fake_text_port.h"
#include "report/document.h"
#include "samples/sample_rows.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace qbrpt {

using MakeRows = std::function<std::vector<Row>()>;

struct Golden {
    const char* layout;
    const char* name;
    std::map<std::string, std::string> texts; ///< what a host has written into the layout's objects
    bool landscape;
    MakeRows rows;
    std::size_t pages;
    std::map<std::string, MakeRows> subreportRows{};
};

inline void PrintTo(const Golden& golden, std::ostream* stream) {
    *stream << golden.layout << " " << golden.name;
}

inline std::string NameOfGolden(const testing::TestParamInfo<Golden>& row) {
    return std::string(row.param.layout) + row.param.name;
}

class GoldenPage : public testing::TestWithParam<Golden> {
protected:
    GoldenPage();

    std::string TextOfPage(std::size_t index);
    [[nodiscard]] report::Document& Document() { return *mDocument; }

private:
    [[nodiscard]] report::DocumentContext Context();

    fakes::FakeTextPort mPort;
    report::Definition mDefinition;
    std::unique_ptr<report::Document> mDocument;
};

} // namespace qbrpt
