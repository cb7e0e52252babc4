// A user's way through windows that wait for him, a step when each is ready.
#pragma once

#include "qt/desktop_user.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::test {

struct UserStep {
    const char* name;
    std::function<bool()> ready;
    std::function<void()> act; ///< never waits for a window that it opens: the next step does
};

/// Of the window that waits.
inline std::string OpenTitle() {
    const QWidget* open = QApplication::activeModalWidget();
    return open == nullptr ? "no window" : open->windowTitle().toStdString();
}

/// Takes its steps while windows wait. A step that never gets ready fails the test and closes them all.
class UserSteps {
public:
    explicit UserSteps(std::vector<UserStep> steps) : mSteps(std::move(steps)) {
        QObject::connect(&mTimer, &QTimer::timeout, [this] { Look(); });
        mSince.start();
        constexpr int milliseconds = 20;
        mTimer.start(milliseconds);
    }
    [[nodiscard]] bool Done() const { return mAt == mSteps.size(); }

private:
    void Look() {
        constexpr qint64 patience = 30'000;
        if (Done()) return mTimer.stop();
        const UserStep& step = mSteps[mAt];
        if (mSince.elapsed() > patience) {
            if (!mGaveUp) ADD_FAILURE() << "never ready: " << step.name << ", in " << OpenTitle();
            mGaveUp = true;
            if (QWidget* open = QApplication::activeModalWidget()) open->close();
            return;
        }
        if (!step.ready()) return;
        ++mAt; // first: what is done may wait
        mSince.restart();
        step.act();
    }

    std::vector<UserStep> mSteps;
    std::size_t mAt = 0;
    bool mGaveUp = false;
    QElapsedTimer mSince;
    QTimer mTimer;
};

/// The window with this title, if it is the one that the user works in.
inline QWidget* ActiveDialog(const char* title) {
    QWidget* dialog = QApplication::activeModalWidget();
    const bool itself = dialog != nullptr && dialog->isActiveWindow() && dialog->windowTitle() == title;
    return itself ? dialog : nullptr;
}

/// A control of the window that waits.
template <class Widget>
Widget& OpenPart(const char* name) {
    return *QApplication::activeModalWidget()->findChild<Widget*>(name);
}

inline std::string FocusedPart() {
    const QWidget* focused = QApplication::focusWidget();
    return focused == nullptr ? "" : focused->objectName().toStdString();
}

inline void Keys(std::vector<std::string> keys) {
    keys.insert(keys.begin(), "key");
    User(std::move(keys));
}

/// Where an entry with these words stands in a list; -1: nowhere.
inline int EntryOf(const char* combo, const char* words) {
    return OpenPart<QComboBox>(combo).findText(words, Qt::MatchContains);
}

inline std::string EntriesOf(const char* combo) {
    const auto& list = OpenPart<QComboBox>(combo);
    std::string entries = combo;
    for (int entry = 0; entry < list.count(); ++entry)
        entries += "\n  " + list.itemText(entry).toStdString();
    return entries;
}

/// From the list that has the focus, by keys.
inline void ChooseByKeys(const char* combo, const char* words) {
    EXPECT_EQ(FocusedPart(), combo);
    const int entry = EntryOf(combo, words);
    ASSERT_GE(entry, 0) << words << " is not in " << EntriesOf(combo);
    std::vector<std::string> keys(static_cast<std::size_t>(entry), "Down");
    keys.insert(keys.begin(), "Home");
    Keys(keys);
    EXPECT_TRUE(Waits([&] { return OpenPart<QComboBox>(combo).currentIndex() == entry; })) << combo;
}

inline void TabTo(const char* name, const char* key = "Tab") {
    Keys({key});
    EXPECT_TRUE(Waits([&] { return FocusedPart() == name; })) << name << ", but " << FocusedPart();
}

inline void ChooseByMouse(const char* combo, const char* words) {
    auto& list = OpenPart<QComboBox>(combo);
    const int entry = EntryOf(combo, words);
    ASSERT_GE(entry, 0) << words << " is not in " << EntriesOf(combo);
    QAbstractItemView& view = *list.view();
    UserClicks(list);
    EXPECT_TRUE(Waits([&] { return view.isVisible(); }));
    UserClicks(*view.viewport(), view.visualRect(view.model()->index(entry, 0)).center());
    EXPECT_TRUE(Waits([&] { return !view.isVisible() && list.currentIndex() == entry; })) << words;
}

} // namespace qbrpt::test
