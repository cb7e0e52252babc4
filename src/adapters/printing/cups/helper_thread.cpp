#include "adapters/printing/cups/helper_thread.h"

#include <memory>
#include <thread>
#include <utility>

namespace qbrpt {

std::future<void> RunAside(std::function<void()> work) {
    const auto done = std::make_shared<std::promise<void>>();
    std::future<void> ended = done->get_future();
    std::thread([done, todo = std::move(work)] {
        todo();
        done->set_value_at_thread_exit();
    }).detach();
    return ended;
}

bool RunWithin(std::chrono::milliseconds limit, std::function<void()> work) {
    return RunAside(std::move(work)).wait_for(limit) == std::future_status::ready;
}

} // namespace qbrpt
