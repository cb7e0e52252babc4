#include "adapters/printing/cups/connection.h"

namespace qbrpt::cups {

namespace {

// Called when an answer is overdue: no, it is not waited for any longer.
int GiveUp(http_t*, void*) {
    return 0;
}

} // namespace

Destinations::Destinations(const std::string& name,
                           const std::vector<std::pair<std::string, std::string>>& options) {
    mCount = ::cupsAddDest(name.c_str(), nullptr, 0, &mFirst);
    if (mCount == 0) return;
    for (const auto& [option, value] : options)
        mFirst->num_options =
            ::cupsAddOption(option.c_str(), value.c_str(), mFirst->num_options, &mFirst->options);
}

Connection Connect(std::chrono::milliseconds patience) {
    Connection connection(::httpConnect2(::cupsServer(), ::ippPort(), nullptr, AF_UNSPEC, ::cupsEncryption(),
                                         1, static_cast<int>(patience.count()), nullptr));
    if (connection)
        ::httpSetTimeout(connection.get(), std::chrono::duration<double>(patience).count(), GiveUp, nullptr);
    return connection;
}

std::string LastWords() {
    const char* words = ::cupsLastErrorString();
    return words == nullptr ? std::string{} : std::string{words};
}

} // namespace qbrpt::cups
