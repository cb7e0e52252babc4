// Values in files: kept whole, found again, and nobody's broken file taken for one.
#include "adapters/registry/file_registry.h"
#include "fakes/fake_platform.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;

const std::string Key = ".Default\\Software\\Tollmere\\Printing";
const std::string Name = "Window Place";
const std::string Value(44, '\x07');

class FileRegistryTest : public ::testing::Test {
protected:
    bool Read() { return store->ReadValue(HKEY_USERS, Key, Name, data, RegistryBinary); }
    bool Write(const std::string& value) {
        return store->WriteValue(HKEY_USERS, Key, Name, value, RegistryBinary);
    }
    void Use(std::vector<fs::path> folders) { store = std::make_unique<FileRegistry>(std::move(folders)); }
    [[nodiscard]] std::string Data() const { return {data.begin(), data.end()}; }
    [[nodiscard]] fs::path OnlyFile() const {
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(user))
            files.push_back(entry.path());
        EXPECT_EQ(files.size(), 1U);
        return files.empty() ? fs::path{} : files.front();
    }

    fakes::FakePlatform platform;
    TempFolder folder;
    fs::path machine = folder.Path() / "machine";
    fs::path user = folder.Path() / "deep" / "user";
    std::unique_ptr<FileRegistry> store = std::make_unique<FileRegistry>(std::vector{user});
    std::vector<std::uint8_t> data;
};

TEST_F(FileRegistryTest, FindsWhatWasWrittenAlsoInAnotherRun) {
    EXPECT_FALSE(Read());
    EXPECT_TRUE(Write(Value));
    Use({user});
    EXPECT_TRUE(Read());
    EXPECT_EQ(Data(), Value);
    EXPECT_TRUE(Write("other"));
    EXPECT_TRUE(Read());
    EXPECT_EQ(Data(), "other");
}

TEST_F(FileRegistryTest, KeepsEveryByte) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_TRUE(Write(all));
    EXPECT_TRUE(Read());
    EXPECT_EQ(Data(), all);
    EXPECT_TRUE(Write(""));
    EXPECT_TRUE(Read());
    EXPECT_TRUE(data.empty());
}

TEST_F(FileRegistryTest, TellsValuesApart) {
    EXPECT_TRUE(Write(Value));
    EXPECT_FALSE(store->ReadValue(HKEY_USERS, Key, "Window-20Place", data, RegistryBinary));
    EXPECT_FALSE(store->ReadValue(HKEY_USERS, Key, "window place", data, RegistryBinary));
    EXPECT_FALSE(store->ReadValue(HKEY_USERS, Key + "\\x", Name, data, RegistryBinary));
    EXPECT_FALSE(store->ReadValue(0x80000001, Key, Name, data, RegistryBinary));
    EXPECT_FALSE(store->ReadValue(HKEY_USERS, Key, Name, data, 1));
}

TEST_F(FileRegistryTest, NoPartOfAValueIsTakenForOne) {
    EXPECT_TRUE(Write(Value));
    const fs::path file = OnlyFile();
    fs::resize_file(file, fs::file_size(file) - 1);
    data = {1, 2};
    EXPECT_FALSE(Read());
    EXPECT_EQ(data, (std::vector<std::uint8_t>{1, 2}));
    std::ofstream(file) << "nothing of ours";
    EXPECT_FALSE(Read());
    fs::resize_file(file, 0);
    EXPECT_FALSE(Read());
    EXPECT_TRUE(Write(Value));
    EXPECT_TRUE(Read());
}

TEST_F(FileRegistryTest, ASecondFolderTakesWhatTheFirstOneRefuses) {
    std::ofstream(folder.Path() / "machine") << "a file, where a folder would have to be";
    Use({machine, user});
    EXPECT_TRUE(Write(Value));
    EXPECT_TRUE(Read());
    EXPECT_TRUE(fs::exists(user));
}

TEST_F(FileRegistryTest, SaysThatNothingWasWrittenWhereNoFolderIsOpen) {
    std::ofstream(folder.Path() / "machine") << "a file";
    Use({machine});
    EXPECT_FALSE(Write(Value));
    EXPECT_FALSE(Read());
}

TEST_F(FileRegistryTest, GoesWhereTheSettingSays) {
    setenv("QBRPT_REGISTRY", user.c_str(), 1);
    FileRegistry chosen;
    unsetenv("QBRPT_REGISTRY");
    EXPECT_TRUE(chosen.WriteValue(HKEY_USERS, Key, Name, Value, RegistryBinary));
    EXPECT_TRUE(Read());
}

} // namespace
} // namespace qbrpt
