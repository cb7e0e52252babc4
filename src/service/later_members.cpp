// Published members whose work is still to come: each says so, in one way.
#include "base/failure.h"
#include "service/VantlowCls.h"
#include "support/error_trap.h"

#include <string>

namespace qbrpt {

namespace {

void NotThereYet(const char* member) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([&] {
        throw Failure(FailureNumber::NotThereYet,
                      std::string(member) + " is not there yet in this version of qbrpt.");
    });
}

} // namespace

void VantlowCls::PrintMemberUsage(std::int32_t, std::int32_t, std::int16_t) {
    NotThereYet("PrintMemberUsage");
}

void VantlowCls::PrintPPUsage(std::int32_t, std::int32_t, std::int16_t) {
    NotThereYet("PrintPPUsage");
}

void VantlowCls::PrintPCUsage(double, double, std::int32_t, std::int16_t) {
    NotThereYet("PrintPCUsage");
}

void VantlowCls::PrintInternetUsage(std::int32_t, std::int32_t, std::int16_t, std::int16_t) {
    NotThereYet("PrintInternetUsage");
}

void VantlowCls::PrintMembersIncom(std::int32_t, std::int32_t, std::int16_t) {
    NotThereYet("PrintMembersIncom");
}

void VantlowCls::PrintUsage(std::int32_t, std::int32_t, std::int32_t, std::int16_t, std::int16_t) {
    NotThereYet("PrintUsage");
}

void VantlowCls::PrintOtherIncome(std::int32_t, std::int32_t, std::int16_t) {
    NotThereYet("PrintOtherIncome");
}

void VantlowCls::PrintServicesIncome(std::int32_t, std::int32_t, std::int16_t) {
    NotThereYet("PrintServicesIncome");
}

void VantlowCls::PrintMembersInfo(const std::string&) {
    NotThereYet("PrintMembersInfo");
}

void VantlowCls::PrintUsersIncome(std::int32_t, std::int32_t) {
    NotThereYet("PrintUsersIncome");
}

void VantlowCls::PrintPPCards(const std::string&) {
    NotThereYet("PrintPPCards");
}

void VantlowCls::PrintPPInfo(const std::string&, const std::string&) {
    NotThereYet("PrintPPInfo");
}

void VantlowCls::PrintAudit() {
    NotThereYet("PrintAudit");
}

void VantlowCls::PrintPrintLog(std::int32_t, std::int32_t) {
    NotThereYet("PrintPrintLog");
}

void VantlowCls::EditAccount() {
    if (mDb) NotThereYet("EditAccount");
}

} // namespace qbrpt
