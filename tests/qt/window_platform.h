// The component's real windows, and fakes for everything else.
#pragma once

#include "adapters/console/console_boxes.h"
#include "adapters/gdi/raster_gdi.h"
#include "adapters/qt/boxes.h"
#include "adapters/qt/form.h"
#include "adapters/qt/form_window.h"
#include "adapters/qt/screen.h"
#include "adapters/qt/window_tree.h"
#include "adapters/qt/windows.h"
#include "fakes/fake_platform.h"
#include "tools/temp_folder.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdlib>
#include <functional>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

namespace qbrpt::test {

/// Windows on Qt's platform of this name; on X11 where it is empty.
class WindowPlatform : public fakes::FakePlatform {
public:
    explicit WindowPlatform(const char* qtPlatform = "offscreen") {
        ::setenv("QT_QPA_PLATFORM", qtPlatform, 1);
        ::setenv("XDG_RUNTIME_DIR", mRuntime.Path().c_str(), 1);
        ::unsetenv("WAYLAND_DISPLAY");
        Platform& platform = Platform::Current();
        platform.forms = std::make_shared<qt::QtForms>();
        platform.windows = std::make_shared<qt::QtWindows>();
        platform.tree = std::make_shared<qt::QtTree>(platform.windows);
        platform.screen = std::make_shared<qt::QtScreen>();
        platform.gdi = drawing;
        platform.messages = std::make_shared<qt::QtBoxes>(console, BoxAnswer::Cancel);
    }

    std::shared_ptr<gdi::RasterGdi> drawing = std::make_shared<gdi::RasterGdi>();
    std::ostringstream console; ///< boxes that found no display

private:
    TempFolder mRuntime;
};

/// Does one thing after the other, from the time at which a window waits for its user.
class Meanwhile {
public:
    using Step = std::function<void()>;
    explicit Meanwhile(std::vector<Step> steps)
        : mSteps(std::make_shared<std::vector<Step>>(std::move(steps))) {
        Next(mSteps, 0);
    }

private:
    static void Next(const std::shared_ptr<std::vector<Step>>& steps, std::size_t position) {
        if (position == steps->size()) return;
        constexpr int milliseconds = 80;
        QTimer::singleShot(milliseconds, qApp, [=] {
            // Before that, events are only handled in between, and nothing goes on until a step returns.
            if (position == 0 && QApplication::activeModalWidget() == nullptr) return Next(steps, 0);
            Next(steps, position + 1); // first: a step may open a window that the next one closes
            (*steps)[position]();
        });
    }
    std::shared_ptr<std::vector<Step>> mSteps;
};

/// The open form.
inline qt::FormWindow* OpenForm() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = dynamic_cast<qt::FormWindow*>(widget);
        if (form != nullptr && form->isVisible()) return form;
    }
    return nullptr;
}

} // namespace qbrpt::test
