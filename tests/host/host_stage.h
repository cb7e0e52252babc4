// The café host in this process, on a screen of its own with a window manager.
#pragma once

#include "cafe_window.h"
#include "cli/command_run.h"
#include "look.h"
#include "member_form.h"
#include "member_list.h"
#include "qt/desktop_user.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStatusBar>
#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <utility>

namespace qbrpt::test {

/// Does something once, as soon as it can, while a member is at work.
class Meanwhile {
public:
    Meanwhile(std::function<bool()> ready, std::function<void()> act) {
        QObject::connect(&mTimer, &QTimer::timeout, [this, ready = std::move(ready), act = std::move(act)] {
            if (!ready()) return;
            mTimer.stop(); // first: what is done may wait
            mDone = true;
            act();
        });
        constexpr int milliseconds = 50;
        mTimer.start(milliseconds);
    }
    [[nodiscard]] bool Done() const { return mDone; }

private:
    QTimer mTimer;
    bool mDone = false;
};

inline QMessageBox* OpenBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

/// Qt and the host on a private screen, and nothing of the caller's own.
class HostStage : public ::testing::Test {
protected:
    HostStage() {
        desktop.StartManager();
        ::setenv("QT_QPA_PLATFORM", "xcb", 1);
        ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
        ::setenv("QBRPT_REGISTRY", (folder / "registry").c_str(), 1);
        ::setenv("QBRPT_PDF_FOLDER", (folder / "pages").c_str(), 1);
        application = std::make_unique<QApplication>(count, words);
        QApplication::setQuitOnLastWindowClosed(false);
        cafe::SetLook(*application);
        window = std::make_unique<cafe::CafeWindow>();
        window->show();
        EXPECT_TRUE(Waits([&] { return window->isActiveWindow(); }));
    }

    void Open(const std::string& file) {
        window->OpenInFront(QString::fromStdString(file));
        EXPECT_TRUE(Waits([&] { return Status().contains("SetDbInfo"); }));
    }
    void Choose(const std::string& member) {
        auto* list = window->findChild<cafe::MemberList*>();
        const auto rows = list->findItems(QString::fromStdString(member), Qt::MatchExactly);
        ASSERT_EQ(rows.size(), 1);
        list->setCurrentItem(rows.front());
    }
    [[nodiscard]] cafe::MemberForm& Form() { return *window->findChild<cafe::MemberForm*>(); }
    template <class Widget>
    [[nodiscard]] Widget* Part(const char* name) {
        return window->findChild<Widget*>(name);
    }
    void ClickRun() { Part<QPushButton>("run")->click(); }
    [[nodiscard]] QString Status() {
        return window->statusBar()->currentMessage().remove(QChar(0x2066)).remove(QChar(0x2069));
    }
    /// What IsDbValid and CanPrint say at the top of the window.
    [[nodiscard]] QStringList Chips() {
        QStringList texts;
        for (const QLabel* chip : window->findChildren<QLabel*>("chip"))
            texts += chip->text();
        return texts;
    }
    /// The preview that stands in the window's place.
    [[nodiscard]] QWidget* Preview() {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top != window.get() && top->isVisible() && top->windowTitle().endsWith("[Printing]"))
                return top;
        return nullptr;
    }

    XDesktop desktop;
    TempFolder folder;
    int count = 1;
    char program[6] = "qbrpt";
    char* words[2] = {program, nullptr};
    std::unique_ptr<QApplication> application;
    std::unique_ptr<cafe::CafeWindow> window;
};

} // namespace qbrpt::test
