// The application that widgets live in; it ends before the libraries under it do.
#include "tools/temp_folder.h"

#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

#include <memory>

namespace {

class QtEnvironment final : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("XDG_CONFIG_HOME", mSettings.Path().c_str()); // where Qt's dialogs remember things
        mApplication = std::make_unique<QApplication>(mCount, mWords);
    }
    void TearDown() override { mApplication.reset(); }

private:
    qbrpt::test::TempFolder mSettings;
    int mCount = 1;
    char mName[5] = "test";
    char* mWords[2] = {mName, nullptr};
    std::unique_ptr<QApplication> mApplication;
};

const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
