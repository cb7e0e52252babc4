#include "report/page_builder.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::report {

namespace {

Twips AlignedLeft(Align align, Twips left, Twips width, Twips taken) {
    switch (align) {
    case Align::Left:
        return left;
    case Align::Centre:
        return left + (width - taken) / 2;
    default:
        return left + width - taken;
    }
}

Twips ObjectLeft(const PlacedBand& band, const Object& object) {
    return band.rightEdge - object.right - object.width;
}

// How much of its width a bar takes.
double BarPart(const PlacedBand& band, const CompiledObject& bar) {
    const Object& object = *bar.object;
    if (!band.scope.row) return 0;
    const CellView& cell = (*band.scope.row)[static_cast<std::size_t>(object.barField)];
    if (cell.kind != ValueKind::Number && cell.kind != ValueKind::Whole) return 0;
    const double full = object.barToLargest && band.scope.whole && band.scope.rows > 1
                            ? band.scope.whole->Result(bar.total).number
                            : object.barFull;
    return full > 0 ? cell.number / full : 0;
}

bool IsLastSlice(const PlacedBand& band) {
    return band.sliceBottom >= band.height;
}

// Whether something at `y` below the band's top stands in this slice; what lies outside a band belongs to
// its first or last slice.
bool InSlice(const PlacedBand& band, Twips y) {
    return (y >= band.sliceTop || band.sliceTop == 0) && (y < band.sliceBottom || IsLastSlice(band));
}

} // namespace

Item PageBuilder::Start(const PlacedBand& band, std::size_t index, ItemKind kind) const {
    const Object& object = *band.section.objects[index].object;
    Item item;
    item.kind = kind;
    item.color = object.color;
    item.x = ObjectLeft(band, object);
    item.y = band.top + object.top + mMetrics.At(index).offset;
    item.width = object.width;
    item.height = object.height;
    item.stroke = object.stroke;
    return item;
}

void PageBuilder::Draw(const PlacedBand& band) {
    const bool details = band.section.section->kind == SectionKind::Details;
    mMetrics.Measure(band.section, band.scope, band.text);
    if (details)
        PassRows(band);
    else
        EndRows();
    MeasureTotals(band);
    mTextEnd.clear();
    for (const CompiledObject& object : band.section.objects)
        mTextEnd.push_back(band.rightEdge - object.object->right);
    for (const std::size_t index : band.section.drawOrder) {
        // One that shows nothing leaves its place to what follows it.
        const std::size_t followed = band.section.objects[index].follows;
        if (followed != NoIndex) mTextEnd[index] = mTextEnd[followed];
        if (SectionText::Shown(*band.section.objects[index].object, band.scope) &&
            !mMetrics.At(index).repeated)
            DrawObject(band, index);
    }
}

// A row follows the row above on the same page: the lines between them can be drawn now. A line that yields
// ends left of the columns that stay empty in this row.
void PageBuilder::PassRows(const PlacedBand& band) {
    if (band.row == mWaitingRow) return;
    if (!band.scope.above) EndRows();
    for (WaitingLine& line : mBetween) {
        for (std::size_t i = 0; i < band.section.objects.size() && line.yields; ++i) {
            if (!mMetrics.At(i).repeated) continue;
            const Twips left = ObjectLeft(band, *band.section.objects[i].object);
            line.item.width = std::min(line.item.width, std::max(left - line.item.x, 0));
        }
        mPage.items.push_back(line.item);
    }
    mBetween.clear();
    mLast.clear();
    mWaitingRow = band.row;
}

void PageBuilder::EndRows() {
    mPage.items.insert(mPage.items.end(), mLast.begin(), mLast.end());
    mBetween.clear();
    mLast.clear();
    mWaitingRow = NoIndex;
}

void PageBuilder::DrawObject(const PlacedBand& band, std::size_t index) {
    switch (band.section.objects[index].object->type) {
    case ObjectType::Line:
        DrawLine(band, index);
        break;
    case ObjectType::Box:
        DrawBox(band, index);
        break;
    case ObjectType::Picture:
        DrawPicture(band, index);
        break;
    case ObjectType::Subreport:
        break; // flows behind its section
    default:
        DrawWriting(band, index);
    }
}

void PageBuilder::DrawWriting(const PlacedBand& band, std::size_t index) {
    const CompiledObject& object = band.section.objects[index];
    Twips left = ObjectLeft(band, *object.object);
    Twips width = object.object->width;
    if (object.follows != NoIndex) {
        const Twips right = mTextEnd[object.follows] - object.object->right;
        left = right - width;
    }
    const ValueText text = band.text.Of(band.section, object, band.scope);
    if (text.text.empty()) return;
    if (text.figures)
        DrawFigures(band, index, text, left, width);
    else
        DrawText(band, index, text.text, left, width);
}

// Figures of one row of totals have one size: that of the one which must shrink most.
void PageBuilder::MeasureTotals(const PlacedBand& band) {
    mTotalSizes.clear();
    if (!band.section.sharesSize) return;
    for (const CompiledObject& object : band.section.objects) {
        if (object.total == NoIndex || object.object->type != ObjectType::Total) continue;
        const ValueText text = band.text.Of(band.section, object, band.scope);
        if (!text.figures || !SectionText::Shown(*object.object, band.scope)) continue;
        const Twips size = mFitter.FitFigures(object, text.text, object.object->width).size;
        if (size == object.object->font.spec.size) continue;
        const auto [row, isNew] = mTotalSizes.emplace(object.object->top, size);
        row->second = std::min(row->second, size);
    }
}

void PageBuilder::DrawFigures(const PlacedBand& band, std::size_t index, const ValueText& text, Twips left,
                              Twips width) {
    const CompiledObject& object = band.section.objects[index];
    const Twips lineTop = object.object->top + mMetrics.At(index).offset;
    if (!InSlice(band, lineTop)) return;
    const auto shared = mTotalSizes.find(object.object->top);
    const bool shares = object.object->type == ObjectType::Total && shared != mTotalSizes.end();
    const FittedFigures fitted = mFitter.FitFigures(object, text.text, width, shares ? shared->second : 0);
    Item item = Start(band, index, ItemKind::Figures);
    item.style = fitted.style;
    if (text.zero && object.object->zeroColor) item.color = *object.object->zeroColor;
    item.x = AlignedLeft(object.object->align, left, width, fitted.width);
    item.y += object.object->baseline;
    item.width = fitted.width;
    item.height = 0;
    item.first = static_cast<std::uint32_t>(mPage.figureText.size());
    item.length = static_cast<std::uint32_t>(text.text.size());
    mPage.figureText.append(text.text);
    mPage.items.push_back(item);
    mTextEnd[index] = item.x;
}

void PageBuilder::DrawText(const PlacedBand& band, std::size_t index, std::string_view text, Twips left,
                           Twips width) {
    const CompiledObject& object = band.section.objects[index];
    const FittedText fitted = mFitter.Fit(object, text, width);
    if (!fitted.block) return;
    Item item = Start(band, index, ItemKind::Word);
    item.style = fitted.style;
    item.height = 0;
    Twips lineTop = object.object->top + mMetrics.At(index).offset;
    bool drawn = false;
    for (std::size_t line = 0; line < fitted.block->lines.size(); ++line) {
        const TextLine& source = fitted.block->lines[line];
        const Twips x = AlignedLeft(object.object->align, left, width, source.width);
        const auto down = static_cast<Twips>(line) * object.object->lineStep;
        if (InSlice(band, lineTop)) {
            item.y =
                band.top + object.object->top + mMetrics.At(index).offset + object.object->baseline + down;
            for (const PlacedWord& word : source.words) {
                item.x = x + word.x;
                item.width = word.word->width;
                item.word = word.word;
                mPage.items.push_back(item);
                drawn = true;
            }
        }
        mTextEnd[index] = x; // what follows stands behind the last line
        lineTop += line == 0 ? object.object->height : object.object->lineStep;
    }
    if (drawn) mPage.texts.push_back(fitted.block);
}

void PageBuilder::DrawLine(const PlacedBand& band, std::size_t index) {
    const Object& object = *band.section.objects[index].object;
    Item item = Start(band, index, ItemKind::Rule);
    if (object.atBottom) item.y = band.top + band.height - object.top;
    if (!InSlice(band, item.y - band.top)) return;
    switch (object.when) {
    case LineWhen::Always:
        mPage.items.push_back(item);
        break;
    case LineWhen::FirstOnPage:
        if (!band.scope.above) mPage.items.push_back(item);
        break;
    case LineWhen::BetweenRows:
        mBetween.push_back({item, object.yieldsToRepeated});
        break;
    case LineWhen::LastOnPage:
        mLast.push_back(item);
        break;
    }
}

void PageBuilder::DrawBox(const PlacedBand& band, std::size_t index) {
    const Object& object = *band.section.objects[index].object;
    Item item = Start(band, index, ItemKind::Fill);
    if (object.fullHeight)
        item.height += band.height - band.section.section->height - mMetrics.At(index).offset;
    const Twips top = band.sliceTop == 0 ? item.y : std::max(item.y, band.top + band.sliceTop);
    const Twips end = item.y + item.height;
    const Twips bottom = IsLastSlice(band) ? end : std::min(end, band.top + band.sliceBottom);
    if (bottom < top || (bottom == top && item.height > 0)) return;
    item.y = top;
    item.height = bottom - top;
    if (object.barField >= 0) {
        const double part = BarPart(band, band.section.objects[index]);
        if (!(part > 0)) return;
        const auto width = std::max(static_cast<Twips>(std::lround(object.width * std::min(part, 1.0))), 1);
        item.x += item.width - width;
        item.width = width;
    }
    if (object.fill) {
        item.color = *object.fill;
        item.stroke = 0;
        mPage.items.push_back(item);
    }
    if (object.stroke > 0) {
        item.kind = ItemKind::Frame;
        item.color = object.color;
        item.stroke = object.stroke;
        mPage.items.push_back(item);
    }
}

void PageBuilder::DrawPicture(const PlacedBand& band, std::size_t index) {
    const Object& object = *band.section.objects[index].object;
    if (!object.image || object.image->width <= 0 || object.image->height <= 0) return;
    Item item = Start(band, index, ItemKind::Image);
    if (!InSlice(band, item.y - band.top) || item.width <= 0 || item.height <= 0) return;
    const auto known = std::find(mPage.pictures.begin(), mPage.pictures.end(), object.image);
    item.first = static_cast<std::uint32_t>(known - mPage.pictures.begin());
    if (known == mPage.pictures.end()) mPage.pictures.push_back(object.image);
    mPage.items.push_back(item);
}

} // namespace qbrpt::report
