// The small café behind the real database adapter, as a host hands it over.
#pragma once

#include "fakes/fake_platform.h"
#include "platform/DAO.h"

#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace qbrpt::dialect {

class RealCafe {
public:
    RealCafe();
    ~RealCafe();
    RealCafe(const RealCafe&) = delete;
    RealCafe& operator=(const RealCafe&) = delete;

    [[nodiscard]] DAO::Database& Database() { return *mDatabase; }
    /// All rows of a set, written as SmallDatabase writes them.
    [[nodiscard]] static std::vector<std::string> Rows(const Ref<DAO::Recordset>& set);

private:
    fakes::FakePlatform mPlatform;
    sqlite3* mHandle = nullptr;
    Ref<DAO::Database> mDatabase;
};

} // namespace qbrpt::dialect
