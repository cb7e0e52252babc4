#include "layouts/layout_preview.h"

#include "adapters/layout/library.h"
#include "adapters/pdf/writer.h"
#include "adapters/text/text_engine.h"
#include "base/calendar.h"
#include "base/paper.h"
#include "layouts/layout_files.h"
#include "layouts/preview_rows.h"
#include "report/document.h"
#include "templates/field_tables.h"

#include <algorithm>
#include <utility>

namespace qbrpt::layouts {

namespace {

struct SampleText {
    const char* object;
    const char* text;
};

// What the program itself writes into the objects of a report.
constexpr SampleText SampleTexts[] = {
    {"HotelNameText", "مقهى الواحة للإنترنت"},
    {"HotelNameTextTop", "مقهى الواحة للإنترنت"},
    {"HotelNameTextBottom", "مقهى الواحة للإنترنت"},
    {"HotelAddr1Text", "الدوحة، شارع السد"},
    {"HotelAddr2Text", "هاتف 44455667"},
    {"CafeNameText1", "مقهى الواحة للإنترنت"},
    {"CafeNameText2", "مقهى الواحة للإنترنت"},
};

void WriteSampleTexts(report::Definition& definition) {
    for (const SampleText& sample : SampleTexts) {
        report::Object* object = report::FindObject(definition, sample.object);
        if (object == nullptr || object->type != report::ObjectType::Text) continue;
        object->text = sample.text;
        object->literal = true;
    }
}

report::Sheet SheetOf(const report::Definition& definition) {
    const PaperExtent paper = ExtentOfPaper(PaperA4);
    report::Sheet sheet{paper.width, paper.height};
    if (definition.width > sheet.width) std::swap(sheet.width, sheet.height);
    return sheet;
}

} // namespace

void PreviewLayout(const std::filesystem::path& file, std::size_t rows, ByteSink& sink,
                   const std::function<void(std::size_t done, std::size_t all)>& onPage) {
    const bool isBuiltIn = IsBuiltIn(file);
    const std::string name = isBuiltIn ? file.string() : TemplateOf(file);
    const std::string folder = file.parent_path().empty() ? "." : file.parent_path().string();
    report::Definition definition =
        *layout::Library(isBuiltIn ? std::string{} : folder).Load(name, FactsOf(name).fields);
    WriteSampleTexts(definition);

    const auto engine = text::MakeTextPort();
    report::DocumentContext context;
    context.text = engine.get();
    context.sheet = SheetOf(definition);
    context.printedAt = static_cast<double>(DaysFromCivil(2025, 3, 1)) + 0.5;
    for (const auto& [subreport, inside] : definition.subreports)
        context.subreportRows[subreport] = PreviewRows(*inside, rows);
    report::Document document(definition, PreviewRows(definition, rows), context);

    pdf::Writer writer(sink, engine->Fonts(), {name, context.printedAt});
    report::Page page;
    const std::size_t all = document.PageCount();
    for (std::size_t done = 0; done < all; ++done) {
        if (onPage) onPage(done, all);
        document.Build(done, page);
        writer.AddPage(page);
    }
    writer.Finish();
}

} // namespace qbrpt::layouts
