#include "adapters/layout/free_objects.h"

#include "adapters/layout/columns.h"
#include "adapters/layout/formats.h"

#include <array>

namespace qbrpt::layout {

namespace {

using report::Object;
using report::ObjectType;

constexpr auto Types = std::to_array<std::pair<std::string_view, ObjectType>>({
    {"text", ObjectType::Text},
    {"field", ObjectType::Field},
    {"line", ObjectType::Line},
    {"box", ObjectType::Box},
    {"picture", ObjectType::Picture},
});

void ReadWords(TableReader& reader, Object& object, const Workshop& shop) {
    const TextStyle style = shop.styles.Style(reader.Text("style", "cell"), reader.PlaceOf("style"));
    Dress(object, style);
    object.baseline = reader.Length("baseline", style.font.size / 20.0);
    object.lineStep = reader.Length("line", style.font.size / 20.0 * 4 / 3);
    object.canGrow = reader.Flag("grow");
    std::optional<FieldKind> kind;
    if (object.type == ObjectType::Field) {
        object.field = FieldOf(reader.RequiredText("field"), reader.PlaceOf("field"), shop);
        if (object.field >= 0) kind = shop.fields[static_cast<std::size_t>(object.field)].kind;
        object.format = ReadFormat(reader, kind);
        object.picture = reader.Text("picture");
        if (IsNumberFormat(object.format))
            object.zeroColor = shop.styles.Color("zero", reader.PlaceOf("field"));
    } else {
        object.text = reader.Text("text");
    }
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
    if (object.type != ObjectType::Box) return;
    if (reader.Has("fill")) object.fill = shop.styles.Color(reader.Text("fill"), reader.PlaceOf("fill"));
    if (object.stroke == 0 && !object.fill) reader.Wrong("fill", "a box needs a \"fill\" or a \"stroke\"");
    object.fullHeight = reader.Flag("full_height");
}

} // namespace

std::vector<FreeObject> ReadFreeObjects(const Node& list, const Workshop& shop) {
    std::vector<FreeObject> objects;
    for (const Node& item : list.items) {
        TableReader reader(item, "an object", shop.mistakes);
        FreeObject one;
        one.section = reader.RequiredText("section");
        one.placed.place = item.place;
        one.placed.named = reader.Has("name");
        Object& object = one.placed.object;
        object.name = reader.Text("name", "object " + std::to_string(objects.size() + 1));
        object.type = reader.Choice<ObjectType>("type", Types, ObjectType::Text);
        object.right = reader.RequiredLength("right");
        object.top = reader.RequiredLength("top");
        object.width = reader.Length("width");
        object.height = reader.Length("height");
        object.suppress = reader.Flag("suppress");
        if (object.type == ObjectType::Text || object.type == ObjectType::Field)
            ReadWords(reader, object, shop);
        else if (object.type != ObjectType::Picture)
            ReadShape(reader, object, shop);
        reader.Finish();
        objects.push_back(std::move(one));
    }
    return objects;
}

} // namespace qbrpt::layout
