// qbrpt at the command line: one call of the component, its report as a file, on paper or on screen.
#include "command_host.h"
#include "interrupt.h"

#include <exception>
#include <iostream>
#include <type_traits>

namespace {

using namespace qbrpt::cli;

int Answer(const Request& request) {
    return std::visit(
        [](const auto& asked) -> int {
            using Asked = std::decay_t<decltype(asked)>;
            if constexpr (std::is_same_v<Asked, MemberCall>) {
                return RunMember(asked);
            } else if constexpr (std::is_same_v<Asked, Information>) {
                std::cout << asked.text;
                return ReportMade;
            } else if constexpr (std::is_same_v<Asked, AccountsCall>) {
                return RunAccounts(asked);
            } else if constexpr (std::is_same_v<Asked, LayoutsCall>) {
                return RunLayouts(asked);
            } else if constexpr (std::is_same_v<Asked, PrintersCall>) {
                return RunPrinters(asked);
            } else {
                return RunSample(asked);
            }
        },
        request);
}

} // namespace

int main(int count, char** words) {
    try {
        WatchInterrupts();
        const int status = Answer(ReadCommandLine(count, words));
        if (std::cout.flush()) return status;
        std::cerr << "qbrpt: the answer could not be written to standard output.\n";
        return status == ReportMade ? ErrorShown : status;
    } catch (const WrongUse& wrong) {
        std::cerr << "qbrpt: " << wrong.what() << '\n';
        return WrongUseGiven;
    } catch (const std::exception& error) {
        if (InterruptSignal() != 0) return Interrupted + InterruptSignal();
        std::cerr << "qbrpt: " << error.what() << '\n';
        return ErrorShown;
    }
}
