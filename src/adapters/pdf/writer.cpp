#include "adapters/pdf/writer.h"

#include "adapters/pdf/font_objects.h"
#include "adapters/pdf/numbers.h"
#include "adapters/pdf/page_content.h"
#include "adapters/pdf/page_tree.h"
#include "base/calendar.h"
#include "base/failure.h"

#include <array>
#include <cstdio>

namespace qbrpt::pdf {

namespace {

std::string DateString(double dayNumber) {
    const Moment moment = MomentOf(dayNumber);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "(D:%04d%02d%02d%02d%02d%02d)", moment.year, moment.month,
                  moment.day, moment.hour, moment.minute, moment.second);
    return text.data();
}

} // namespace

class Writer::Impl {
public:
    Impl(ByteSink& sink, const text::FontBook& fonts, DocumentInfo info)
        : mFonts(fonts), mInfo(std::move(info)), mFile(sink), mTree(mFile), mImages(mFile),
          mWords(fonts, mCodes), mContent(mWords, mImages) {}

    void AddPage(const report::Page& page) { mTree.Add(page, mFile.AddStream("", mContent.Build(page))); }

    void Finish() {
        if (mTree.PageCount() == 0)
            throw Failure(FailureNumber::Output, "the PDF cannot be written: the report has no page");
        const ObjectId pages = mTree.Finish(WriteResources());
        const bool titled = !mInfo.title.empty();
        const ObjectId catalog = mFile.AddObject("<</Type/Catalog/Pages " + Reference(pages) +
                                                 "/Lang(ar)/ViewerPreferences<</Direction/R2L" +
                                                 (titled ? "/DisplayDocTitle true" : "") + ">>>>");
        std::string info = "<</Producer(qbrpt)";
        if (titled) info += "/Title" + TextString(mInfo.title);
        if (mInfo.createdAt != 0) info += "/CreationDate" + DateString(mInfo.createdAt);
        mFile.Finish(catalog, mFile.AddObject(info + ">>"));
    }

    [[nodiscard]] std::size_t PageCount() const { return mTree.PageCount(); }

private:
    ObjectId WriteResources() {
        std::string fonts;
        for (std::size_t i = 0; i < mCodes.Count(); ++i) {
            const auto id = static_cast<FontId>(i);
            const CodeTable& table = mCodes.Table(id);
            const ObjectId object = WriteFont(mFile, mFonts.Face(table.Face()), table, id);
            fonts += "/F" + std::to_string(i) + " " + Reference(object);
        }
        std::string images;
        for (std::size_t i = 0; i < mImages.Objects().size(); ++i)
            images += "/I" + std::to_string(i) + " " + Reference(mImages.Objects()[i]);
        return mFile.AddObject("<</Font<<" + fonts + ">>/XObject<<" + images + ">>>>");
    }

    const text::FontBook& mFonts;
    DocumentInfo mInfo;
    ObjectFile mFile;
    PageTree mTree;
    FontCodes mCodes;
    ImageObjects mImages;
    WordCodes mWords;
    PageContent mContent;
};

Writer::Writer(ByteSink& sink, const text::FontBook& fonts, DocumentInfo info)
    : mImpl(std::make_unique<Impl>(sink, fonts, std::move(info))) {}

Writer::~Writer() = default;

void Writer::AddPage(const report::Page& page) {
    mImpl->AddPage(page);
}

void Writer::Finish() {
    mImpl->Finish();
}

std::size_t Writer::PageCount() const {
    return mImpl->PageCount();
}

} // namespace qbrpt::pdf
