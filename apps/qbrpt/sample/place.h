// The name that a new database file is to have.
#pragma once

#include <string>

namespace qbrpt::sample {

/// Holds a temporary file beside the place, and removes it unless it takes the place.
class Place {
public:
    /// Raises a Failure at once where the place cannot be taken later.
    Place(const std::string& file, bool overwrite);
    ~Place();
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    [[nodiscard]] const std::string& TemporaryName() const { return mTemporary; }
    /// Puts the temporary file there, in one step.
    void Take();

private:
    std::string mFile;
    std::string mTemporary;
};

} // namespace qbrpt::sample
