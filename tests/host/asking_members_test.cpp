// The members that open windows of their own, called by the host and worked by a user.
#include "dialog_steps.h"
#include "host_stage.h"

namespace qbrpt::test {
namespace {

constexpr const char* Accounts = "الحسابات العامة";
constexpr const char* Options = "خيارات طباعة بيانات المشتركين";

class AskingMember : public HostStage {
protected:
    void RunAndDo(const std::string& member, std::vector<UserStep> steps) {
        Open(cafe.Database());
        Choose(member);
        UserSteps course(std::move(steps));
        ClickRun();
        EXPECT_TRUE(course.Done());
        EXPECT_EQ(Status(), QString("انتهى الأمر %1.").arg(QString::fromStdString(member)));
        EXPECT_TRUE(Waits([this] { return window->isActiveWindow(); }));
        EXPECT_TRUE(Part<QPushButton>("run")->isEnabled());
        EXPECT_EQ(OpenBox(), nullptr);
    }
    [[nodiscard]] static UserStep In(const char* title, std::function<void()> act) {
        return {title, [title] { return ActiveDialog(title) != nullptr; }, std::move(act)};
    }
    [[nodiscard]] UserStep InPreview(std::function<void()> act) {
        return {"preview", [this] { return Preview() != nullptr && Preview()->isActiveWindow(); },
                std::move(act)};
    }

    const Cafe cafe{4, 12};
};

TEST_F(AskingMember, TheAccountsAreEditedInTheHostsDatabase) {
    RunAndDo("EditAccount", {In(Accounts, [this] {
                 EXPECT_FALSE(Part<QPushButton>("run")->isEnabled()) << "no second member meanwhile";
                 Keys({"Tab", "Tab"});
                 User({"type", "Petty cash"});
                 Keys({"Return"});
                 EXPECT_TRUE(Waits([this] {
                     return cafe.Ask("SELECT count(*) FROM account_src WHERE name = 'Petty cash'") == "1";
                 }));
                 UserClosesWindow();
             })});
    EXPECT_EQ(ActiveDialog(Accounts), nullptr);
}

TEST_F(AskingMember, ThePrintedAccountsComeBackToTheirWindow) {
    RunAndDo("EditAccount",
             {In(Accounts,
                 [] {
                     Keys({"ctrl+Page_Up"}); // the last page
                     EXPECT_TRUE(Waits([] { return OpenPart<QWidget>("cmdPrint").isVisible(); }));
                     UserClicks(OpenPart<QWidget>("chkAll"));
                     UserClicks(OpenPart<QWidget>("cmdPrint"));
                 }),
              InPreview([] { UserClosesWindow(); }), In(Accounts, [] { UserClosesWindow(); })});
}

TEST_F(AskingMember, TheOptionsBecomeTheReport) {
    RunAndDo("PrintMembersInfo",
             {In(Options,
                 [] {
                     EXPECT_EQ(FocusedPart(), "Option1(0)");
                     Keys({"Down"});
                     EXPECT_TRUE(Waits([] { return OpenPart<QAbstractButton>("Option1(1)").isChecked(); }));
                     Keys({"Return"});
                 }),
              InPreview([this] {
                  EXPECT_FALSE(window->isVisible());
                  UserClosesWindow();
              })});
}

TEST_F(AskingMember, TheOptionsRefusedEndItInSilence) {
    RunAndDo("PrintMembersInfo", {In(Options, [] { Keys({"Escape"}); })});
    RunAndDo("PrintMembersInfo", {In(Options, [] { UserClicks(OpenPart<QWidget>("Cancel")); })});
    RunAndDo("PrintMembersInfo", {In(Options, [] { UserClosesWindow(); })});
    EXPECT_EQ(Preview(), nullptr);
}

} // namespace
} // namespace qbrpt::test
