// Bytes at any place of a file that may be too large for the memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "host/services/platform.h"

namespace tremolux {

class ByteSource {
  public:
    virtual ~ByteSource() = default;
    virtual std::uint64_t Size() const = 0;
    // Throws a Failure where the file ends before, or cannot be read.
    std::string Read(std::uint64_t offset, std::uint64_t count);

  protected:
    explicit ByteSource(std::string name) : name_(std::move(name)) {}
    ByteSource(const ByteSource &) = default;
    ByteSource &operator=(const ByteSource &) = default;

  private:
    // Within the size. False where the bytes cannot be read.
    virtual bool Fill(std::uint64_t offset, std::string *bytes) = 0;

    std::string name_;
};

// The bytes must outlive it.
class MemorySource : public ByteSource {
  public:
    MemorySource(std::string name, std::string_view bytes) : ByteSource(std::move(name)), bytes_(bytes) {}
    std::uint64_t Size() const override { return bytes_.size(); }

  private:
    bool Fill(std::uint64_t offset, std::string *bytes) override;

    std::string_view bytes_;
};

class FileSource : public ByteSource {
  public:
    // Throws a Failure for what is no file that can be read.
    explicit FileSource(const std::filesystem::path &file);
    std::uint64_t Size() const override { return size_; }

  private:
    bool Fill(std::uint64_t offset, std::string *bytes) override;

    host::OpenFile file_;
    std::uint64_t size_ = 0;
};

}  // namespace tremolux
