#include "adapters/printing/cups/helper_thread.h"

#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace qbrpt {

bool RunWithin(std::chrono::milliseconds limit, std::function<void()> work) {
    const auto done = std::make_shared<std::promise<void>>();
    std::future<void> ended = done->get_future();
    std::thread([done, todo = std::move(work)] {
        todo();
        done->set_value_at_thread_exit();
    }).detach();
    return ended.wait_for(limit) == std::future_status::ready;
}

} // namespace qbrpt
