#include "platform/CrystalRuntime.h"

namespace qbrpt::CrystalRuntime {

namespace {

constexpr std::string_view ObjectPort = "CrystalRuntime.ReportObject";
constexpr std::string_view SectionPort = "CrystalRuntime.Section";
constexpr std::string_view ReportPort = "CrystalRuntime.Report";

Value Optional(const std::optional<std::int32_t>& value) {
    return value ? Value{std::int64_t{*value}} : Value{Null{}};
}

} // namespace

std::string ReportObject::Name() {
    Announce(ObjectPort, "Name");
    return DoName();
}

ObjectKind ReportObject::Kind() {
    Announce(ObjectPort, "Kind");
    return DoKind();
}

std::string ReportObject::FontName() {
    Announce(ObjectPort, "FontName");
    return DoFontName();
}

void ReportObject::SetFontName(const std::string& name) {
    Announce(ObjectPort, "SetFontName", {DoName(), name});
    DoSetFontName(name);
}

int ReportObject::FontCharset() {
    Announce(ObjectPort, "FontCharset");
    return DoFontCharset();
}

void ReportObject::SetFontCharset(int charset) {
    Announce(ObjectPort, "SetFontCharset", {DoName(), std::int64_t{charset}});
    DoSetFontCharset(charset);
}

std::string ReportObject::Text() {
    Announce(ObjectPort, "Text");
    return DoText();
}

void ReportObject::SetText(const std::string& text) {
    Announce(ObjectPort, "SetText", {DoName(), text});
    DoSetText(text);
}

std::int32_t ReportObject::Width() {
    Announce(ObjectPort, "Width");
    return DoWidth();
}

void ReportObject::SetWidth(std::int32_t width) {
    Announce(ObjectPort, "SetWidth", {DoName(), std::int64_t{width}});
    DoSetWidth(width);
}

std::int32_t ReportObject::Height() {
    Announce(ObjectPort, "Height");
    return DoHeight();
}

void ReportObject::SetHeight(std::int32_t height) {
    Announce(ObjectPort, "SetHeight", {DoName(), std::int64_t{height}});
    DoSetHeight(height);
}

std::int32_t ReportObject::Left() {
    Announce(ObjectPort, "Left");
    return DoLeft();
}

void ReportObject::SetLeft(std::int32_t left) {
    Announce(ObjectPort, "SetLeft", {DoName(), std::int64_t{left}});
    DoSetLeft(left);
}

bool ReportObject::Suppress() {
    Announce(ObjectPort, "Suppress");
    return DoSuppress();
}

void ReportObject::SetSuppress(bool suppress) {
    Announce(ObjectPort, "SetSuppress", {DoName(), suppress});
    DoSetSuppress(suppress);
}

void ReportObject::SetFormattedPicture(const Ref<const Picture>& picture) {
    Announce(ObjectPort, "SetFormattedPicture", {DoName()});
    DoSetFormattedPicture(picture);
}

Ref<Report> ReportObject::OpenSubreport() {
    Announce(ObjectPort, "OpenSubreport", {DoName()});
    return DoOpenSubreport();
}

std::string Section::Name() {
    Announce(SectionPort, "Name");
    return DoName();
}

std::int32_t Section::Height() {
    Announce(SectionPort, "Height");
    return DoHeight();
}

bool Section::Suppress() {
    Announce(SectionPort, "Suppress");
    return DoSuppress();
}

void Section::SetSuppress(bool suppress) {
    Announce(SectionPort, "SetSuppress", {DoName(), suppress});
    DoSetSuppress(suppress);
}

std::int32_t Section::ReportObjectCount() {
    Announce(SectionPort, "ReportObjectCount");
    return DoReportObjectCount();
}

Ref<ReportObject> Section::ReportObjects(std::int32_t index) {
    Announce(SectionPort, "ReportObjects", {std::int64_t{index}});
    return DoReportObjects(index);
}

void Report::SetDataSource(const Ref<DAO::Recordset>& data, int dataTag) {
    Announce(ReportPort, "SetDataSource", {std::int64_t{dataTag}});
    DoSetDataSource(data, dataTag);
}

void Report::ReadRecords() {
    Announce(ReportPort, "ReadRecords");
    DoReadRecords();
}

void Report::SelectPrinter(const std::string& driver, const std::string& device, const std::string& port) {
    Announce(ReportPort, "SelectPrinter", {driver, device, port});
    DoSelectPrinter(driver, device, port);
}

void Report::SetPaperSize(std::int16_t paperSize) {
    Announce(ReportPort, "SetPaperSize", {std::int64_t{paperSize}});
    DoSetPaperSize(paperSize);
}

void Report::SetPaperOrientation(std::int16_t orientation) {
    Announce(ReportPort, "SetPaperOrientation", {std::int64_t{orientation}});
    DoSetPaperOrientation(orientation);
}

std::string Report::PrinterName() {
    Announce(ReportPort, "PrinterName");
    return DoPrinterName();
}

std::string Report::DriverName() {
    Announce(ReportPort, "DriverName");
    return DoDriverName();
}

std::string Report::PortName() {
    Announce(ReportPort, "PortName");
    return DoPortName();
}

std::int16_t Report::PaperSize() {
    Announce(ReportPort, "PaperSize");
    return DoPaperSize();
}

std::int16_t Report::PaperOrientation() {
    Announce(ReportPort, "PaperOrientation");
    return DoPaperOrientation();
}

void Report::SetLeftMargin(std::int32_t margin) {
    Announce(ReportPort, "SetLeftMargin", {std::int64_t{margin}});
    DoSetLeftMargin(margin);
}

void Report::SetApplicationName(const std::string& name) {
    Announce(ReportPort, "SetApplicationName", {name});
    DoSetApplicationName(name);
}

void Report::PrintOut(bool promptUser, const PrintRange& range) {
    const std::initializer_list<Value> arguments = {promptUser, DoPrinterName(), Optional(range.copies),
                                                    Optional(range.startPage), Optional(range.stopPage)};
    Announce(ReportPort, "PrintOut", arguments);
    DoPrintOut(promptUser, range);
    Answer(ReportPort, "PrintOut", arguments, std::int64_t{DoNumberOfPages()});
}

std::int32_t Report::SectionCount() {
    Announce(ReportPort, "SectionCount");
    return DoSectionCount();
}

Ref<Section> Report::Sections(std::int32_t index) {
    Announce(ReportPort, "Sections", {std::int64_t{index}});
    return DoSections(index);
}

Ref<Section> Report::SectionNamed(const std::string& name) {
    Announce(ReportPort, "SectionNamed", {name});
    return DoSectionNamed(name);
}

Ref<ReportObject> Report::ObjectNamed(const std::string& name) {
    Announce(ReportPort, "ObjectNamed", {name});
    return DoObjectNamed(name);
}

void Report::OnFormat(const std::string& section, const std::function<void()>& handler) {
    Announce(ReportPort, "OnFormat", {section});
    DoOnFormat(section, handler);
}

std::int32_t Report::PrintingStatus() {
    Announce(ReportPort, "PrintingStatus");
    return DoPrintingStatus();
}

std::int32_t Report::NumberOfPages() {
    Announce(ReportPort, "NumberOfPages");
    return DoNumberOfPages();
}

Ref<Report> Runtime::NewReport(const std::string& templateName, std::span<const Field> fields) {
    Announce("CrystalRuntime.Runtime", "NewReport", {templateName});
    return DoNewReport(templateName, fields);
}

} // namespace qbrpt::CrystalRuntime
