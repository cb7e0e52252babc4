#include "adapters/pdf/object_file.h"

#include "adapters/pdf/numbers.h"
#include "base/failure.h"
#include "base/utf8.h"

#include <limits>

namespace qbrpt::pdf {

namespace {

constexpr std::size_t FlushSize = 65536;
constexpr unsigned OffsetBytes = 5; // files up to a tebibyte

void AppendBigEndian(std::string& bytes, std::uint64_t value, unsigned count) {
    for (unsigned i = count; i-- > 0;)
        bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
}

// Sixteen bytes that tell this file from others, without a clock: the same content has the same ones.
std::string FileIdentifier(std::uint32_t sum, std::uint64_t size) {
    std::string bytes;
    AppendBigEndian(bytes, sum, 4);
    AppendBigEndian(bytes, size, 8);
    AppendBigEndian(bytes, Checksum(sum, bytes), 4);
    std::string text = "<";
    for (const char c : bytes)
        AppendHex(text, static_cast<unsigned char>(c), 2);
    return text + ">";
}

} // namespace

ObjectFile::ObjectFile(ByteSink& sink) : mSink(sink) {
    Put("%PDF-1.5\n%\xE2\xE3\xCF\xD3\n"); // the second line tells copying programs that this is no text
}

ObjectId ObjectFile::Reserve() {
    mOffsets.push_back(0);
    return static_cast<ObjectId>(mOffsets.size());
}

void ObjectFile::Put(std::string_view bytes) {
    mPending += bytes;
    mSize += bytes.size();
    if (mPending.size() >= FlushSize) Flush();
}

void ObjectFile::Flush() {
    mSum = Checksum(mSum, mPending);
    mSink.Write(mPending);
    mPending.clear();
}

void ObjectFile::Begin(ObjectId id) {
    mOffsets.at(id - 1) = mSize;
    std::string head;
    AppendInteger(head, id);
    head += " 0 obj\n";
    Put(head);
}

void ObjectFile::WriteObject(ObjectId id, std::string_view body) {
    Begin(id);
    Put(body);
    Put("\nendobj\n");
}

void ObjectFile::WriteStream(ObjectId id, std::string_view entries, std::string_view bytes) {
    const std::string_view packed = mDeflater.Compress(bytes);
    Begin(id);
    std::string head = "<<";
    head += entries;
    head += "/Filter/FlateDecode/Length ";
    AppendInteger(head, static_cast<std::int64_t>(packed.size()));
    head += ">>\nstream\n";
    Put(head);
    Put(packed);
    Put("\nendstream\nendobj\n");
}

ObjectId ObjectFile::AddObject(std::string_view body) {
    const ObjectId id = Reserve();
    WriteObject(id, body);
    return id;
}

ObjectId ObjectFile::AddStream(std::string_view entries, std::string_view bytes) {
    const ObjectId id = Reserve();
    WriteStream(id, entries, bytes);
    return id;
}

void ObjectFile::Finish(ObjectId catalog, ObjectId info) {
    Flush();
    const std::string identifier = FileIdentifier(mSum, mSize);
    const std::uint64_t place = mSize;
    const ObjectId table = Reserve();
    mOffsets.back() = place;
    std::string rows;
    rows.reserve((mOffsets.size() + 1) * (OffsetBytes + 3));
    const auto row = [&rows](std::uint64_t kind, std::uint64_t offset, std::uint64_t generation) {
        AppendBigEndian(rows, kind, 1);
        AppendBigEndian(rows, offset, OffsetBytes);
        AppendBigEndian(rows, generation, 2);
    };
    row(0, 0, 0xFFFF);
    for (const std::uint64_t offset : mOffsets)
        row(1, offset, 0);
    std::string entries = "/Type/XRef/Size ";
    AppendInteger(entries, static_cast<std::int64_t>(mOffsets.size()) + 1);
    entries += "/W[1 5 2]/Root " + Reference(catalog) + "/Info " + Reference(info) + "/ID[" + identifier +
               identifier + "]";
    WriteStream(table, entries, rows);
    std::string end = "startxref\n";
    AppendInteger(end, static_cast<std::int64_t>(place));
    end += "\n%%EOF\n";
    Put(end);
    Flush();
}

std::string Reference(ObjectId id) {
    return std::to_string(id) + " 0 R";
}

std::string TextString(std::string_view utf8) {
    std::string text = "<FEFF";
    for (std::size_t position = 0; position < utf8.size();)
        AppendUtf16Hex(text, NextCharacter(utf8, position));
    return text + ">";
}

} // namespace qbrpt::pdf
