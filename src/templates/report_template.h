// What all report templates have in common: a report object, the café's heading, the font pass, and the
// members that several of them bear.
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

/// One report on one template, alive for one run. Its layout is a file, its rows a field table. What a
/// template's class lists by `using` is what it bears, in the order of its interface; what no other template
/// has stands in the class itself.
class ReportTemplate {
public:
    virtual ~ReportTemplate() = default;
    ReportTemplate(const ReportTemplate&) = delete;
    ReportTemplate& operator=(const ReportTemplate&) = delete;

    /// The engine's report object.
    [[nodiscard]] const Ref<CrystalRuntime::Report>& Report() const { return mReport; }
    /// The name of the class.
    [[nodiscard]] virtual std::string_view Name() const { return mFacts.name; }
    /// The template's page width in twips.
    [[nodiscard]] std::int32_t ReportWidth() const { return mFacts.reportWidth; }

    /// SetHotelInfo of a template that the caller doesn't know; FailureNumber::NotInCollection where it has
    /// none.
    void SetHotelInfoByName(const std::string& Name1, const std::string& addr1, const std::string& addr2);

protected:
    /// Makes the report object and initialises it.
    explicit ReportTemplate(std::string_view name);

    /// Makes the fonts fit for Arabic where the template wants that. Runs when the template is created.
    void Report_Initialize();
    /// Writes the café's heading into the objects that the template has for it.
    void SetHotelInfo(const std::string& Name1, const std::string& addr1, const std::string& addr2) {
        SetHotelInfoByName(Name1, addr1, addr2);
    }
    /// Keeps the picture for the objects that show it. A failure ends here, in a plain box.
    void SetLogo(const Ref<const Picture>& logo);

    /// The title, in the template's own title object.
    void SetHeadTitle(const std::string& title);
    void SetOtherTitle(const std::string& title);
    void SetInfoData(const std::string& title);
    /// Passes every failure over: a template without the title's object stays silent.
    void SetOtherTitels(const std::string& title);

    // For the members that a template has alone.

    /// Empty as long as SetLogo was not called.
    [[nodiscard]] const Ref<const Picture>& Logo() const { return mLogo; }
    void SetText(const std::string& object, const std::string& text);
    /// A member that sets a title: replaces the text of one object and tells the observers.
    void SetTitleText(std::string_view member, const std::string& object, const std::string& text);
    /// Runs `handler` at each format of `section`, for as long as the template lives.
    void HandleFormat(const std::string& section, const std::function<void()>& handler);
    static void TellObservers(std::string_view member, std::initializer_list<Value> arguments);

private:
    const TemplateFacts& mFacts;
    Ref<CrystalRuntime::Report> mReport;
    std::int32_t mFirstSectionHeight = 0;
    Ref<const Picture> mLogo;
    /// The engine may keep a report longer than its template; handlers look here before they run.
    std::shared_ptr<const bool> mAlive = std::make_shared<const bool>(true);
};

} // namespace qbrpt
