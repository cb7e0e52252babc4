// The one error of the house: a number for programs, a description for people.
#pragma once

#include <stdexcept>
#include <string>

namespace qbrpt {

/// The kinds of failure that the house itself raises. Adapters add the engine's own words to the
/// description; the number stays one of these, so that a host's support can tell causes apart.
enum class FailureNumber : int {
    InvalidArgument = 5,    ///< a value that the called operation cannot take
    Overflow = 6,           ///< a number that does not fit its 16- or 32-bit place
    OutOfRange = 9,         ///< a place that a row of values does not have
    DivisionByZero = 11,    ///< a ratio to a size of nothing
    TypeMismatch = 13,      ///< text where a number is needed, and the like
    FileNotFound = 53,      ///< a named file does not exist
    FileAccess = 75,        ///< a file or folder that cannot be read or written
    ObjectNotSet = 91,      ///< an operation on a missing object: no database, no record set
    NotThereYet = 445,      ///< something published whose work is still to come
    Device = 482,           ///< printer, spooler or display refused
    SyntaxError = 3075,     ///< a statement that cannot be parsed
    UnknownName = 3061,     ///< a statement that names something the database does not have
    NoCurrentRow = 3021,    ///< a field was asked for with no row under the cursor
    NotInCollection = 3265, ///< an index or a name that a collection does not hold
    WriteRefused = 3027,    ///< a report query that is more than one statement, or writes
    NotADatabase = 3343,    ///< a file that is no database of a kind we read
    Locked = 3260,          ///< somebody else holds the database
    DatabaseEngine = 3146,  ///< any other word of the database engine
    BadColumn = 3421,       ///< a column that holds another kind of value than it declares
    Layout = 20500,         ///< a report layout that cannot be read or used
    Report = 20501,         ///< the report engine cannot do what it was asked
    Output = 20502,         ///< a PDF, CSV or other result could not be written
    Cancelled = 20545,      ///< the user asked to stop
    NotUnique = 35602       ///< a key that a list holds already
};

/// Thrown by every port and engine. Ends at the nearest error trap; never reaches a host.
class Failure : public std::runtime_error {
public:
    Failure(FailureNumber number, const std::string& description)
        : std::runtime_error(description), mNumber(number) {}

    [[nodiscard]] FailureNumber Number() const { return mNumber; }
    /// What failed, where, and what to do, in words; UTF-8, shown as it stands in message boxes.
    [[nodiscard]] std::string Description() const { return what(); }

private:
    FailureNumber mNumber;
};

} // namespace qbrpt
