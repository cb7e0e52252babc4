#include "adapters/qt/form.h"

#include "adapters/qt/application.h"
#include "adapters/qt/handles.h"
#include "adapters/qt/menus.h"
#include "adapters/qt/twips.h"
#include "base/failure.h"

#include <utility>

namespace qbrpt::qt {

namespace {

constexpr Qt::WindowStates OtherStates = Qt::WindowMinimized | Qt::WindowMaximized;

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QtForm::QtForm(const FormTable& table, FormEvents& events)
    : mEvents(events), mWindow(std::make_unique<FormWindow>()) {
    mWindow->setWindowTitle(Text(table.caption));
    mWindow->resized = [this] {
        if (!mControls) return;
        mControls->StretchStrips();
        Run([this] { mEvents.Resize(); });
    };
    mWindow->closing = [this] { Closing(); };
    mControls = std::make_unique<FormControls>(
        *mWindow, table,
        ControlEvents{.click = [this](const auto& name) { Run([&] { mEvents.Click(name); }); },
                      .buttonClick = [this](const auto& key) { Run([&] { mEvents.ButtonClick(key); }); },
                      .pageChanged = [this] { Run([this] { mEvents.PageChanged(); }); }});
    mWindow->SetClientSize({Pixels(table.clientWidth), Pixels(table.clientHeight)});
    mWindow->CentreOnScreen();
    if (table.designedRightToLeft) DoSetRightToLeft(true);
}

QtForm::~QtForm() {
    // A form that goes without having been closed runs no rules: they may have gone before it.
    mGone = true;
    mWindow->resized = [] {};
    mWindow->closing = [] {};
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

void QtForm::Closing() {
    if (std::exchange(mClosing, true)) return;
    Run([this] { mEvents.QueryUnload(); });
    mGone = true;
    Handles::Table().Remove(mControls->Handle());
    mLoop.quit();
}

void QtForm::DoSetCaption(const std::string& caption) {
    mWindow->setWindowTitle(QString::fromStdString(caption));
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
    mWindow->show();
    if (!mWindow->isMinimized()) mWindow->activateWindow();
    mLoop.exec();
    // The loop also ends when the host's application is told to end.
    if (!mHidden) DoUnload();
    if (mThrown) std::rethrow_exception(std::exchange(mThrown, nullptr));
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

Ref<Control> QtForm::DoControl(const std::string& name) {
    throw Failure(FailureNumber::NotInCollection, "The form has no control \"" + name + "\".");
}

Ref<Form> QtForms::DoLoad(const FormTable& table, FormEvents& events) {
    RequireApplication();
    return std::make_shared<QtForm>(table, events);
}

} // namespace qbrpt::qt
