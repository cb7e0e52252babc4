// A report object that is alive: its layout can be filled, its rows bound, its pages made.
#pragma once

#include "adapters/export/export_job.h"
#include "adapters/output/page_source.h"
#include "adapters/output/report_output.h"
#include "adapters/runtime/live_objects.h"
#include "adapters/runtime/report_state.h"
#include "adapters/runtime/runtime.h"
#include "base/paper.h"
#include "platform/CrystalRuntime.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace qbrpt {

class LiveReport final : public CrystalRuntime::Report,
                         public ReportOutput,
                         public PageSource,
                         public std::enable_shared_from_this<LiveReport> {
public:
    LiveReport(std::shared_ptr<const RuntimeServices> services, report::Definition definition);

    [[nodiscard]] std::string Title() override;
    [[nodiscard]] std::int32_t PageCount() override;
    std::int32_t CountPages(const PageProgress& progress) override;
    [[nodiscard]] report::Sheet SheetSize() override;
    void BuildPage(std::int32_t index, report::Page& page) override;
    [[nodiscard]] const text::FontBook& Fonts() override;
    [[nodiscard]] std::string Device() override;
    void WritePdf(ByteSink& sink, const PageRange& range, const PageProgress& progress) override;
    void WriteTable(TableKind kind, ByteSink& sink, const TableProgress& progress) override;
    [[nodiscard]] std::vector<std::string> Subreports() override;
    void WriteSubreport(const std::string& name, ByteSink& sink, const TableProgress& progress) override;

private:
    void DoSetDataSource(const Ref<DAO::Recordset>& data, int dataTag) override;
    void DoReadRecords() override;
    void DoSelectPrinter(const std::string& driver, const std::string& device,
                         const std::string& port) override;
    void DoSetPaperSize(std::int16_t paperSize) override;
    void DoSetPaperOrientation(std::int16_t orientation) override;
    void DoPrintOut(bool promptUser, const CrystalRuntime::PrintRange& range) override;
    std::int32_t DoSectionCount() override;
    Ref<CrystalRuntime::Section> DoSections(std::int32_t index) override;
    Ref<CrystalRuntime::Section> DoSectionNamed(const std::string& name) override;
    Ref<CrystalRuntime::ReportObject> DoObjectNamed(const std::string& name) override;
    void DoOnFormat(const std::string& section, const std::function<void()>& handler) override;
    std::int32_t DoPrintingStatus() override;
    std::int32_t DoNumberOfPages() override;
    std::string DoPrinterName() override;
    std::string DoDriverName() override;
    std::string DoPortName() override;
    std::int16_t DoPaperSize() override;
    std::int16_t DoPaperOrientation() override;
    void DoSetLeftMargin(std::int32_t margin) override;
    void DoSetApplicationName(const std::string& name) override;

    [[nodiscard]] report::Document& Document();
    [[nodiscard]] report::DocumentContext Context();
    [[nodiscard]] ExportJob Job();
    [[nodiscard]] bool Landscape() const;
    /// The sheet, upright.
    [[nodiscard]] PaperExtent Paper() const;
    [[nodiscard]] double PrintedAt();
    /// The rows as read; none before that.
    [[nodiscard]] std::shared_ptr<const RowSource> Rows() const;
    /// The same in the order that the layout wants.
    [[nodiscard]] std::shared_ptr<const RowSource> OrderedRows();
    [[nodiscard]] SubreportOpener Opener();
    [[nodiscard]] Ref<CrystalRuntime::Report> OpenSubreport(const std::string& name);
    void RunFormatHandler(const report::Section& section, std::int32_t page);
    [[noreturn]] void RaiseUnknown(const std::string& what) const;
    void WarnOfMissingGlyphs() const;

    std::shared_ptr<const RuntimeServices> mServices;
    std::shared_ptr<ReportState> mState = std::make_shared<ReportState>();
    std::map<std::string, std::shared_ptr<LiveReport>> mSubreports; ///< those that were opened
    Ref<DAO::Recordset> mData;
    std::shared_ptr<const RowSource> mRows; ///< as read; empty before
    std::shared_ptr<const RowSource> mOrdered;
    std::string mDriver;
    std::string mDevice;
    std::string mPort;
    std::string mApplication;
    std::optional<std::int32_t> mLeftMargin;
    std::int16_t mPaperSize = 9;
    std::int16_t mOrientation = 1;
    std::optional<double> mPrintedAt;
    const PageProgress* mProgress = nullptr; ///< of the writing that is under way
};

} // namespace qbrpt
