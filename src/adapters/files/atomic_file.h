// A result file that appears whole or not at all.
#pragma once

#include "base/byte_sink.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace qbrpt {

/// Collects bytes in a file without a name (or, where the file system knows no such thing, under a hidden
/// name) in the folder of its target. Only a commit gives it the target's name; without one, whatever
/// stood there before stays untouched, also after a crash.
///
/// A database is never replaced.
///
/// A target that is no ordinary file (a device, a pipe) is written to directly.
class AtomicFile : public ByteSink {
public:
    /// Begins the file. Raises FileAccess when the folder or an existing target cannot be
    /// written, and where a database stands.
    explicit AtomicFile(const std::filesystem::path& target);
    ~AtomicFile() override;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Raises Output, with the system's reason, when the disk is full or fails.
    void Write(std::string_view bytes) override;

    /// Brings all bytes to the disk, so that hardly anything can keep a commit from succeeding.
    void Settle();

    /// Gives the file its target's name; replaces an older file of that name.
    void Commit();

    /// Gives the file the name `target`, in the same folder, if no file has it yet; false if one has.
    [[nodiscard]] bool CommitAs(const std::filesystem::path& target);

    [[nodiscard]] const std::filesystem::path& Target() const { return mTarget; }

private:
    void Begin(const std::filesystem::path& folder);
    void BeginHidden();
    void Flush();
    void WriteThrough(std::string_view bytes);
    [[nodiscard]] bool Name(const std::filesystem::path& name) const;
    void Discard() noexcept;
    [[noreturn]] void Refuse(int reason) const;

    std::filesystem::path mTarget;
    std::filesystem::path mHidden; ///< the name while writing; empty for a file without one
    std::string mBuffer;
    int mHandle = -1;
    bool mDirect = false;
};

} // namespace qbrpt
