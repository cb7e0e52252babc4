// A whole platform of fakes, in place for as long as the object lives.
#pragma once

#include "fakes/fake_dao.h"
#include "fakes/fake_desktop.h"
#include "fakes/fake_fonts.h"
#include "fakes/fake_forms.h"
#include "fakes/fake_gdi.h"
#include "fakes/fake_report.h"
#include "fakes/fake_spooler.h"
#include "fakes/fake_windows.h"
#include "platform/platform.h"

#include <memory>
#include <utility>

namespace qbrpt::fakes {

/// The locale port is left empty: a test that needs words installs the adapter or a fake of its own.
class FakePlatform {
public:
    FakePlatform() {
        auto platform = std::make_unique<Platform>();
        platform->engine = engine;
        platform->reports = runtime;
        platform->forms = forms;
        platform->windows = windows;
        platform->tree = tree;
        platform->registry = registry;
        platform->screen = screen;
        platform->messages = messages;
        platform->printers = printers;
        platform->spooler = spooler;
        platform->gdi = gdi;
        platform->fonts = fonts;
        platform->clock = clock;
        mBefore = Platform::Install(std::move(platform));
    }
    ~FakePlatform() { Platform::Install(std::move(mBefore)); }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    static void Observe(std::shared_ptr<PortObserver> observer) {
        Platform::Current().observers.Add(std::move(observer));
    }

    std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>();
    std::shared_ptr<FakeRuntime> runtime = std::make_shared<FakeRuntime>();
    std::shared_ptr<FakeForms> forms = std::make_shared<FakeForms>();
    std::shared_ptr<FakeViewer> viewer = forms->viewer;
    std::shared_ptr<FakeWindows> windows = std::make_shared<FakeWindows>();
    std::shared_ptr<FakeWindowTree> tree = std::make_shared<FakeWindowTree>();
    std::shared_ptr<FakeRegistry> registry = std::make_shared<FakeRegistry>();
    std::shared_ptr<FakeScreen> screen = std::make_shared<FakeScreen>();
    std::shared_ptr<FakeMessageBoxes> messages = std::make_shared<FakeMessageBoxes>();
    std::shared_ptr<FakePrinters> printers = std::make_shared<FakePrinters>();
    std::shared_ptr<FakeSpooler> spooler = std::make_shared<FakeSpooler>();
    std::shared_ptr<FakeGdi> gdi = std::make_shared<FakeGdi>();
    std::shared_ptr<FakeFonts> fonts = std::make_shared<FakeFonts>();
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();

private:
    std::unique_ptr<Platform> mBefore;
};

} // namespace qbrpt::fakes
