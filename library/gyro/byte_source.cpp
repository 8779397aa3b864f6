#include "library/gyro/byte_source.h"

#include "host/value/text.h"
#include "library/failure.h"

namespace tremolux {

std::string ByteSource::Read(std::uint64_t offset, std::uint64_t count) {
    if (offset > Size() || count > Size() - offset) {
        throw Failure(kExitInput, name_ + ": byte " + std::to_string(Size()) + ": found the end of the file, expected " +
                                      std::to_string(count) + " bytes from byte " + std::to_string(offset) + " on");
    }
    std::string bytes(static_cast<std::size_t>(count), '\0');
    if (!bytes.empty() && !Fill(offset, &bytes)) {
        throw Failure(kExitInput, name_ + ": byte " + std::to_string(offset) + ": found what cannot be read, expected " +
                                      std::to_string(count) + " bytes");
    }
    return bytes;
}

bool MemorySource::Fill(std::uint64_t offset, std::string *bytes) {
    *bytes = bytes_.substr(static_cast<std::size_t>(offset), bytes->size());
    return true;
}

FileSource::FileSource(const std::filesystem::path &file)
    : ByteSource(host::PathText(file)), file_(host::OpenToRead(file)) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || !file_)
        throw Failure(kExitInput, host::PathText(file) + ": found a file that cannot be read, expected recorded motion");
    size_ = size;
}

bool FileSource::Fill(std::uint64_t offset, std::string *bytes) {
    return host::GoToByte(file_.get(), static_cast<std::int64_t>(offset)) &&
           std::fread(bytes->data(), 1, bytes->size(), file_.get()) == bytes->size();
}

}  // namespace tremolux
