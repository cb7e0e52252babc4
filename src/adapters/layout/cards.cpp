#include "adapters/layout/cards.h"

#include "adapters/layout/conditions.h"
#include "adapters/layout/free_objects.h"

#include <utility>

namespace qbrpt::layout {

namespace {

using report::LineWhen;
using report::Twips;

/// `node` with the words that `card` knows replaced by the card's own.
Node Dealt(Node node, const Node& card) {
    for (Entry& entry : node.entries) {
        if (entry.value.kind == NodeKind::Table) entry.value = Dealt(std::move(entry.value), card);
        const bool named = entry.key == "field" || entry.key == "name" || entry.key == "file";
        if (!named || entry.value.kind != NodeKind::Text) continue;
        const Node* own = card.Find(entry.value.text);
        if (own != nullptr && own->kind == NodeKind::Text) entry.value.text = own->text;
    }
    return node;
}

struct Grid {
    Place place;
    std::size_t cards = 0;
    Twips right = 0; ///< of the first card
    Twips width = 0; ///< of a card
    Twips height = 0;
    Stroke stroke;
    Twips mark = 0; ///< length of a cut mark
    Twips gap = 0;  ///< between the cards and the marks around them

    [[nodiscard]] Twips Cut(std::size_t index) const { return right + static_cast<Twips>(index) * width; }
    [[nodiscard]] Twips End() const { return Cut(cards); }
};

class CutMarks {
public:
    CutMarks(const Grid& grid, Band& band) : mGrid(grid), mBand(band) {}

    void Draw() {
        const Twips half = mGrid.mark / 2;
        for (std::size_t cut = 0; cut <= mGrid.cards; ++cut) {
            const Twips at = mGrid.Cut(cut);
            Down(at, -mGrid.gap - mGrid.mark, false, LineWhen::FirstOnPage);
            Down(at, -mGrid.gap, true, LineWhen::LastOnPage);
            if (cut == 0 || cut == mGrid.cards) continue;
            Down(at, half, true, LineWhen::BetweenRows);
            Across(at - half, true, LineWhen::BetweenRows);
        }
        for (const Twips outside : {mGrid.right - mGrid.gap - mGrid.mark, mGrid.End() + mGrid.gap}) {
            Across(outside, false, LineWhen::FirstOnPage);
            Across(outside, true, LineWhen::Always);
        }
    }

private:
    void Down(Twips right, Twips top, bool atBottom, LineWhen when) {
        Add({right, 0}, top, mGrid.mark, atBottom, when);
    }
    void Across(Twips right, bool atBottom, LineWhen when) { Add({right, mGrid.mark}, 0, 0, atBottom, when); }
    void Add(Span span, Twips top, Twips height, bool atBottom, LineWhen when) {
        Placed mark = LineAcross("cut mark", mGrid.stroke, span, top, mGrid.place);
        mark.object.height = height;
        mark.object.atBottom = atBottom;
        mark.object.when = when;
        mBand.objects.push_back(mark);
    }

    const Grid& mGrid;
    Band& mBand;
};

} // namespace

Band CardsBand(const Node& node, const Workshop& shop) {
    TableReader reader(node, "[cards]", shop.mistakes);
    Grid grid;
    grid.place = node.place;
    grid.width = reader.RequiredLength("width");
    grid.height = reader.RequiredLength("height");
    grid.stroke = shop.styles.Line(reader.Text("stroke", "cut"), reader.PlaceOf("stroke"));
    grid.mark = reader.Length("mark", 8);
    grid.gap = reader.Length("mark_gap", 3);
    const Node* cards = reader.Child("card", NodeKind::List);
    const Node* objects = reader.Child("object", NodeKind::List);
    if (cards == nullptr || cards->items.empty()) reader.Wrong("card", "[cards] needs a list \"card\"");
    static_cast<void>(reader.Child("show_when")); // read for each card
    reader.Finish();
    Band band;
    band.kind = report::SectionKind::Details;
    band.height = grid.height;
    if (cards == nullptr) return band;
    grid.cards = cards->items.size();
    grid.right = (shop.width - static_cast<Twips>(grid.cards) * grid.width) / 2;
    CutMarks(grid, band).Draw();
    for (std::size_t card = 0; card < grid.cards && objects != nullptr; ++card) {
        const Node& own = cards->items[card];
        const Node dealtCards = Dealt(node, own);
        TableReader dealtReader(dealtCards, "[cards]", shop.mistakes);
        const auto showWhen = ReadCondition(dealtReader, "show_when", shop);
        for (const Node& item : objects->items) {
            const Node dealt = Dealt(item, own);
            TableReader object(dealt, "an object of a card", shop.mistakes);
            Placed placed = ReadFreeObject(object, item.place, "card object", shop);
            const Node* name = item.Find("name");
            placed.named = name != nullptr && own.Find(name->text) != nullptr;
            if (!placed.object.showWhen) placed.object.showWhen = showWhen;
            if (placed.object.follows.empty()) placed.object.right += grid.Cut(card);
            band.objects.push_back(std::move(placed));
        }
    }
    return band;
}

} // namespace qbrpt::layout
