#include "adapters/layout/free_objects.h"

#include "adapters/layout/conditions.h"
#include "adapters/layout/formats.h"

#include <array>
#include <utility>

namespace qbrpt::layout {

namespace {

using report::LineWhen;
using report::Object;
using report::ObjectType;

constexpr auto Types = std::to_array<std::pair<std::string_view, ObjectType>>({
    {"text", ObjectType::Text},
    {"field", ObjectType::Field},
    {"total", ObjectType::Total},
    {"line", ObjectType::Line},
    {"box", ObjectType::Box},
    {"picture", ObjectType::Picture},
    {"subreport", ObjectType::Subreport},
});

constexpr auto LineTimes = std::to_array<std::pair<std::string_view, LineWhen>>({
    {"always", LineWhen::Always},
    {"between-rows", LineWhen::BetweenRows},
    {"first-on-page", LineWhen::FirstOnPage},
    {"last-on-page", LineWhen::LastOnPage},
});

/// The field of a value and how it is written.
void ReadValue(TableReader& reader, Object& object, const Workshop& shop) {
    object.field = shop.fields.Find(reader.RequiredText("field"), reader.PlaceOf("field"));
    if (object.type == ObjectType::Total) {
        object.total.aggregate = ReadAggregate(reader);
        object.total.field = object.field;
        object.total.when = ReadCondition(reader, "when", shop);
    }
    const bool counts =
        object.type == ObjectType::Total && object.total.aggregate == report::Aggregate::Count;
    object.format = ReadFormat(reader, counts ? FieldKind::Number : shop.fields.KindOf(object.field));
    object.picture = reader.Text("picture");
    if (IsNumberFormat(object.format)) object.zeroColor = shop.styles.Color("zero", reader.PlaceOf("field"));
}

void ReadWords(TableReader& reader, Object& object, const Workshop& shop) {
    const TextStyle style = shop.styles.Style(reader.Text("style", "cell"), reader.PlaceOf("style"));
    Dress(object, style);
    object.baseline = reader.Length("baseline", style.font.size / 20.0);
    object.lineStep = reader.Length("line", style.font.size / 20.0 * 4 / 3);
    object.canGrow = reader.Flag("grow");
    object.follows = reader.Text("follows");
    if (object.type == ObjectType::Text)
        object.text = reader.Text("text");
    else
        ReadValue(reader, object, shop);
    object.align = ReadAlign(reader, "align", UsualAlign(object.format));
}

void ReadShape(TableReader& reader, Object& object, const Workshop& shop) {
    if (reader.Has("stroke")) {
        const Stroke stroke = shop.styles.Line(reader.Text("stroke"), reader.PlaceOf("stroke"));
        object.stroke = stroke.thickness;
        object.color = stroke.color;
    } else if (object.type == ObjectType::Line) {
        reader.Wrong("stroke", "a line needs a \"stroke\"");
    }
    if (object.type == ObjectType::Line) {
        object.when = reader.Choice<LineWhen>("draw", LineTimes, LineWhen::Always, "time to draw a line");
        object.atBottom = reader.Flag("from_bottom");
        return;
    }
    if (reader.Has("fill")) object.fill = shop.styles.Color(reader.Text("fill"), reader.PlaceOf("fill"));
    if (object.stroke == 0 && !object.fill) reader.Wrong("fill", "a box needs a \"fill\" or a \"stroke\"");
    object.fullHeight = reader.Flag("full_height");
}

/// `logo = true`: the café's picture, where it has one, else that of `file`.
void ReadPictureOf(TableReader& reader, Object& object, const Workshop& shop) {
    std::shared_ptr<const Picture> picture;
    if (reader.Has("file")) picture = shop.pictures.Find(reader.Text("file"), reader.PlaceOf("file"));
    if (reader.Flag("logo") && shop.logo) picture = shop.logo;
    if (!picture) return;
    if (object.width > 0 && object.height > 0)
        ShowPicture(object, std::move(picture));
    else
        reader.Wrong("file", R"(a picture needs a "width" and a "height", the largest that it may have)");
}

void ReadKind(TableReader& reader, Object& object, const Workshop& shop) {
    switch (object.type) {
    case ObjectType::Line:
    case ObjectType::Box:
        ReadShape(reader, object, shop);
        break;
    case ObjectType::Picture:
        ReadPictureOf(reader, object, shop);
        break;
    case ObjectType::Subreport:
        object.subreport = reader.RequiredText("subreport");
        break;
    default:
        ReadWords(reader, object, shop);
    }
}

} // namespace

Placed ReadFreeObject(TableReader& reader, const Place& place, const std::string& name,
                      const Workshop& shop) {
    Placed placed{{}, place, reader.Has("name")};
    Object& object = placed.object;
    object.name = reader.Text("name", name);
    object.type = reader.Choice<ObjectType>("type", Types, ObjectType::Text);
    object.right = reader.RequiredLength("right");
    object.top = reader.RequiredLength("top");
    object.width = reader.Length("width");
    object.height = reader.Length("height");
    object.suppress = reader.Flag("suppress");
    object.showWhen = ReadCondition(reader, "show_when", shop);
    ReadKind(reader, object, shop);
    reader.Finish();
    return placed;
}

std::vector<FreeObject> ReadFreeObjects(const Node& list, const Workshop& shop) {
    std::vector<FreeObject> objects;
    for (const Node& item : list.items) {
        TableReader reader(item, "an object", shop.mistakes);
        const std::string section = reader.RequiredText("section");
        const std::string name = "object " + std::to_string(objects.size() + 1);
        objects.push_back({section, ReadFreeObject(reader, item.place, name, shop)});
    }
    return objects;
}

} // namespace qbrpt::layout
