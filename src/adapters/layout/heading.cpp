#include "adapters/layout/heading.h"

namespace qbrpt::layout {

namespace {

using report::Align;
using report::Twips;

constexpr std::string_view TitleSlot = "title";
// The café's picture reaches from above the first line that leaves it room to below the last one.
constexpr Twips LogoAbove = 440;
constexpr Twips LogoBelow = 100;
constexpr Twips LogoGap = 120;

std::string ObjectNameOf(std::string_view slotName, const Slot& slot) {
    return slot.object.empty() ? "heading " + std::string(slotName) : slot.object;
}

Slot ReadSlot(const Node& node, const Workshop& shop) {
    Slot slot;
    slot.place = node.place;
    if (node.kind == NodeKind::Text) {
        slot.object = node.text;
        return slot;
    }
    TableReader reader(node, "a heading text", shop.mistakes);
    slot.object = reader.Text("name");
    slot.text = reader.Text("text");
    reader.Finish();
    return slot;
}

/// One line of a form.
struct FormLine {
    std::string slot;
    std::string left; ///< slot of a text at the left end of the same line
    TextStyle style;
    TextStyle leftStyle;
    Twips step = 0;     ///< from the baseline before, or from the top of the page
    Twips leftFree = 0; ///< kept free at the left end
};

FormLine ReadLine(const Node& node, const Workshop& shop) {
    TableReader reader(node, "a heading line", shop.mistakes);
    FormLine line;
    line.slot = reader.RequiredText("slot");
    line.step = reader.RequiredLength("step");
    line.style = shop.styles.Style(reader.RequiredText("style"), reader.PlaceOf("style"));
    line.left = reader.Text("left");
    if (!line.left.empty())
        line.leftStyle = shop.styles.Style(reader.RequiredText("left_style"), reader.PlaceOf("left_style"));
    line.leftFree = reader.Length("left_free");
    reader.Finish();
    return line;
}

/// On later pages a heading repeats what the first page's objects say.
std::string LaterText(std::string_view slotName, const Slot& slot) {
    return "{text:" + ObjectNameOf(slotName, slot) + "}";
}

class FormBuilder {
public:
    FormBuilder(const HeadingWords& words, const Workshop& shop, bool later)
        : mWords(words), mShop(shop), mLater(later) {
        mBand.kind = report::SectionKind::PageHeader;
        mBand.on = later ? report::OnPages::Later : report::OnPages::First;
    }

    Band Build(const Node& form) {
        TableReader reader(form, "a heading form", mShop.mistakes);
        Twips baseline = 0;
        if (const Node* lines = reader.Child("lines", NodeKind::List)) AddLines(*lines, baseline);
        if (!mLater && mShop.logo && mLogoBottom > mLogoTop) AddLogo(form.place);
        const Stroke stroke = mShop.styles.Line(reader.Text("stroke", "strong"), reader.PlaceOf("stroke"));
        const Twips rule = baseline + reader.Length("rule", 8);
        mBand.objects.push_back(LineAcross(mLater ? "later heading rule" : "heading rule", stroke,
                                           {mShop.margin, mShop.Content()}, rule, form.place));
        mBand.height = rule + reader.Length("gap", 8);
        reader.Finish();
        return std::move(mBand);
    }

private:
    /// The first line that is filled stands where the form's first line would.
    void AddLines(const Node& lines, Twips& baseline) {
        Twips top = 0;
        for (const Node& item : lines.items) {
            const FormLine line = ReadLine(item, mShop);
            if (top == 0) top = line.step;
            const bool filled = mWords.slots.contains(line.slot);
            const bool leftFilled = !line.left.empty() && mWords.slots.contains(line.left);
            if (!filled && !leftFilled) continue;
            baseline = baseline == 0 ? top : baseline + line.step;
            if (line.leftFree > LogoGap) {
                if (mLogoBottom == 0) mLogoTop = baseline - LogoAbove;
                mLogoBottom = baseline + LogoBelow;
                mLogoRoom = line.leftFree - LogoGap;
            }
            AddLine(line, filled, leftFilled, baseline);
        }
    }

    /// The café's picture, at the left end of the lines that leave it room.
    void AddLogo(const Place& place) {
        Placed logo{{}, place, false};
        report::Object& object = logo.object;
        object.name = "logo";
        object.type = report::ObjectType::Picture;
        object.width = mLogoRoom;
        object.height = mLogoBottom - mLogoTop;
        object.right = mShop.width - mShop.margin - mLogoRoom;
        object.top = mLogoTop;
        ShowPicture(object, mShop.logo);
        mBand.objects.push_back(logo);
    }

    void AddLine(const FormLine& line, bool filled, bool leftFilled, Twips baseline) {
        const Twips content = mShop.Content();
        // Two texts on one line share it; the title has more to say.
        const Twips leftWidth = leftFilled ? content * 3 / 10 : 0;
        const Twips gap = leftFilled ? content / 50 : 0;
        if (filled)
            AddText(line.slot, line.style, {mShop.margin, content - line.leftFree - leftWidth - gap},
                    baseline, Align::Right);
        if (leftFilled)
            AddText(line.left, line.leftStyle, {mShop.margin + content - leftWidth, leftWidth}, baseline,
                    Align::Left);
    }

    void AddText(const std::string& slotName, const TextStyle& style, Span span, Twips baseline,
                 Align align) {
        const Slot& slot = mWords.slots.find(slotName)->second;
        const std::string name = mLater ? "later heading " + slotName : ObjectNameOf(slotName, slot);
        const std::string text = mLater ? LaterText(slotName, slot) : slot.text;
        Placed words = TextOnLine(name, text, style, span, baseline, align, slot.place);
        words.named = !mLater && !slot.object.empty();
        mBand.objects.push_back(words);
    }

    const HeadingWords& mWords;
    const Workshop& mShop;
    bool mLater;
    Twips mLogoRoom = 0;
    Twips mLogoTop = 0;
    Twips mLogoBottom = 0; ///< 0: no line leaves room
    Band mBand;
};

Band BuildForm(const HeadingWords& words, const std::string& form, const Node& forms, const Workshop& shop,
               bool later) {
    std::vector<std::string_view> known;
    for (const Entry& entry : forms.entries)
        known.push_back(entry.key);
    if (const Node* node = forms.Find(form)) return FormBuilder(words, shop, later).Build(*node);
    shop.mistakes.Add(words.place, "there is no heading form " + Quoted(form) + Suggestion(form, known));
    return {};
}

} // namespace

HeadingWords ReadHeading(const Node& node, const Workshop& shop) {
    TableReader reader(node, "[heading]", shop.mistakes);
    HeadingWords words;
    words.place = node.place;
    words.form = reader.Text("form", "report");
    words.laterForm = reader.Text("later_form", "later");
    for (const std::string_view slot : {"cafe", "address1", "address2", "title", "subtitle"})
        if (const Node* filled = reader.Child(slot)) words.slots[std::string(slot)] = ReadSlot(*filled, shop);
    reader.Finish();
    return words;
}

Band HeadingBand(const HeadingWords& words, const Node& forms, const Workshop& shop) {
    return BuildForm(words, words.form, forms, shop, false);
}

Band LaterHeadingBand(const HeadingWords& words, const Node& forms, const Workshop& shop) {
    return BuildForm(words, words.laterForm, forms, shop, true);
}

std::string TitleObjectOf(const HeadingWords& words) {
    const auto title = words.slots.find(TitleSlot);
    return title == words.slots.end() ? std::string() : ObjectNameOf(TitleSlot, title->second);
}

Band FooterBand(const Node& node, const Workshop& shop) {
    TableReader reader(node, "[footer]", shop.mistakes);
    Band band;
    band.kind = report::SectionKind::PageFooter;
    const Twips ruleFromEdge = reader.Length("rule_from_edge", 38);
    const Twips blankAbove = reader.Length("blank_above", 8);
    band.height = ruleFromEdge + blankAbove;
    const Twips baseline = band.height - reader.Length("baseline_from_edge", 26.5);
    const TextStyle style = shop.styles.Style(reader.Text("style", "footer"), reader.PlaceOf("style"));
    const Stroke stroke = shop.styles.Line(reader.Text("stroke", "hairline"), reader.PlaceOf("stroke"));
    const Twips third = shop.Content() / 3;
    const auto add = [&](std::string_view key, const Slot& slot, Span span, Align align) {
        const std::string name = slot.object.empty() ? "footer " + std::string(key) : slot.object;
        Placed text = TextOnLine(name, slot.text, style, span, baseline, align, slot.place);
        text.named = !slot.object.empty();
        band.objects.push_back(text);
    };
    band.objects.push_back(
        LineAcross("footer rule", stroke, {shop.margin, shop.Content()}, blankAbove, node.place));
    add("right", {reader.PlaceOf("right"), "", reader.Text("right")}, {shop.margin, third}, Align::Right);
    if (const Node* cafe = reader.Child("cafe"))
        add("cafe", ReadSlot(*cafe, shop), {shop.margin + third, third}, Align::Centre);
    add("left", {reader.PlaceOf("left"), "", reader.Text("left")}, {shop.margin + 2 * third, third},
        Align::Left);
    reader.Finish();
    return band;
}

} // namespace qbrpt::layout
