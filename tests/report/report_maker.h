// Small definitions and documents for tests of the engine.
#pragma once

#include "fakes/fake_text_port.h"
#include "fakes/memory_rows.h"
#include "report/document.h"
#include "report/page_text.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt::report {

/// Fields of every test report: a name, a further text, an amount.
constexpr std::array<Field, 3> TestFields = {{{"name", FieldKind::String, 51, 0},
                                              {"note", FieldKind::String, 256, 51},
                                              {"amount", FieldKind::Number, 8, 307}}};
constexpr int NameField = 0;
constexpr int NoteField = 1;
constexpr int AmountField = 2;

/// Sheet of the test reports: 3000 wide, with room for `rows` rows of 200 between top and bottom.
inline Sheet SheetFor(Twips height) {
    return {3000, height};
}

inline Object TextObject(std::string name, std::string text, Twips right = 0, Twips width = 1000) {
    Object object;
    object.name = std::move(name);
    object.type = ObjectType::Text;
    object.text = std::move(text);
    object.right = right;
    object.width = width;
    object.height = 200;
    object.baseline = 150;
    object.lineStep = 200;
    object.font.spec = {"Body", 100, false};
    return object;
}

inline Object FieldObject(std::string name, int field, Twips right, Twips width) {
    Object object = TextObject(std::move(name), "", right, width);
    object.type = ObjectType::Field;
    object.field = field;
    if (field == AmountField) object.format = ValueFormat::Money;
    return object;
}

inline Object TotalObject(std::string name, Total total, Twips right = 2000, Twips width = 1000) {
    Object object = TextObject(std::move(name), "", right, width);
    object.type = ObjectType::Total;
    object.total = total;
    object.format = ValueFormat::Money;
    return object;
}

inline Section MakeSection(SectionKind kind, std::vector<Object> objects, Twips height = 200) {
    Section section;
    section.kind = kind;
    section.height = height;
    section.objects = std::move(objects);
    return section;
}

/// Name and amount in rows of 200; no headers, no footers.
inline Definition PlainDefinition() {
    Definition definition;
    definition.name = "Plain";
    definition.width = 3000;
    definition.fields = TestFields;
    definition.sections.push_back(
        MakeSection(SectionKind::Details, {FieldObject("Name", NameField, 0, 1000),
                                           FieldObject("Amount", AmountField, 2000, 1000)}));
    return definition;
}

inline fakes::Row NamedRow(std::string name, double amount = 1, std::string note = "") {
    return {std::move(name), std::move(note), amount};
}

/// `count` rows with the names r1, r2, ...
inline std::vector<fakes::Row> NumberedRows(std::size_t count) {
    std::vector<fakes::Row> rows;
    for (std::size_t i = 1; i <= count; ++i)
        rows.push_back(NamedRow("r" + std::to_string(i), static_cast<double>(i)));
    return rows;
}

/// A document together with what it must not outlive.
class TestReport {
public:
    TestReport(Definition definition, std::vector<fakes::Row> rows, Sheet sheet = {3000, 2000})
        : mDefinition(std::move(definition)), mRows(std::make_shared<fakes::MemoryRows>(std::move(rows))) {
        context.text = &text;
        context.sheet = sheet;
        context.printedAt = 45717.5;
    }

    Document& Pages() {
        if (!mDocument) mDocument = std::make_unique<Document>(mDefinition, mRows, context);
        return *mDocument;
    }
    Definition& Layout() { return mDefinition; }
    void Forget() { mDocument.reset(); }

    std::string Text(std::size_t index) {
        Page page;
        Pages().Build(index, page);
        return PageText(page, [this](StyleId style) { return text.NameOf(style); });
    }

    /// What stands on a page, line by line from the top, in a line from the right: "r1 1.00|r2 2.00".
    std::string Words(std::size_t index);

    /// Words of all pages in order.
    std::vector<std::string> AllWords() {
        std::vector<std::string> pages;
        for (std::size_t index = 0; index < Pages().PageCount(); ++index)
            pages.push_back(Words(index));
        return pages;
    }

    fakes::FakeTextPort text;
    DocumentContext context;

private:
    Definition mDefinition;
    std::shared_ptr<const RowSource> mRows;
    std::unique_ptr<Document> mDocument;
};

inline std::string TestReport::Words(std::size_t index) {
    Page page;
    Pages().Build(index, page);
    std::vector<const Item*> items;
    for (const Item& item : page.items) {
        if (item.kind == ItemKind::Word || item.kind == ItemKind::Figures) items.push_back(&item);
    }
    std::stable_sort(items.begin(), items.end(),
                     [](const Item* a, const Item* b) { return a->y != b->y ? a->y < b->y : a->x > b->x; });
    std::string words;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) words += items[i]->y == items[i - 1]->y ? " " : "|";
        words += items[i]->kind == ItemKind::Word ? items[i]->word->text
                                                  : page.figureText.substr(items[i]->first, items[i]->length);
    }
    return words;
}

} // namespace qbrpt::report
