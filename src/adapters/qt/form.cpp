#include "adapters/qt/form.h"

#include "adapters/qt/application.h"
#include "adapters/qt/handles.h"
#include "adapters/qt/menus.h"
#include "adapters/qt/shown_text.h"
#include "adapters/qt/twips.h"
#include "base/failure.h"

#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <utility>

namespace qbrpt::qt {

namespace {

constexpr int LongestWaitForActivation = 500; // milliseconds
constexpr Qt::WindowStates OtherStates = Qt::WindowMinimized | Qt::WindowMaximized;

} // namespace

QtForm::QtForm(const FormTable& table, FormEvents& events)
    : mEvents(events), mWindow(std::make_unique<FormWindow>(table.isDialog)) {
    SetTitle(*mWindow, table.caption);
    mWindow->resized = [this] {
        if (!mControls) return;
        mControls->StretchStrips();
        Run([this] { mEvents.Resize(); });
    };
    mWindow->closing = [this] { Closing(); };
    mControls = std::make_unique<FormControls>(*mWindow, table, Heard());
    FitToControls(table);
    mWindow->CentreOnScreen();
    mWindow->FixSize();
    mWindow->activated = [this] { Activated(); };
    mWindow->takesKey = [this](QKeyEvent& key) { return mControls->OfDialog().TakesKey(key); };
}

ControlEvents QtForm::Heard() {
    ControlEvents heard;
    heard.click = [this](const auto& name) { Run([&] { mEvents.Click(name); }); };
    heard.dblClick = [this](const auto& name) { Run([&] { mEvents.DblClick(name); }); };
    heard.itemClick = [this](const auto& name) { Run([&] { mEvents.ItemClick(name); }); };
    heard.change = [this](const auto& name) { Run([&] { mEvents.Change(name); }); };
    heard.gotFocus = [this](const auto& name) { Run([&] { mEvents.GotFocus(name); }); };
    heard.paint = [this](const auto& name) { Run([&] { mEvents.Paint(name); }); };
    heard.beforeLabelEdit = [this](const auto& name) {
        bool mayEdit = false;
        Run([&] { mayEdit = mEvents.BeforeLabelEdit(name); });
        return mayEdit;
    };
    heard.keyPress = [this](const auto& name, std::int16_t key) {
        std::int16_t taken = key;
        Run([&] { taken = mEvents.KeyPress(name, key); });
        return taken;
    };
    heard.buttonClick = [this](const auto& key) { Run([&] { mEvents.ButtonClick(key); }); };
    heard.pageChanged = [this] { Run([this] { mEvents.PageChanged(); }); };
    return heard;
}

void QtForm::FitToControls(const FormTable& table) {
    if (table.designedRightToLeft) DoSetRightToLeft(true);
    mWindow->SetClientSize(
        mControls->OfDialog().Fit({Pixels(table.clientWidth), Pixels(table.clientHeight)}));
    mControls->OfDialog().Settle();
}

QtForm::~QtForm() {
    // A form that goes without having been closed runs no rules: they may have gone before it.
    mGone = true;
    mWindow->resized = [] {};
    mWindow->closing = [] {};
    mWindow->activated = [] {};
    mControls.reset();
}

void QtForm::Run(const std::function<void()>& rule) {
    if (mGone) return;
    try {
        rule();
    } catch (...) {
        if (!mThrown) mThrown = std::current_exception();
    }
}

void QtForm::Activated() {
    if (!std::exchange(mAwaited, false)) return;
    Run([this] { mEvents.Activate(); });
}

void QtForm::Closing() {
    if (std::exchange(mClosing, true)) return;
    Run([this] { mEvents.QueryUnload(); });
    mGone = true;
    Handles::Table().Remove(mControls->Handle());
    mLoop.quit();
}

void QtForm::DoSetCaption(const std::string& caption) {
    SetTitle(*mWindow, caption);
}

WindowState QtForm::DoState() {
    if (mWindow->isMinimized()) return WindowState::Minimized;
    return mWindow->isMaximized() ? WindowState::Maximized : WindowState::Normal;
}

void QtForm::DoSetState(WindowState state) {
    Qt::WindowStates states = mWindow->windowState() & ~OtherStates;
    if (state == WindowState::Minimized) states |= Qt::WindowMinimized;
    if (state == WindowState::Maximized) states |= Qt::WindowMaximized;
    mWindow->setWindowState(states);
}

void QtForm::DoSetRightToLeft(bool rightToLeft) {
    mWindow->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

std::int32_t QtForm::DoScaleWidth() {
    return mWindow->isMinimized() ? 0 : Twips(mWindow->Client().width());
}

std::int32_t QtForm::DoScaleHeight() {
    return mWindow->isMinimized() ? 0 : Twips(mWindow->Client().height());
}

void QtForm::DoMove(std::int32_t left, std::int32_t top) {
    mWindow->move(Pixels(left), Pixels(top));
}

void QtForm::DoShowModal() {
    if (mGone) return;
    mHidden = false;
    mAwaited = true;
    mControls->OfDialog().Settle();
    mControls->OfDialog().FocusFirst();
    mWindow->show();
    if (!mWindow->isMinimized()) mWindow->activateWindow();
    QTimer::singleShot(0, mWindow.get(), [this] { KeepActivation(); });
    // Without a window manager no window is ever active.
    QTimer::singleShot(LongestWaitForActivation, mWindow.get(), [this] { Activated(); });
    mLoop.exec();
    // The loop also ends when the host's application is told to end.
    if (!mHidden) DoUnload();
    if (mThrown) std::rethrow_exception(std::exchange(mThrown, nullptr));
}

// Hidden and shown again at once, the window has kept the screen's focus, and is not given it anew, while Qt
// took it for left.
void QtForm::KeepActivation() {
    if (!mWindow->isVisible() || mWindow->isActiveWindow()) return;
    if (QGuiApplication::focusWindow() == mWindow->windowHandle())
        QApplication::setActiveWindow(mWindow.get());
}

void QtForm::DoHide() {
    mHidden = true;
    mWindow->hide();
    mLoop.quit();
}

void QtForm::DoUnload() {
    Closing();
    mWindow->hide();
}

Ref<MenuItem> QtForm::DoMenu(const std::string& name) {
    return ItemOf(mControls->Menu(name));
}

Ref<Toolbar> QtForm::DoToolbarOf(const std::string& name) {
    return mControls->ToolbarOf(name);
}

Ref<CRViewer> QtForm::DoViewer(const std::string& name) {
    return mControls->Viewer(name).Port();
}

Ref<Form> QtForms::DoLoad(const FormTable& table, FormEvents& events) {
    RequireApplication();
    return std::make_shared<QtForm>(table, events);
}

} // namespace qbrpt::qt
