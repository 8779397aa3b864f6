// Hyper files of any bytes, read as whatever the reader asks for: the first bytes say what that is.
#include "host/files/hyperfile.h"

#include <cstdint>

#include "fuzz/require.h"

namespace {

constexpr std::int32_t kIdent = 0x74656D70;
constexpr std::size_t kReads = 16;

bool ReadOne(host::HyperFile *file, unsigned what) {
    host::Data data;
    std::string text;
    std::int32_t whole = 0, level = 0;
    double real = 0;
    switch (what % 7) {
        case 0:
            return file->ReadData(&data);
        case 1:
            return file->ReadText(&text);
        case 2:
            return file->ReadWhole(&whole);
        case 3:
            return file->ReadReal(&real);
        case 4:
            return file->ReadMemory(&text);
        case 5:
            return file->ReadChunkStart(&whole, &level);
        default:
            return file->ReadChunkEnd();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size < kReads) return 0;
    host::HyperFile empty, file;
    empty.OpenForWriting(kIdent);
    const std::string body(reinterpret_cast<const char *>(data) + kReads, size - kReads);
    if (!file.OpenForReading(kIdent, empty.Bytes() + body)) return 0;
    for (std::size_t i = 0; i < kReads; ++i) {
        const bool read = ReadOne(&file, data[i]);
        // The end of a chunk that was never begun is the caller's mistake, not the file's.
        fuzz::Require(read || file.Error() != host::kFileOk || data[i] % 7 == 6);
        if (!read) break;
    }
    return 0;
}
