#include "adapters/runtime/live_report.h"

#include "adapters/database/row_sort.h"
#include "adapters/export/csv.h"
#include "base/failure.h"
#include "base/paper.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "platform/printing.h"

#include <algorithm>
#include <utility>

namespace qbrpt {

namespace {

/// The rows of a report that has none yet.
class NoRows final : public RowSource {
public:
    [[nodiscard]] std::size_t RowCount() const override { return 0; }
    [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return mColumns; }
    [[nodiscard]] std::unique_ptr<RowCursor> Open() const override { return std::make_unique<Cursor>(); }

private:
    class Cursor final : public RowCursor {
    public:
        void Seek(std::size_t) override {}
        bool Next(RowView&) override { return false; }
    };
    std::vector<ColumnInfo> mColumns;
};

/// Puts a value back when the scope is left, however it is left.
template <class T>
class Restore {
public:
    Restore(T& place, T value) : mPlace(place), mBefore(std::exchange(place, std::move(value))) {}
    ~Restore() { mPlace = std::move(mBefore); }
    Restore(const Restore&) = delete;
    Restore& operator=(const Restore&) = delete;

private:
    T& mPlace;
    T mBefore;
};

} // namespace

LiveReport::LiveReport(std::shared_ptr<const RuntimeServices> services, report::Definition definition)
    : mServices(std::move(services)) {
    mState->definition = std::move(definition);
    // Before a printer says otherwise, a wide template lies on its sheet the way it fits.
    if (mState->definition.width > ExtentOfPaper(mPaperSize).width) mOrientation = OrientationLandscape;
}

void LiveReport::RaiseUnknown(const std::string& what) const {
    throw Failure(FailureNumber::NotInCollection,
                  "The report template \"" + mState->definition.name + "\" has no " + what + ".");
}

void LiveReport::DoSetDataSource(const Ref<DAO::Recordset>& data, int dataTag) {
    if (dataTag != CrystalRuntime::DaoRecordsetTag)
        throw Failure(FailureNumber::InvalidArgument,
                      "A report takes its rows from a record set only, data tag 3, not " +
                          std::to_string(dataTag) + ".");
    static_cast<void>(*data);
    mData = data;
}

void LiveReport::DoReadRecords() {
    if (mData.Empty())
        throw Failure(FailureNumber::Report, "The report template \"" + mState->definition.name +
                                                 "\" has no data source to read from.");
    mRows = mData->Rows();
    mOrdered.reset();
    mState->Changed();
}

void LiveReport::DoSelectPrinter(const std::string& driver, const std::string& device,
                                 const std::string& port) {
    mDriver = driver;
    mDevice = device;
    mPort = port;
    mState->Changed(); // its papers may be of other sizes
}

std::string LiveReport::DoPrinterName() {
    return mDevice;
}

std::string LiveReport::DoDriverName() {
    return mDriver;
}

std::string LiveReport::DoPortName() {
    return mPort;
}

std::int16_t LiveReport::DoPaperSize() {
    return mPaperSize;
}

std::int16_t LiveReport::DoPaperOrientation() {
    return mOrientation;
}

void LiveReport::DoSetLeftMargin(std::int32_t margin) {
    mLeftMargin = margin;
    mState->Changed();
}

void LiveReport::DoSetApplicationName(const std::string& name) {
    mApplication = name;
}

void LiveReport::DoSetPaperSize(std::int16_t paperSize) {
    mPaperSize = paperSize;
    mState->Changed();
}

void LiveReport::DoSetPaperOrientation(std::int16_t orientation) {
    mOrientation = orientation;
    mState->Changed();
}

void LiveReport::DoPrintOut(bool, const CrystalRuntime::PrintRange& range) {
    if (!mServices->delivery)
        throw Failure(FailureNumber::Device, "There is no printer that could take the report.");
    PrintJob job;
    job.device = mDevice;
    job.application = mApplication;
    job.title = Title();
    job.paperSize = mPaperSize;
    job.orientation = mOrientation;
    if (mServices->printers) {
        job.bin = mServices->printers->BinOf(mDevice);
        job.sides = mServices->printers->SidesOf(mDevice);
    }
    job.copies = range.copies.value_or(1);
    job.pages = {range.startPage, range.stopPage};
    mServices->delivery->Print(*this, job);
}

std::int32_t LiveReport::DoSectionCount() {
    return static_cast<std::int32_t>(mState->definition.sections.size());
}

Ref<CrystalRuntime::Section> LiveReport::DoSections(std::int32_t index) {
    if (index < 1 || index > DoSectionCount()) RaiseUnknown("section " + std::to_string(index));
    return std::make_shared<LiveSection>(mState, static_cast<std::size_t>(index - 1), Opener());
}

Ref<CrystalRuntime::Section> LiveReport::DoSectionNamed(const std::string& name) {
    const auto& sections = mState->definition.sections;
    const auto found =
        std::find_if(sections.begin(), sections.end(), [&name](const report::Section& section) {
            return section.name == name || section.role == name;
        });
    if (found == sections.end()) RaiseUnknown("section \"" + name + "\"");
    return DoSections(static_cast<std::int32_t>(found - sections.begin()) + 1);
}

Ref<CrystalRuntime::ReportObject> LiveReport::DoObjectNamed(const std::string& name) {
    const auto& sections = mState->definition.sections;
    for (std::size_t section = 0; section < sections.size(); ++section) {
        const auto& objects = sections[section].objects;
        for (std::size_t object = 0; object < objects.size(); ++object)
            if (objects[object].name == name)
                return std::make_shared<LiveObject>(mState, section, object, Opener());
    }
    RaiseUnknown("object \"" + name + "\"");
}

void LiveReport::DoOnFormat(const std::string& section, const std::function<void()>& handler) {
    report::Section* formatted = report::FindSection(mState->definition, section);
    if (formatted == nullptr) RaiseUnknown("section \"" + section + "\"");
    formatted->formatEvent = static_cast<bool>(handler);
    mState->formatHandlers[section] = handler;
    mState->Changed();
}

std::int32_t LiveReport::DoPrintingStatus() {
    return mState->formattingPage;
}

std::int32_t LiveReport::DoNumberOfPages() {
    return PageCount();
}

std::string LiveReport::Device() {
    return mDevice;
}

SubreportOpener LiveReport::Opener() {
    return [self = weak_from_this()](const std::string& name) -> Ref<CrystalRuntime::Report> {
        const auto report = self.lock();
        if (!report) throw Failure(FailureNumber::ObjectNotSet, "The report of the subreport is gone.");
        return report->OpenSubreport(name);
    };
}

Ref<CrystalRuntime::Report> LiveReport::OpenSubreport(const std::string& name) {
    const auto opened = mSubreports.find(name);
    if (opened != mSubreports.end()) return opened->second;
    const auto layout = mState->definition.subreports.find(name);
    if (layout == mState->definition.subreports.end()) RaiseUnknown("subreport \"" + name + "\"");
    auto subreport = std::make_shared<LiveReport>(mServices, *layout->second);
    subreport->mState->parent = mState;
    // From now on the pages show the opened copy, with what is written into it.
    layout->second =
        std::shared_ptr<const report::Definition>(subreport->mState, &subreport->mState->definition);
    mSubreports[name] = subreport;
    mState->Changed();
    return subreport;
}

std::shared_ptr<const RowSource> LiveReport::Rows() const {
    return mRows ? mRows : std::make_shared<const NoRows>();
}

std::shared_ptr<const RowSource> LiveReport::OrderedRows() {
    if (mOrdered) return mOrdered;
    std::vector<database::RowOrder> order;
    for (const report::SortKey& key : mState->definition.order)
        order.push_back({static_cast<std::size_t>(key.field), key.descending});
    const auto rows = Rows();
    mOrdered = database::SortRows(rows, order, {}, [&](std::size_t) {
        if (mProgress != nullptr && *mProgress) (*mProgress)(0, rows->RowCount());
    });
    return mOrdered;
}

double LiveReport::PrintedAt() {
    if (!mPrintedAt) mPrintedAt = Platform::Current().clock->Now();
    return *mPrintedAt;
}

void LiveReport::RunFormatHandler(const report::Section& section, std::int32_t page) {
    const auto handler = mState->formatHandlers.find(section.name);
    if (handler == mState->formatHandlers.end() || !handler->second) return;
    const Restore formatting(mState->formattingPage, page);
    handler->second();
}

bool LiveReport::Landscape() const {
    return mOrientation == OrientationLandscape;
}

report::DocumentContext LiveReport::Context() {
    report::DocumentContext context;
    context.text = mServices->text.get();
    context.sheet = SheetSize();
    context.leftMargin = mLeftMargin;
    context.printedAt = PrintedAt();
    for (const auto& [name, subreport] : mSubreports)
        if (subreport->mRows) context.subreportRows[name] = subreport->OrderedRows();
    context.onFormat = [this](const report::Section& section, std::int32_t page) {
        RunFormatHandler(section, page);
    };
    context.onProgress = [this](std::size_t, std::size_t all) {
        // Rows are being measured: no page is done yet, but the user may stop.
        if (mProgress != nullptr && *mProgress) (*mProgress)(0, all);
    };
    return context;
}

report::Document& LiveReport::Document() {
    if (!mState->document) {
        mState->document = std::make_unique<report::Document>(mState->definition, OrderedRows(), Context());
    }
    return *mState->document;
}

} // namespace qbrpt
