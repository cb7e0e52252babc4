#include "service/VantlowCls.h"

#include "accounts/frmAccount.h"
#include "platform/DAO.h"
#include "platform/platform.h"
#include "service/host_session.h"
#include "support/error_trap.h"

namespace qbrpt {

VantlowCls::VantlowCls() = default;
VantlowCls::~VantlowCls() = default;

bool VantlowCls::IsDbValid() const {
    return mDb != nullptr;
}

std::any VantlowCls::SetDatabase(const std::shared_ptr<DAO::Database>& db) {
    mDb = db;
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([] { FindOwnerWindow(); });
    return {};
}

std::int16_t VantlowCls::SetDbInfo(const std::string& szFileName, const std::string& szConnect) {
    std::int16_t result = 0;
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([&] {
        mDb = Platform::Current().engine->OpenDatabase(szFileName, false, false, szConnect).Shared();
    });
    trap.Step([&] { result = 1; });
    trap.Step([] { FindOwnerWindow(); });
    return result;
}

std::int16_t VantlowCls::CanPrint() const {
    std::int16_t count = 0;
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([&] { count = PrinterCount(); });
    return count;
}

void VantlowCls::SetMainTitle(const std::string& Name1, const std::string& addr1, const std::string& addr2) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([&] {
        mName1 = Name1;
        mAddr1 = addr1;
        mAddr2 = addr2;
    });
}

void VantlowCls::EditAccount() {
    if (mDb) frmAccount::Instance().EditAccount(mDb);
}

// Bills are printed by the host; the member stays for hosts that call it.
void VantlowCls::PrintBill(std::int32_t) {}

} // namespace qbrpt
