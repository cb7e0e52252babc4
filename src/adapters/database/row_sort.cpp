#include "adapters/database/row_sort.h"

#include "adapters/database/row_codec.h"
#include "base/latin.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <queue>
#include <string>
#include <utility>

namespace qbrpt::database {

namespace {

constexpr std::size_t RowsAProgress = 4096;
/// Rows are sorted in parts as large as this many times what a row store keeps in memory.
constexpr std::size_t PartsOfMemory = 2;

// The bits of a number, so that larger numbers have larger bits.
std::uint64_t Ascending(double number) {
    const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    constexpr std::uint64_t sign = std::uint64_t{1} << 63U;
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

void AppendValue(const CellView& cell, std::string& key) {
    switch (cell.kind) {
    case ValueKind::Null:
        key.push_back('\0');
        break;
    case ValueKind::Text:
        key.push_back('\2');
        for (const char letter : cell.text)
            key.push_back(SmallLatin(letter));
        key.push_back('\0');
        break;
    default: {
        key.push_back('\1');
        const bool whole = cell.kind == ValueKind::Whole || cell.kind == ValueKind::Boolean;
        const std::uint64_t bits = Ascending(whole ? static_cast<double>(cell.whole) : cell.number);
        for (unsigned shift = 64; shift > 0; shift -= 8)
            key.push_back(static_cast<char>(bits >> (shift - 8)));
    }
    }
}

// A text that compares byte by byte as the row does.
void WriteKey(const RowView& row, std::span<const RowOrder> order, std::string& key) {
    key.clear();
    for (const RowOrder& one : order) {
        const std::size_t start = key.size();
        AppendValue(one.column < row.size() ? row[one.column] : CellView{}, key);
        if (!one.descending) continue;
        for (std::size_t i = start; i < key.size(); ++i)
            key[i] = static_cast<char>(~static_cast<unsigned char>(key[i]));
    }
}

bool Before(const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
    });
}

class Sorter {
public:
    Sorter(const RowSource& source, std::span<const RowOrder> order, const RowStoreOptions& options,
           const std::function<void(std::size_t)>& progress)
        : mSource(source), mOrder(order), mOptions(options), mProgress(progress) {}

    std::shared_ptr<const RowSource> Run() {
        const std::unique_ptr<RowCursor> cursor = mSource.Open();
        RowView row;
        for (std::size_t done = 0; cursor->Next(row); ++done) {
            Tell(done);
            Take(row);
            if (mBytes.size() + mKeyBytes > PartsOfMemory * mOptions.memoryLimit) ClosePart();
        }
        if (mParts.empty()) return Sorted(mOptions);
        ClosePart();
        return Merged();
    }

private:
    struct Entry {
        std::string key;
        std::size_t offset = 0;
    };
    struct Walk {
        std::unique_ptr<RowCursor> cursor;
        RowView row;
        std::string key;
    };

    void Tell(std::size_t done) const {
        if (mProgress && done % RowsAProgress == 0) mProgress(done);
    }

    void Take(const RowView& row) {
        Entry entry{{}, mBytes.size()};
        WriteKey(row, mOrder, entry.key);
        mKeyBytes += entry.key.size() + sizeof(Entry);
        mEntries.push_back(std::move(entry));
        AppendRow(row, mBytes, mScratch);
    }

    std::shared_ptr<const RowSource> Sorted(const RowStoreOptions& options) {
        std::stable_sort(mEntries.begin(), mEntries.end(),
                         [](const Entry& a, const Entry& b) { return Before(a.key, b.key); });
        RowStoreBuilder builder(mSource.Columns(), options);
        RowView row(mSource.Columns().size());
        for (const Entry& entry : mEntries) {
            ReadRow(mBytes.data() + entry.offset, row);
            builder.Add(row);
        }
        mEntries.clear();
        mBytes.clear();
        mKeyBytes = 0;
        return builder.Finish();
    }

    void ClosePart() {
        if (mEntries.empty()) return;
        RowStoreOptions inFile = mOptions;
        inFile.memoryLimit = 0;
        mParts.push_back(Sorted(inFile));
    }

    bool Step(Walk& walk) {
        if (!walk.cursor->Next(walk.row)) return false;
        WriteKey(walk.row, mOrder, walk.key);
        return true;
    }

    std::shared_ptr<const RowSource> Merged() {
        std::vector<Walk> walks(mParts.size());
        // Of equal rows the one of the earlier part comes first.
        const auto behind = [&walks](std::size_t a, std::size_t b) {
            if (Before(walks[b].key, walks[a].key)) return true;
            return a > b && !Before(walks[a].key, walks[b].key);
        };
        std::priority_queue<std::size_t, std::vector<std::size_t>, decltype(behind)> next(behind);
        for (std::size_t part = 0; part < mParts.size(); ++part) {
            walks[part].cursor = mParts[part]->Open();
            if (Step(walks[part])) next.push(part);
        }
        RowStoreBuilder builder(mSource.Columns(), mOptions);
        for (std::size_t done = 0; !next.empty(); ++done) {
            Tell(done);
            const std::size_t part = next.top();
            next.pop();
            builder.Add(walks[part].row);
            if (Step(walks[part])) next.push(part);
        }
        return builder.Finish();
    }

    const RowSource& mSource;
    std::span<const RowOrder> mOrder;
    RowStoreOptions mOptions;
    const std::function<void(std::size_t)>& mProgress;
    std::vector<Entry> mEntries;
    std::string mBytes;
    std::string mScratch;
    std::size_t mKeyBytes = 0;
    std::vector<std::shared_ptr<const RowSource>> mParts;
};

bool StandsInOrder(const RowSource& source, std::span<const RowOrder> order) {
    const std::unique_ptr<RowCursor> cursor = source.Open();
    RowView row;
    std::string last;
    std::string key;
    while (cursor->Next(row)) {
        WriteKey(row, order, key);
        if (Before(key, last)) return false;
        std::swap(key, last);
    }
    return true;
}

} // namespace

std::shared_ptr<const RowSource> SortRows(std::shared_ptr<const RowSource> source,
                                          std::span<const RowOrder> order, const RowStoreOptions& options,
                                          const std::function<void(std::size_t)>& progress) {
    if (order.empty() || StandsInOrder(*source, order)) return source;
    return Sorter(*source, order, options, progress).Run();
}

} // namespace qbrpt::database
