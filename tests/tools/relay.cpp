#include "tools/relay.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace qbrpt::test {

namespace {

sockaddr_un AddressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) throw std::runtime_error("too long a path: " + path);
    std::copy(path.begin(), path.end(), static_cast<char*>(address.sun_path));
    return address;
}

int Socket() {
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

bool SendAll(int handle, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(handle, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

} // namespace

Relay::Relay(std::string server, const std::string& own, std::string word)
    : mServer(std::move(server)), mWord(std::move(word)), mListening(Socket()) {
    const sockaddr_un address = AddressOf(own);
    constexpr int waiting = 16;
    if (::bind(mListening, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(mListening, waiting) != 0)
        throw std::runtime_error("no socket at " + own);
    mThread = std::thread([this] { Run(); });
}

Relay::~Relay() {
    mEnd = true;
    mThread.join();
    for (const Pair& pair : mPairs) {
        ::close(pair.client);
        ::close(pair.server);
    }
    ::close(mListening);
}

void Relay::Run() {
    constexpr int moment = 20; // milliseconds
    while (!mEnd) {
        std::vector<pollfd> waiting = {{mListening, POLLIN, 0}};
        for (const Pair& pair : mPairs) {
            waiting.push_back({pair.client, POLLIN, 0});
            waiting.push_back({pair.server, POLLIN, 0});
        }
        if (::poll(waiting.data(), waiting.size(), moment) <= 0) continue;
        for (std::size_t i = mPairs.size(); i-- > 0;) {
            const bool client = waiting[1 + 2 * i].revents != 0;
            const bool server = waiting[2 + 2 * i].revents != 0;
            if ((!client || Move(mPairs[i], true)) && (!server || Move(mPairs[i], false))) continue;
            ::close(mPairs[i].client);
            ::close(mPairs[i].server);
            mPairs.erase(mPairs.begin() + static_cast<std::ptrdiff_t>(i));
        }
        if (waiting[0].revents != 0) Accept();
    }
}

void Relay::Accept() {
    Pair pair;
    pair.client = ::accept(mListening, nullptr, nullptr);
    pair.server = Socket();
    pair.stuck = Silent();
    const sockaddr_un address = AddressOf(mServer);
    ::connect(pair.server, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
    mPairs.push_back(pair);
}

bool Relay::Move(Pair& pair, bool fromClient) {
    std::array<char, 16'384> bytes{};
    const ssize_t got = ::read(fromClient ? pair.client : pair.server, bytes.data(), bytes.size());
    if (got <= 0) return false;
    const std::string_view came(bytes.data(), static_cast<std::size_t>(got));
    if (fromClient && !mOpen && came.find(mWord) != std::string_view::npos) mSilent = true;
    pair.stuck |= Silent();
    return pair.stuck || SendAll(fromClient ? pair.server : pair.client, came);
}

} // namespace qbrpt::test
