#include "layout/fuzz_layout.h"

#include "adapters/export/html.h"
#include "adapters/layout/library.h"
#include "base/failure.h"
#include "fakes/fake_text_port.h"
#include "layouts/preview_rows.h"
#include "report/document.h"
#include "templates/field_tables.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

using namespace qbrpt;

constexpr std::size_t Rows = 12;
constexpr std::size_t MostPages = 60;

struct CountingSink final : ByteSink {
    std::size_t bytes = 0;
    void Write(std::string_view more) override { bytes += more.size(); }
};

[[noreturn]] void Stop(const std::string& words, std::string_view text) {
    std::fprintf(stderr, "%s\n%s\n", words.c_str(), std::string(text).c_str());
    std::abort();
}

void LayOut(const report::Definition& definition) {
    fakes::FakeTextPort port;
    report::DocumentContext context;
    context.text = &port;
    if (definition.width > context.sheet.width) std::swap(context.sheet.width, context.sheet.height);
    for (const auto& [name, inside] : definition.subreports)
        context.subreportRows[name] = layouts::PreviewRows(*inside, Rows);
    const auto rows = layouts::PreviewRows(definition, Rows);
    report::Document document(definition, rows, context);
    report::Page page;
    const std::size_t pages = std::min(document.PageCount(), MostPages);
    for (std::size_t index = 0; index < pages; ++index)
        document.Build(index, page);
    CountingSink sink;
    WriteHtml(sink, {definition.name, 45717, PaperA4, false, {{&definition, rows}}});
}

} // namespace

bool FuzzLayout(std::size_t templateIndex, std::string_view text) {
    const TemplateFacts& facts = AllTemplates()[templateIndex % AllTemplates().size()];
    std::shared_ptr<const report::Definition> definition;
    try {
        definition = layout::Library().Read("Fuzz", text, "fuzz.toml", facts.fields);
    } catch (const Failure& failure) {
        if (failure.Number() != FailureNumber::Layout)
            Stop("Another failure: " + failure.Description(), text);
        return false;
    }
    try {
        LayOut(*definition);
    } catch (const Failure& failure) {
        Stop("A layout that was taken has no pages: " + failure.Description(), text);
    }
    return true;
}
