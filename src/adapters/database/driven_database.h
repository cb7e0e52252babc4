// The database of the system over any engine's driver.
#pragma once

#include "adapters/database/driver.h"
#include "adapters/database/row_store.h"
#include "platform/DAO.h"

#include <memory>

namespace qbrpt::database {

/// A database over `connection`. Its saved queries share the connection; its record sets do without.
[[nodiscard]] Ref<DAO::Database> MakeDatabase(std::shared_ptr<Connection> connection,
                                              const RowStoreOptions& options = {});

} // namespace qbrpt::database
