#include "adapters/runtime/live_objects.h"

#include "base/failure.h"

#include <utility>

namespace qbrpt {

using CrystalRuntime::ObjectKind;
using report::ObjectType;

LiveObject::LiveObject(std::shared_ptr<ReportState> state, std::size_t section, std::size_t object,
                       SubreportOpener openSubreport)
    : mState(std::move(state)), mSection(section), mObject(object), mOpenSubreport(std::move(openSubreport)) {
}

report::Object& LiveObject::Object() const {
    return mState->definition.sections[mSection].objects[mObject];
}

void LiveObject::Refuse(const char* operation) {
    throw Failure(FailureNumber::Report, "The object \"" + Object().name + "\" of the report template \"" +
                                             mState->definition.name + "\" has no " + operation + ".");
}

report::Object& LiveObject::WithFont(const char* operation) {
    const ObjectKind kind = DoKind();
    if (kind != ObjectKind::Field && kind != ObjectKind::Text) Refuse(operation);
    return Object();
}

report::Object& LiveObject::OfType(ObjectType type, const char* operation) {
    if (Object().type != type) Refuse(operation);
    return Object();
}

std::string LiveObject::DoName() {
    return Object().name;
}

ObjectKind LiveObject::DoKind() {
    switch (Object().type) {
    case ObjectType::Text:
        return ObjectKind::Text;
    case ObjectType::Line:
        return ObjectKind::Line;
    case ObjectType::Box:
        return ObjectKind::Box;
    case ObjectType::Picture:
        return ObjectKind::Picture;
    case ObjectType::Subreport:
        return ObjectKind::Subreport;
    case ObjectType::Field:
    case ObjectType::Total:
        break;
    }
    return ObjectKind::Field;
}

std::string LiveObject::DoFontName() {
    return WithFont("font").font.spec.family;
}

void LiveObject::DoSetFontName(const std::string& name) {
    WithFont("font").font.spec.family = name;
    mState->Changed();
}

int LiveObject::DoFontCharset() {
    return WithFont("font").font.charset;
}

void LiveObject::DoSetFontCharset(int charset) {
    WithFont("font").font.charset = charset;
}

std::string LiveObject::DoText() {
    return OfType(ObjectType::Text, "text").text;
}

void LiveObject::DoSetText(const std::string& text) {
    report::Object& object = OfType(ObjectType::Text, "text");
    object.text = text;
    object.literal = true;
    mState->Changed();
}

std::int32_t LiveObject::DoWidth() {
    return Object().width;
}

void LiveObject::DoSetWidth(std::int32_t width) {
    // The left edge stays; the layout measures from the right.
    Object().right += Object().width - width;
    Object().width = width;
    mState->Changed();
}

std::int32_t LiveObject::DoHeight() {
    return Object().height;
}

void LiveObject::DoSetHeight(std::int32_t height) {
    Object().height = height;
    mState->Changed();
}

std::int32_t LiveObject::DoLeft() {
    return mState->definition.width - Object().right - Object().width;
}

void LiveObject::DoSetLeft(std::int32_t left) {
    Object().right = mState->definition.width - left - Object().width;
    mState->Changed();
}

bool LiveObject::DoSuppress() {
    return Object().suppress;
}

void LiveObject::DoSetSuppress(bool suppress) {
    Object().suppress = suppress;
    mState->Changed();
}

void LiveObject::DoSetFormattedPicture(const Ref<const Picture>& picture) {
    static_cast<void>(*picture);
    OfType(ObjectType::Picture, "picture").image = picture.Shared();
    mState->Changed();
}

Ref<CrystalRuntime::Report> LiveObject::DoOpenSubreport() {
    return mOpenSubreport(OfType(ObjectType::Subreport, "subreport").subreport);
}

LiveSection::LiveSection(std::shared_ptr<ReportState> state, std::size_t section,
                         SubreportOpener openSubreport)
    : mState(std::move(state)), mSection(section), mOpenSubreport(std::move(openSubreport)) {}

std::string LiveSection::DoName() {
    return Section().name;
}

std::int32_t LiveSection::DoHeight() {
    return Section().height;
}

bool LiveSection::DoSuppress() {
    return Section().suppress;
}

void LiveSection::DoSetSuppress(bool suppress) {
    Section().suppress = suppress;
    mState->Changed();
}

std::int32_t LiveSection::DoReportObjectCount() {
    return static_cast<std::int32_t>(Section().objects.size());
}

Ref<CrystalRuntime::ReportObject> LiveSection::DoReportObjects(std::int32_t index) {
    if (index < 1 || index > DoReportObjectCount())
        throw Failure(FailureNumber::NotInCollection,
                      "The section \"" + Section().name + "\" of the report template \"" +
                          mState->definition.name + "\" has no object " + std::to_string(index) + ".");
    return std::make_shared<LiveObject>(mState, mSection, static_cast<std::size_t>(index - 1),
                                        mOpenSubreport);
}

} // namespace qbrpt
