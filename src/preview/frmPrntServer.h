// The window in which a finished report is read before it is printed.
#pragma once

#include "base/value.h"
#include "platform/CRViewer.h"
#include "platform/forms.h"
#include "templates/report_template.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qbrpt {

class ErrorTrap;

/// Rows of receivers, six values each.
using ReceiverRows = std::vector<std::vector<Value>>;

/// A report that is printed once for each receiver.
class ReceiverReport {
public:
    virtual ~ReceiverReport() = default;
    /// The six values of one receiver.
    virtual void SetInfoData(const std::vector<Value>& values) = 0;
};

/// One instance a process, made for one report and dropped after it. Failures end in its routines' own
/// boxes; nothing is thrown to a caller.
class frmPrntServer : private FormEvents {
public:
    /// The instance; created where there is none.
    [[nodiscard]] static frmPrntServer& Instance();
    /// Whether a report's window is there.
    [[nodiscard]] static bool Exists();
    /// Drops the instance, so that the next report gets a new window. One that is open stays.
    static void Drop();
    /// Whether a report is open, so that another one must wait; `trap` has said so then.
    [[nodiscard]] static bool RefusesAnother(ErrorTrap& trap);

    /// Shows `pnRpt` and returns when the user has closed the window. True when it closed without a failure
    /// pending. Refused while a report is open, as ShowGuestInfo is.
    bool ShowpReport(const Ref<ReportTemplate>& pnRpt, bool bShowArabic);
    /// Shows (`bShow`) or prints a report once for each row of `vReceiver`.
    void ShowGuestInfo(const Ref<ReportTemplate>& pnRpt, const ReceiverRows& vReceiver, std::int16_t rcvCount,
                       bool bShow, bool bArabic);
    /// Centres the report across the paper of the current printer.
    void AlignToPrinter();
    /// Prints the report: all pages at once, or what the options dialog says.
    void PrintData(bool bShowDialog);
    /// The receiver whose values the report has now, a row from 0.
    [[nodiscard]] std::int32_t ReceiverIndex() const { return mReceiverIndex; }

private:
    // Events.
    void Resize() override;
    void QueryUnload() override;
    void Click(const std::string& name) override;
    void ButtonClick(const std::string& key) override;
    void PageChanged() override;

    /// The window, loaded at its first use.
    [[nodiscard]] Form& Window();
    [[nodiscard]] Ref<CRViewer> prntViewer() { return Window().Viewer("prntViewer"); }
    void Load();
    void Unload();
    [[nodiscard]] bool ShowAsOpen(ErrorTrap& trap, Ref<ReportTemplate> pnRpt, bool bShowArabic);
    void ShowHost(WindowHandle host);
    void SetEnglishCaptions();
    void PlaceToolbar();
    void FinishPlacement();

    // Pages and zoom.
    void RunButton(const std::string& key);
    void RunCommand(const std::string& name);
    [[nodiscard]] bool WaitViewerReady();
    void SetPage(std::int16_t n);
    void SetZoom(std::int16_t n);
    void UpdateViewCommands();

    // Printer.
    void RefreshReportprinter();
    [[nodiscard]] bool BoundToCurrentPrinter();
    void UpdateInfoData();
    void PrintForReceivers(std::int32_t from, std::int32_t to, std::int32_t copies);
    void PrintOut(std::int32_t from, std::int32_t to, std::int32_t copies);

    // Placement.
    void LoadLastPos();
    void SavePos();
    void TakePlaceOf(ErrorTrap& trap, WindowHandle host, WindowHandle me, const WindowPlace& place);

    Ref<Form> mForm;
    bool mOpen = false;           ///< inside ShowpReport or ShowGuestInfo
    Ref<ReportTemplate> mReport;  ///< empty outside of those
    std::int16_t mZoom = 100;     ///< percent
    bool mArabic = false;         ///< right to left; the tool bar stands at the right edge
    bool mFirstResize = false;    ///< the next resize finishes the placement
    bool mClosed = false;         ///< the close request was seen to
    WindowHandle mHiddenHost = 0; ///< waits to be shown again, whatever the host hands over meanwhile
    std::int32_t mLeft = 0;       ///< window position in twips
    std::int32_t mTop = 0;
    ReceiverRows vReceiver;
    std::int32_t rcvCount = 0;
    std::int32_t mReceiverIndex = 0; ///< row of vReceiver in use, from 0
    bool mGuestMode = false;
};

/// Three statements of `trap`: printer, orientation and paper of the report become those of the current one.
void PointAtCurrentPrinter(ErrorTrap& trap, const Ref<ReportTemplate>& report);

} // namespace qbrpt
