// What all report templates have in common: a report object, the café's heading, the font pass.
#pragma once

#include "platform/CrystalRuntime.h"
#include "templates/field_tables.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace qbrpt {

/// One report on one template, alive for one run. A template adds to this class the members that fill its
/// own objects; its layout is a file, its rows a field table.
class ReportTemplate {
public:
    virtual ~ReportTemplate() = default;
    ReportTemplate(const ReportTemplate&) = delete;
    ReportTemplate& operator=(const ReportTemplate&) = delete;

    /// The template's page width in twips.
    [[nodiscard]] std::int32_t ReportWidth() const { return mFacts.reportWidth; }

    /// Makes the fonts fit for Arabic where the template wants that. Runs when the template is created.
    void Report_Initialize();

    /// Writes the café's heading. Reached without knowing the template, so it stands here for all; a
    /// template that has none of its objects raises FailureNumber::NotInCollection.
    void SetHotelInfo(const std::string& Name1, const std::string& addr1, const std::string& addr2);

    /// The engine's report object.
    [[nodiscard]] const Ref<CrystalRuntime::Report>& Report() const { return mReport; }
    [[nodiscard]] std::string_view Name() const { return mFacts.name; }

protected:
    explicit ReportTemplate(std::string_view name);

    /// A member that sets a title: replaces the text of one object and tells the observers.
    void SetTitleText(std::string_view member, const std::string& object, const std::string& text);
    /// Runs `handler` at each format of `section`, for as long as the template lives.
    void HandleFormat(const std::string& section, const std::function<void()>& handler);
    static void TellObservers(std::string_view member, std::initializer_list<Value> arguments);

private:
    const TemplateFacts& mFacts;
    Ref<CrystalRuntime::Report> mReport;
    std::int32_t mFirstSectionHeight = 0;
    /// The engine may keep a report longer than its template; handlers look here before they run.
    std::shared_ptr<const bool> mAlive = std::make_shared<const bool>(true);
};

} // namespace qbrpt
