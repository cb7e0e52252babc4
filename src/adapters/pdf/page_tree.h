// The tree that holds the pages of a PDF file.
#pragma once

#include "adapters/pdf/object_file.h"
#include "report/page.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qbrpt::pdf {

/// Two levels deep: readers find a page of ten thousand without walking past all before it, and a page can
/// be written before the next one is known.
class PageTree {
public:
    explicit PageTree(ObjectFile& file);

    void Add(const report::Page& page, ObjectId content);
    /// Writes the nodes; gives the root.
    ObjectId Finish(ObjectId resources);

    [[nodiscard]] std::size_t PageCount() const { return mCount; }

private:
    void CloseNode();

    ObjectFile& mFile;
    ObjectId mRoot;
    ObjectId mNode = 0;
    std::string mKids;
    std::size_t mKidCount = 0;
    std::string mNodes;
    std::size_t mCount = 0;
    std::string mMediaBox; ///< of the first page; inherited by those that have the same
};

} // namespace qbrpt::pdf
