#include "adapters/runtime/runtime.h"

#include "adapters/runtime/live_report.h"
#include "adapters/text/text_engine.h"

#include <set>
#include <utility>

namespace qbrpt {

namespace {

class LiveRuntime final : public CrystalRuntime::Runtime {
public:
    explicit LiveRuntime(RuntimeServices services)
        : mServices(std::make_shared<const RuntimeServices>(std::move(services))) {}

private:
    Ref<CrystalRuntime::Report> DoNewReport(const std::string& templateName,
                                            std::span<const Field> fields) override {
        return std::make_shared<LiveReport>(mServices, *mServices->layouts.Load(templateName, fields));
    }

    std::shared_ptr<const RuntimeServices> mServices;
};

} // namespace

RuntimeServices ServicesOf(std::shared_ptr<text::TextEngine> engine, std::shared_ptr<Delivery> delivery) {
    RuntimeServices services;
    services.text = engine;
    services.fonts = std::shared_ptr<const text::FontBook>(engine, &engine->Fonts());
    services.missingGlyphs = [engine, told = std::set<std::string>()]() mutable {
        std::vector<std::string> missing = engine->MissingGlyphs();
        std::erase_if(missing, [&told](const std::string& one) { return !told.insert(one).second; });
        return missing;
    };
    services.delivery = std::move(delivery);
    return services;
}

Ref<CrystalRuntime::Runtime> MakeRuntime(RuntimeServices services) {
    return std::make_shared<LiveRuntime>(std::move(services));
}

} // namespace qbrpt
