// The store of the few values that are kept between runs.
#pragma once

#include "platform/port.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qbrpt {

/// Roots of the store.
constexpr std::uint32_t HKEY_USERS = 0x80000003; ///< common to all who use the machine

/// The type code of binary values.
constexpr int RegistryBinary = 3;

class RegistryStore : public Port {
public:
    /// True when the value was there and was read into `data`; else `data` stays as it is.
    [[nodiscard]] bool ReadValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                                 std::vector<std::uint8_t>& data, int valueType);
    /// Writes a value; the bytes of `data` are the value. True when it was written.
    bool WriteValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                    const std::string& data, int valueType);

private:
    virtual bool DoReadValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                             std::vector<std::uint8_t>& data, int valueType) = 0;
    virtual bool DoWriteValue(std::uint32_t root, const std::string& subKey, const std::string& valueName,
                              const std::string& data, int valueType) = 0;
};

} // namespace qbrpt
