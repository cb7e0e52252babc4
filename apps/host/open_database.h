// A database that the host opens by itself.
#pragma once

#include <qbrpt/VantlowCls.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace cafe {

/// What the host could not do; what() has the words for the user.
class Fault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The database of a file, for SetDatabase: its connection is closed as soon as the component has let it go.
/// Nothing for an empty name. Raises Fault where the file cannot be opened.
[[nodiscard]] std::shared_ptr<qbrpt::DAO::Database> OpenDatabase(const std::string& file);

} // namespace cafe
