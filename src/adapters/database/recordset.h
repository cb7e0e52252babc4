// The rows of a finished query under a cursor.
#pragma once

#include "base/ref.h"
#include "base/rows.h"
#include "platform/DAO.h"

#include <memory>

namespace qbrpt::database {

/// A record set over `rows`, standing on the first of them. It needs nothing of the database any more.
[[nodiscard]] Ref<DAO::Recordset> MakeRecordset(std::shared_ptr<const RowSource> rows);

} // namespace qbrpt::database
