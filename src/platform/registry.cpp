#include "platform/registry.h"

namespace qbrpt {

bool RegistryStore::ReadValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                              std::vector<std::uint8_t>& data, int valueType) {
    Announce("RegistryStore", "ReadValue", {std::int64_t{root}, subKey, valueName, std::int64_t{valueType}});
    return DoReadValue(root, subKey, valueName, data, valueType);
}

bool RegistryStore::WriteValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                               const std::string& data, int valueType) {
    Announce("RegistryStore", "WriteValue", {std::int64_t{root}, subKey, valueName, std::int64_t{valueType}});
    return DoWriteValue(root, subKey, valueName, data, valueType);
}

} // namespace qbrpt
