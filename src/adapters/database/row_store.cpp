#include "adapters/database/row_store.h"

#include "adapters/database/row_codec.h"
#include "adapters/files/spill_file.h"
#include "base/failure.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

namespace qbrpt::database {

/// Where the rows lie: in `memory`, one string a block, until there are too many; then in `file`.
struct RowStoreBuilder::Blocks {
    struct Place {
        std::size_t firstRow = 0;
        std::uint64_t offset = 0; ///< in the file
        std::size_t size = 0;
    };

    std::vector<Place> index;
    std::vector<std::string> memory;
    std::unique_ptr<SpillFile> file;
    std::size_t bytes = 0;
    std::size_t rows = 0;

    void Spill(const std::string& folder) {
        file = std::make_unique<SpillFile>(folder, "The file for the rows of a large query");
        for (std::size_t i = 0; i < memory.size(); ++i) {
            index[i].offset = file->Append(memory[i]);
            std::string().swap(memory[i]);
        }
        memory = {};
    }
};

class RowStoreBuilder::Cursor final : public RowCursor {
public:
    Cursor(std::shared_ptr<const Blocks> blocks, std::size_t columns)
        : mBlocks(std::move(blocks)), mColumns(columns) {}

    void Seek(std::size_t index) override {
        index = std::min(index, mBlocks->rows);
        const bool ahead = mPosition != nullptr && index >= mRow && index <= mBlockEnd;
        if (!ahead) {
            mPosition = nullptr;
            mRow = index;
            mBlockEnd = index;
            if (index == mBlocks->rows) return;
            Load(BlockOf(index));
        }
        for (; mRow < index; ++mRow)
            mPosition = SkipRow(mPosition);
    }

    bool Next(RowView& row) override {
        if (mRow >= mBlocks->rows) return false;
        if (mRow >= mBlockEnd || mPosition == nullptr) Load(BlockOf(mRow));
        if (row.size() != mColumns) row.resize(mColumns);
        mPosition = ReadRow(mPosition, row);
        ++mRow;
        return true;
    }

private:
    [[nodiscard]] std::size_t BlockOf(std::size_t row) const {
        const auto& index = mBlocks->index;
        const auto behind = std::upper_bound(
            index.begin(), index.end(), row,
            [](std::size_t value, const Blocks::Place& place) { return value < place.firstRow; });
        return static_cast<std::size_t>(behind - index.begin()) - 1;
    }

    // Stands before the first row of a block afterwards.
    void Load(std::size_t block) {
        const Blocks::Place& place = mBlocks->index[block];
        mRow = place.firstRow;
        mBlockEnd = block + 1 < mBlocks->index.size() ? mBlocks->index[block + 1].firstRow : mBlocks->rows;
        if (mBlocks->file == nullptr) {
            mPosition = mBlocks->memory[block].data();
            return;
        }
        mPosition = nullptr;
        if (mBuffer.size() < place.size) mBuffer.resize(place.size);
        mBlocks->file->Read(place.offset, mBuffer.data(), place.size);
        mPosition = mBuffer.data();
    }

    std::shared_ptr<const Blocks> mBlocks;
    std::size_t mColumns;
    std::string mBuffer;
    const char* mPosition = nullptr;
    std::size_t mRow = 0;
    std::size_t mBlockEnd = 0;
};

class RowStoreBuilder::Store final : public RowSource {
public:
    Store(std::vector<ColumnInfo> columns, std::shared_ptr<const Blocks> blocks)
        : mColumns(std::move(columns)), mBlocks(std::move(blocks)) {}

    [[nodiscard]] std::size_t RowCount() const override { return mBlocks->rows; }
    [[nodiscard]] const std::vector<ColumnInfo>& Columns() const override { return mColumns; }
    [[nodiscard]] std::unique_ptr<RowCursor> Open() const override {
        return std::make_unique<Cursor>(mBlocks, mColumns.size());
    }

private:
    std::vector<ColumnInfo> mColumns;
    std::shared_ptr<const Blocks> mBlocks;
};

RowStoreBuilder::RowStoreBuilder(std::vector<ColumnInfo> columns, RowStoreOptions options)
    : mOptions(std::move(options)), mColumns(std::move(columns)), mKindsSeen(mColumns.size()),
      mBlocks(std::make_shared<Blocks>()) {}

RowStoreBuilder::~RowStoreBuilder() = default;

void RowStoreBuilder::Add(const RowView& row) {
    if (row.size() != mColumns.size())
        throw Failure(FailureNumber::InvalidArgument, "A row has another number of cells than its columns.");
    for (std::size_t i = 0; i < row.size(); ++i)
        mKindsSeen[i] |= 1U << static_cast<unsigned>(row[i].kind);
    if (mOpen.empty()) mBlocks->index.push_back({mBlocks->rows, 0, 0});
    AppendRow(row, mOpen, mScratch);
    ++mBlocks->rows;
    if (mOpen.size() >= mOptions.blockSize) CloseBlock();
}

std::size_t RowStoreBuilder::RowCount() const {
    return mBlocks->rows;
}

void RowStoreBuilder::CloseBlock() {
    if (mOpen.empty()) return;
    Blocks& blocks = *mBlocks;
    blocks.index.back().size = mOpen.size();
    blocks.bytes += mOpen.size();
    if (blocks.file != nullptr) {
        blocks.index.back().offset = blocks.file->Append(mOpen);
    } else {
        blocks.memory.emplace_back(mOpen);
        if (blocks.bytes > mOptions.memoryLimit) blocks.Spill(mOptions.folder);
    }
    mOpen.clear();
}

std::shared_ptr<const RowSource> RowStoreBuilder::Finish() {
    CloseBlock();
    constexpr unsigned nullBit = 1U << static_cast<unsigned>(ValueKind::Null);
    for (std::size_t i = 0; i < mColumns.size(); ++i) {
        const unsigned seen = mKindsSeen[i] & ~nullBit;
        if (mColumns[i].kind == ValueKind::Null && std::has_single_bit(seen))
            mColumns[i].kind = static_cast<ValueKind>(std::countr_zero(seen));
    }
    auto store = std::make_shared<Store>(mColumns, std::exchange(mBlocks, std::make_shared<Blocks>()));
    mKindsSeen.assign(mColumns.size(), 0);
    return store;
}

} // namespace qbrpt::database
