// The rows of one query, kept compactly and shared by all who walk them.
#pragma once

#include "base/rows.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt::database {

struct RowStoreOptions {
    /// Bytes of rows that may lie in memory. Beyond them all rows go to a file and memory holds one
    /// block and the index, so that a million rows need hardly more of it than a hundred thousand.
    std::size_t memoryLimit = std::size_t{8} << 20U;
    /// Bytes of rows that are written and read back together.
    std::size_t blockSize = std::size_t{64} << 10U;
    /// Where the file lies; see SpillFile.
    std::string folder;
};

/// Takes rows one by one and makes a RowSource of them.
class RowStoreBuilder {
public:
    explicit RowStoreBuilder(std::vector<ColumnInfo> columns, RowStoreOptions options = {});
    ~RowStoreBuilder();
    RowStoreBuilder(const RowStoreBuilder&) = delete;
    RowStoreBuilder& operator=(const RowStoreBuilder&) = delete;

    /// Adds a row, which has one cell a column. Texts are copied.
    void Add(const RowView& row);
    [[nodiscard]] std::size_t RowCount() const;
    /// The finished rows; the builder is empty afterwards. A column of unknown kind gets the kind of its
    /// values where all that are not null have one.
    [[nodiscard]] std::shared_ptr<const RowSource> Finish();

private:
    struct Blocks;
    class Store;
    class Cursor;

    void CloseBlock();

    RowStoreOptions mOptions;
    std::vector<ColumnInfo> mColumns;
    std::vector<unsigned> mKindsSeen; ///< a bit a kind, for columns of unknown kind
    std::shared_ptr<Blocks> mBlocks;
    std::string mOpen;    ///< the block being filled
    std::string mScratch; ///< working room of the encoder
};

} // namespace qbrpt::database
