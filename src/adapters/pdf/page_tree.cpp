#include "adapters/pdf/page_tree.h"

#include "adapters/pdf/numbers.h"

namespace qbrpt::pdf {

namespace {

constexpr std::size_t PagesPerNode = 64;

std::string MediaBox(const report::Page& page) {
    std::string box = "/MediaBox[0 0 ";
    AppendScaled(box, std::int64_t{page.width} * 5, 2); // twips in hundredths of a point
    box.push_back(' ');
    AppendScaled(box, std::int64_t{page.height} * 5, 2);
    return box + "]";
}

} // namespace

PageTree::PageTree(ObjectFile& file) : mFile(file), mRoot(file.Reserve()) {}

void PageTree::Add(const report::Page& page, ObjectId content) {
    if (mNode == 0) mNode = mFile.Reserve();
    const std::string box = MediaBox(page);
    if (mCount == 0) mMediaBox = box;
    const ObjectId id = mFile.AddObject("<</Type/Page/Parent " + Reference(mNode) + "/Contents " +
                                        Reference(content) + (box == mMediaBox ? "" : box) + ">>");
    mKids += Reference(id) + " ";
    ++mCount;
    if (++mKidCount == PagesPerNode) CloseNode();
}

void PageTree::CloseNode() {
    if (mNode == 0) return;
    mFile.WriteObject(mNode, "<</Type/Pages/Parent " + Reference(mRoot) + "/Count " +
                                 std::to_string(mKidCount) + "/Kids[" + mKids + "]>>");
    mNodes += Reference(mNode) + " ";
    mNode = 0;
    mKids.clear();
    mKidCount = 0;
}

ObjectId PageTree::Finish(ObjectId resources) {
    CloseNode();
    mFile.WriteObject(mRoot, "<</Type/Pages/Count " + std::to_string(mCount) + "/Kids[" + mNodes + "]" +
                                 mMediaBox + "/Resources " + Reference(resources) + ">>");
    return mRoot;
}

} // namespace qbrpt::pdf
