// Report objects that only remember what was done to them.
#pragma once

#include "platform/CrystalRuntime.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeReportObject final : public CrystalRuntime::ReportObject {
public:
    explicit FakeReportObject(std::string objectName) : name(std::move(objectName)) {}

    std::string name;
    CrystalRuntime::ObjectKind kind = CrystalRuntime::ObjectKind::Text;
    std::string fontName = "Tahoma";
    int fontCharset = 178;
    std::string text;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t left = 0;
    bool suppress = false;
    Ref<const Picture> picture;
    Ref<CrystalRuntime::Report> subreport;

private:
    std::string DoName() override { return name; }
    CrystalRuntime::ObjectKind DoKind() override { return kind; }
    std::string DoFontName() override { return fontName; }
    void DoSetFontName(const std::string& value) override { fontName = value; }
    int DoFontCharset() override { return fontCharset; }
    void DoSetFontCharset(int value) override { fontCharset = value; }
    std::string DoText() override { return text; }
    void DoSetText(const std::string& value) override { text = value; }
    std::int32_t DoWidth() override { return width; }
    void DoSetWidth(std::int32_t value) override { width = value; }
    std::int32_t DoHeight() override { return height; }
    void DoSetHeight(std::int32_t value) override { height = value; }
    std::int32_t DoLeft() override { return left; }
    void DoSetLeft(std::int32_t value) override { left = value; }
    bool DoSuppress() override { return suppress; }
    void DoSetSuppress(bool value) override { suppress = value; }
    void DoSetFormattedPicture(const Ref<const Picture>& value) override { picture = value; }
    Ref<CrystalRuntime::Report> DoOpenSubreport() override { return subreport; }
};

class FakeSection final : public CrystalRuntime::Section {
public:
    explicit FakeSection(std::string sectionName) : name(std::move(sectionName)) {}

    std::string name;
    std::int32_t height = 300;
    bool suppress = false;
    std::vector<std::shared_ptr<FakeReportObject>> objects;

private:
    std::string DoName() override { return name; }
    std::int32_t DoHeight() override { return height; }
    bool DoSuppress() override { return suppress; }
    void DoSetSuppress(bool value) override { suppress = value; }
    std::int32_t DoReportObjectCount() override { return static_cast<std::int32_t>(objects.size()); }
    Ref<CrystalRuntime::ReportObject> DoReportObjects(std::int32_t index) override {
        return objects.at(static_cast<std::size_t>(index - 1));
    }
};

/// What was done to one report; outlives the report itself.
struct ReportRecord {
    std::string templateName;
    std::map<std::string, std::string> texts; ///< by object
    std::optional<int> dataTag;
    bool rowsRead = false;
    std::string driver;
    std::string device;
    std::string port;
    std::int16_t paperSize = 0;
    std::int16_t orientation = 0;
    std::int32_t pages = 1;
    std::optional<std::int32_t> leftMargin;
    std::string application;
    int printed = 0;
    std::vector<CrystalRuntime::PrintRange> ranges; ///< of each printing
    bool promptUser = false;
    bool alive = true;
};

/// Has eight empty sections, and every object that is asked for by name.
class FakeReport final : public CrystalRuntime::Report {
public:
    explicit FakeReport(std::shared_ptr<ReportRecord> reportRecord) : record(std::move(reportRecord)) {
        for (int number = 1; number <= 8; ++number)
            sections.push_back(std::make_shared<FakeSection>("Section" + std::to_string(number)));
    }
    ~FakeReport() override {
        for (const auto& [name, object] : objects)
            record->texts[name] = object->text;
        record->alive = false;
    }
    FakeReport(const FakeReport&) = delete;
    FakeReport& operator=(const FakeReport&) = delete;

    std::shared_ptr<ReportRecord> record;
    std::vector<std::shared_ptr<FakeSection>> sections;
    std::map<std::string, std::shared_ptr<FakeReportObject>> objects;
    std::map<std::string, std::function<void()>> formatHandlers; ///< by section

private:
    void DoSetDataSource(const Ref<DAO::Recordset>& data, int dataTag) override {
        static_cast<void>(data->Rows()); // an empty reference is a failure here
        record->dataTag = dataTag;
    }
    void DoReadRecords() override {
        if (!record->dataTag) throw Failure(FailureNumber::Report, "the report has no rows to read");
        record->rowsRead = true;
    }
    void DoSelectPrinter(const std::string& driver, const std::string& device,
                         const std::string& port) override {
        record->driver = driver;
        record->device = device;
        record->port = port;
    }
    void DoSetPaperSize(std::int16_t value) override { record->paperSize = value; }
    void DoSetPaperOrientation(std::int16_t value) override { record->orientation = value; }
    void DoPrintOut(bool promptUser, const CrystalRuntime::PrintRange& range) override {
        ++record->printed;
        record->ranges.push_back(range);
        record->promptUser = promptUser;
    }
    std::int32_t DoSectionCount() override { return static_cast<std::int32_t>(sections.size()); }
    Ref<CrystalRuntime::Section> DoSections(std::int32_t index) override {
        return sections.at(static_cast<std::size_t>(index - 1));
    }
    Ref<CrystalRuntime::Section> DoSectionNamed(const std::string& name) override {
        for (const auto& section : sections) {
            if (section->name == name) return section;
        }
        throw Failure(FailureNumber::NotInCollection, "There is no section \"" + name + "\".");
    }
    Ref<CrystalRuntime::ReportObject> DoObjectNamed(const std::string& name) override {
        auto& object = objects[name];
        if (!object) object = std::make_shared<FakeReportObject>(name);
        return object;
    }
    void DoOnFormat(const std::string& section, const std::function<void()>& handler) override {
        formatHandlers[section] = handler;
    }
    std::int32_t DoPrintingStatus() override { return 0; }
    std::int32_t DoNumberOfPages() override { return record->pages; }
    std::string DoPrinterName() override { return record->device; }
    std::string DoDriverName() override { return record->driver; }
    std::string DoPortName() override { return record->port; }
    std::int16_t DoPaperSize() override { return record->paperSize; }
    std::int16_t DoPaperOrientation() override { return record->orientation; }
    void DoSetLeftMargin(std::int32_t margin) override { record->leftMargin = margin; }
    void DoSetApplicationName(const std::string& name) override { record->application = name; }
};

class FakeRuntime final : public CrystalRuntime::Runtime {
public:
    std::vector<std::shared_ptr<ReportRecord>> made;
    std::weak_ptr<FakeReport> latest;
    std::function<void(FakeReport&)> prepare = [](FakeReport&) {}; ///< runs when a report was made

private:
    Ref<CrystalRuntime::Report> DoNewReport(const std::string& templateName,
                                            std::span<const Field>) override {
        made.push_back(std::make_shared<ReportRecord>());
        made.back()->templateName = templateName;
        auto report = std::make_shared<FakeReport>(made.back());
        latest = report;
        prepare(*report);
        return report;
    }
};

} // namespace qbrpt::fakes
