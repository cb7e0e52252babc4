#include "adapters/layout/band.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qbrpt::layout {

namespace {

Placed Shape(report::ObjectType type, const std::string& name, Span span, report::Twips top,
             const Place& place) {
    Placed shape{{}, place, false};
    shape.object.name = name;
    shape.object.type = type;
    shape.object.right = span.right;
    shape.object.width = span.width;
    shape.object.top = top;
    return shape;
}

} // namespace

void Dress(report::Object& object, const TextStyle& style) {
    object.font.spec = style.font;
    object.color = style.color;
    object.shrinkTo = style.shrinkTo;
}

Placed TextOnLine(const std::string& name, const std::string& text, const TextStyle& style, Span span,
                  report::Twips baseline, report::Align align, const Place& place) {
    // Letters without their tallest marks: lines that are set this close do not touch.
    const report::Twips ascent = style.font.size * 4 / 5;
    const report::Twips descent = style.font.size * 3 / 10;
    Placed line = Shape(report::ObjectType::Text, name, span, baseline - ascent, place);
    line.object.text = text;
    line.object.height = ascent + descent;
    line.object.baseline = ascent;
    line.object.align = align;
    Dress(line.object, style);
    return line;
}

void PutInRow(report::Object& object, Span span, const RowMeasure& row) {
    object.right = span.right;
    object.width = span.width;
    object.height = row.height;
    object.baseline = row.baseline;
    object.lineStep = row.lineStep;
}

void ShowPicture(report::Object& object, std::shared_ptr<const Picture> picture) {
    const double wide = picture->width;
    const double high = picture->height;
    const double scale = std::min(object.width / wide, object.height / high);
    const auto width = std::min(static_cast<report::Twips>(std::lround(wide * scale)), object.width);
    const auto height = std::min(static_cast<report::Twips>(std::lround(high * scale)), object.height);
    object.right += object.width - width;
    object.top += (object.height - height) / 2;
    object.width = width;
    object.height = height;
    object.image = std::move(picture);
}

Placed LineAcross(const std::string& name, const Stroke& stroke, Span span, report::Twips top,
                  const Place& place) {
    Placed line = Shape(report::ObjectType::Line, name, span, top, place);
    line.object.stroke = stroke.thickness;
    line.object.color = stroke.color;
    return line;
}

Placed TintedBox(const std::string& name, report::Color fill, Span span, report::Twips top,
                 report::Twips height, const Place& place) {
    Placed box = Shape(report::ObjectType::Box, name, span, top, place);
    box.object.height = height;
    box.object.fill = fill;
    return box;
}

} // namespace qbrpt::layout
