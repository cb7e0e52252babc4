// The report engine, in the words of the system.
#pragma once

#include "base/fields.h"
#include "base/picture.h"
#include "base/ref.h"
#include "platform/DAO.h"
#include "platform/port.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace qbrpt::CrystalRuntime {

class Report;

/// `Kind` of a report object.
enum class ObjectKind : std::int16_t {
    Field = 1,
    Text = 2,
    Line = 3,
    Box = 4,
    Subreport = 5,
    Picture = 6,
    BlobField = 9
};

/// One object of a section. An operation that its kind does not have is a failure.
class ReportObject : public Port {
public:
    [[nodiscard]] std::string Name();
    [[nodiscard]] ObjectKind Kind();

    [[nodiscard]] std::string FontName();
    void SetFontName(const std::string& name);
    [[nodiscard]] int FontCharset();
    void SetFontCharset(int charset);

    /// The text of a text object; UTF-8.
    [[nodiscard]] std::string Text();
    void SetText(const std::string& text);

    /// Place and size in twips. Left is measured from the left edge of the template.
    [[nodiscard]] std::int32_t Width();
    void SetWidth(std::int32_t width);
    [[nodiscard]] std::int32_t Height();
    void SetHeight(std::int32_t height);
    [[nodiscard]] std::int32_t Left();
    void SetLeft(std::int32_t left);
    [[nodiscard]] bool Suppress();
    void SetSuppress(bool suppress);
    /// Shows `picture` in place of the one that the layout carries.
    void SetFormattedPicture(const Ref<const Picture>& picture);

    /// The report inside a subreport object.
    [[nodiscard]] Ref<Report> OpenSubreport();

private:
    virtual std::string DoName() = 0;
    virtual ObjectKind DoKind() = 0;
    virtual std::string DoFontName() = 0;
    virtual void DoSetFontName(const std::string& name) = 0;
    virtual int DoFontCharset() = 0;
    virtual void DoSetFontCharset(int charset) = 0;
    virtual std::string DoText() = 0;
    virtual void DoSetText(const std::string& text) = 0;
    virtual std::int32_t DoWidth() = 0;
    virtual void DoSetWidth(std::int32_t width) = 0;
    virtual std::int32_t DoHeight() = 0;
    virtual void DoSetHeight(std::int32_t height) = 0;
    virtual std::int32_t DoLeft() = 0;
    virtual void DoSetLeft(std::int32_t left) = 0;
    virtual bool DoSuppress() = 0;
    virtual void DoSetSuppress(bool suppress) = 0;
    virtual void DoSetFormattedPicture(const Ref<const Picture>& picture) = 0;
    virtual Ref<Report> DoOpenSubreport() = 0;
};

class Section : public Port {
public:
    [[nodiscard]] std::string Name();
    /// Height in twips, as the layout gives it.
    [[nodiscard]] std::int32_t Height();
    [[nodiscard]] bool Suppress();
    void SetSuppress(bool suppress);
    [[nodiscard]] std::int32_t ReportObjectCount();
    /// Object `index`, counted from 1.
    [[nodiscard]] Ref<ReportObject> ReportObjects(std::int32_t index);

private:
    virtual std::string DoName() = 0;
    virtual std::int32_t DoHeight() = 0;
    virtual bool DoSuppress() = 0;
    virtual void DoSetSuppress(bool suppress) = 0;
    virtual std::int32_t DoReportObjectCount() = 0;
    virtual Ref<ReportObject> DoReportObjects(std::int32_t index) = 0;
};

/// The data tag that stands for a DAO record set.
constexpr int DaoRecordsetTag = 3;

/// Which pages and copies PrintOut prints; what is left out is all pages, one copy.
struct PrintRange {
    std::optional<std::int32_t> copies;
    std::optional<bool> collated;
    std::optional<std::int32_t> startPage; ///< from 1
    std::optional<std::int32_t> stopPage;  ///< from 1, this one included
};

/// One report object: alive for one run.
class Report : public Port {
public:
    /// `Database.SetDataSource`: binds the record set; its columns fill the fields by position.
    void SetDataSource(const Ref<DAO::Recordset>& data, int dataTag);
    /// Reads the rows in.
    void ReadRecords();
    void SelectPrinter(const std::string& driver, const std::string& device, const std::string& port);
    void SetPaperSize(std::int16_t paperSize);
    void SetPaperOrientation(std::int16_t orientation);
    /// The printer and paper that the report is bound to.
    [[nodiscard]] std::string PrinterName();
    [[nodiscard]] std::string DriverName();
    [[nodiscard]] std::string PortName();
    [[nodiscard]] std::int16_t PaperSize();
    [[nodiscard]] std::int16_t PaperOrientation();
    /// From the paper's left edge to the template's, in twips. Where none is set the template is centred.
    void SetLeftMargin(std::int32_t margin);
    /// The name under which jobs are printed, before the report's own title.
    void SetApplicationName(const std::string& name);
    /// Prints on the selected printer; a prompt is never asked for by this system.
    void PrintOut(bool promptUser, const PrintRange& range = {});

    [[nodiscard]] std::int32_t SectionCount();
    /// Section `index`, counted from 1.
    [[nodiscard]] Ref<Section> Sections(std::int32_t index);
    [[nodiscard]] Ref<Section> SectionNamed(const std::string& name);
    /// An object of any section by its name.
    [[nodiscard]] Ref<ReportObject> ObjectNamed(const std::string& name);
    /// Runs `handler` each time that section `section` is formatted.
    void OnFormat(const std::string& section, const std::function<void()>& handler);
    /// The page being formatted, from 1; 0 outside formatting (`PrintingStatus`).
    [[nodiscard]] std::int32_t PrintingStatus();
    /// Exact; measures the report where that has not been done yet.
    [[nodiscard]] std::int32_t NumberOfPages();

private:
    virtual void DoSetDataSource(const Ref<DAO::Recordset>& data, int dataTag) = 0;
    virtual void DoReadRecords() = 0;
    virtual void DoSelectPrinter(const std::string& driver, const std::string& device,
                                 const std::string& port) = 0;
    virtual void DoSetPaperSize(std::int16_t paperSize) = 0;
    virtual void DoSetPaperOrientation(std::int16_t orientation) = 0;
    virtual std::string DoPrinterName() = 0;
    virtual std::string DoDriverName() = 0;
    virtual std::string DoPortName() = 0;
    virtual std::int16_t DoPaperSize() = 0;
    virtual std::int16_t DoPaperOrientation() = 0;
    virtual void DoSetLeftMargin(std::int32_t margin) = 0;
    virtual void DoSetApplicationName(const std::string& name) = 0;
    virtual void DoPrintOut(bool promptUser, const PrintRange& range) = 0;
    virtual std::int32_t DoSectionCount() = 0;
    virtual Ref<Section> DoSections(std::int32_t index) = 0;
    virtual Ref<Section> DoSectionNamed(const std::string& name) = 0;
    virtual Ref<ReportObject> DoObjectNamed(const std::string& name) = 0;
    virtual void DoOnFormat(const std::string& section, const std::function<void()>& handler) = 0;
    virtual std::int32_t DoPrintingStatus() = 0;
    virtual std::int32_t DoNumberOfPages() = 0;
};

/// Makes report objects from the layouts of the templates.
class Runtime : public Port {
public:
    /// A new report on the layout `templateName`, whose rows are `fields`. The fields must outlive it.
    [[nodiscard]] Ref<Report> NewReport(const std::string& templateName, std::span<const Field> fields);

private:
    virtual Ref<Report> DoNewReport(const std::string& templateName, std::span<const Field> fields) = 0;
};

} // namespace qbrpt::CrystalRuntime
