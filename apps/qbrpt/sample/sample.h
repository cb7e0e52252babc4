// Makes a café's database to try things with.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace qbrpt::sample {

struct SampleOptions {
    std::string file;
    int days = 60;
    int sessionsPerDay = 120;
    std::uint64_t seed = 1;
    bool overwrite = false; ///< takes the place also of a database that is no sample
    /// Told the share that is done, 0 to 1, some hundred times.
    std::function<void(double)> progress = nullptr;
};

/// Writes a database of `days` working days. The same options give the same rows. The file appears whole or
/// not at all: it is made beside its place and put there at the end, over an earlier sample of that name.
/// Raises InvalidArgument for options that make no sense, FileNotFound for a folder that is not there,
/// FileAccess, NotADatabase where the name belongs to something else (FileAccess: to
/// another database, unless told to overwrite), Locked where the earlier database is in
/// use, and Cancelled when the cancel flag goes up.
void MakeSampleDatabase(const SampleOptions& options);

} // namespace qbrpt::sample
