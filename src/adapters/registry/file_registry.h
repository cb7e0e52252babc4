// The values kept between runs, a file each.
#pragma once

#include "platform/registry.h"

#include <filesystem>
#include <vector>

namespace qbrpt {

/// Keeps values in the first of its folders that can be written, and reads them from the first that has
/// them. A file appears whole or not at all, and is on the disk before a write returns. What is no whole
/// value of its kind counts as missing.
class FileRegistry : public RegistryStore {
public:
    /// The folder that QBRPT_REGISTRY names; else the machine's own, and the user's where that is not open
    /// to him.
    FileRegistry();
    explicit FileRegistry(std::vector<std::filesystem::path> folders);

private:
    bool DoReadValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                     std::vector<std::uint8_t>& data, int valueType) override;
    bool DoWriteValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                      const std::string& data, int valueType) override;

    std::vector<std::filesystem::path> mFolders; ///< in the order in which they are tried
};

} // namespace qbrpt
