// qbrpt printers: what there is to print on.
#pragma once

namespace CLI {
class App;
}

namespace qbrpt::cli {

struct PrintersCall {
    bool json = false;
};

/// Adds `printers`; what is typed goes into `call`.
void AddPrinters(CLI::App& application, PrintersCall& call);

/// Lists the printers, and returns the exit status.
[[nodiscard]] int RunPrinters(const PrintersCall& call);

} // namespace qbrpt::cli
