// Sections and objects of a live report.
#pragma once

#include "adapters/runtime/report_state.h"
#include "platform/CrystalRuntime.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace qbrpt {

/// Opens the subreport of this name.
using SubreportOpener = std::function<Ref<CrystalRuntime::Report>(const std::string& name)>;

class LiveObject final : public CrystalRuntime::ReportObject {
public:
    LiveObject(std::shared_ptr<ReportState> state, std::size_t section, std::size_t object,
               SubreportOpener openSubreport);

private:
    std::string DoName() override;
    CrystalRuntime::ObjectKind DoKind() override;
    std::string DoFontName() override;
    void DoSetFontName(const std::string& name) override;
    int DoFontCharset() override;
    void DoSetFontCharset(int charset) override;
    std::string DoText() override;
    void DoSetText(const std::string& text) override;
    std::int32_t DoWidth() override;
    void DoSetWidth(std::int32_t width) override;
    std::int32_t DoHeight() override;
    void DoSetHeight(std::int32_t height) override;
    std::int32_t DoLeft() override;
    void DoSetLeft(std::int32_t left) override;
    bool DoSuppress() override;
    void DoSetSuppress(bool suppress) override;
    void DoSetFormattedPicture(const Ref<const Picture>& picture) override;
    Ref<CrystalRuntime::Report> DoOpenSubreport() override;

    [[nodiscard]] report::Object& Object() const;
    /// The object, if its kind has the operation.
    [[nodiscard]] report::Object& WithFont(const char* operation);
    [[nodiscard]] report::Object& OfType(report::ObjectType type, const char* operation);
    [[noreturn]] void Refuse(const char* operation);

    std::shared_ptr<ReportState> mState;
    std::size_t mSection;
    std::size_t mObject;
    SubreportOpener mOpenSubreport;
};

class LiveSection final : public CrystalRuntime::Section {
public:
    LiveSection(std::shared_ptr<ReportState> state, std::size_t section, SubreportOpener openSubreport);

private:
    std::string DoName() override;
    std::int32_t DoHeight() override;
    bool DoSuppress() override;
    void DoSetSuppress(bool suppress) override;
    std::int32_t DoReportObjectCount() override;
    Ref<CrystalRuntime::ReportObject> DoReportObjects(std::int32_t index) override;

    [[nodiscard]] report::Section& Section() const { return mState->definition.sections[mSection]; }

    std::shared_ptr<ReportState> mState;
    std::size_t mSection;
    SubreportOpener mOpenSubreport;
};

} // namespace qbrpt
