// The application that widgets live in; it ends before the libraries under it do.
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

#include <memory>

namespace {

class QtEnvironment final : public testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        mApplication = std::make_unique<QApplication>(mCount, mWords);
    }
    void TearDown() override { mApplication.reset(); }

private:
    int mCount = 1;
    char mName[5] = "test";
    char* mWords[2] = {mName, nullptr};
    std::unique_ptr<QApplication> mApplication;
};

const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
