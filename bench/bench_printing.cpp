// Prints the income sheet through a print service of its own, in a process of its own, and writes that
// process's time and peak memory as lines "name value".
//
//   bench_printing FILE    a database of bench_reports
#include "tools/print_service.h"

#include <exception>
#include <iostream>

int main(int count, char** words) {
    using namespace qbrpt;
    if (count != 2) {
        std::cerr << "usage: bench_printing FILE\n";
        return 2;
    }
    try {
        test::PrintService service;
        service.AddFolderQueue("bench");
        service.Tell({"lpadmin", "-d", "bench"});
        service.Tell({"cupsdisable", "bench"}); // the job waits: its printer's own work is not measured
        const test::ProgramResult printed = test::RunProgram({BENCH_REPORTS, "whole", words[1]});
        std::cout << printed.out;
        if (!printed.err.empty() || service.JobsUnderWay() != 1)
            throw std::runtime_error("not queued: " + printed.err);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
