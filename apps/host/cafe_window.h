// The café's window: every member of the component, to be tried one after the other. Remembers nothing.
#pragma once

#include "fields.h"

#include <QtWidgets/QMainWindow>

#include <functional>

namespace cafe {

class HeadingPanel;
class MemberForm;
class MemberList;

class CafeWindow : public QMainWindow {
public:
    CafeWindow();

    /// Opens a café's database as soon as this window is in front: the component takes the window in front at
    /// that moment for the one whose place its previews take.
    void OpenInFront(const QString& file);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* MakeMemberPart();
    void Choose(int row);
    void Run();
    void Open(const QString& file);
    void DoInFront(std::function<void()> action);
    void DoWaiting();
    void HandHeadingOver();
    /// What follows a member beyond its own work: its effect on this window.
    void Follow(const Member& member, const std::vector<Argument>& arguments, const std::string& answer);
    /// Calls a member; this window takes no input meanwhile. Says in the status line how it went.
    void Call(const Member& member, const std::vector<Argument>& arguments);
    void ShowAnswers();

    qbrpt::VantlowCls mReports;
    HeadingPanel* mHeading;
    MemberList* mList = nullptr;
    MemberForm* mForm = nullptr;
    std::function<void()> mWaiting; ///< for this window to be in front
    bool mCalling = false;
};

} // namespace cafe
