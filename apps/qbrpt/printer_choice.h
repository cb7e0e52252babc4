// The printer that was asked for by name, with its paper and tray, and the pages that it is to print.
#pragma once

#include "adapters/output/report_output.h"
#include "adapters/printing/installed_printers.h"
#include "print_options.h"

#include <memory>

namespace qbrpt::cli {

/// Makes the choice on the current printer of the process. Raises WrongUse, with what there is, for a name
/// that nothing bears.
void ChoosePrinter(const PrintChoice& choice, InstalledPrinters& printers);

/// Prints the chosen pages and copies of whatever is printed. Pages that the report does not have are a
/// Failure.
class ChosenPages : public Delivery {
public:
    ChosenPages(const PrintChoice& choice, std::shared_ptr<Delivery> delivery)
        : mChoice(choice), mDelivery(std::move(delivery)) {}

    void Print(ReportOutput& report, const PrintJob& job) override;

private:
    PrintChoice mChoice;
    std::shared_ptr<Delivery> mDelivery;
};

} // namespace qbrpt::cli
