#include "library/formats/gltf_container.h"

#include <cstdint>
#include <limits>

#include "library/failure.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

constexpr std::string_view kMagic = "glTF", kJsonType = "JSON", kBinaryType = std::string_view("BIN\0", 4);
constexpr std::uint32_t kGlbVersion = 2;
constexpr std::size_t kHeaderBytes = 12, kChunkHeaderBytes = 8, kWord = 4;

[[noreturn]] void Refuse(const std::string &file, std::size_t byte, const std::string &found,
                         const std::string &expected) {
    throw Failure(kExitInput,
                  file + ":byte " + std::to_string(byte) + ": found " + found + ", expected " + expected);
}

// The lowest byte first. `at` + 4 is within `bytes`.
std::uint32_t WordAt(std::string_view bytes, std::size_t at) {
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < kWord; ++i)
        word |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
    return word;
}

std::string WordBytes(std::uint64_t word) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(word >> shift & 255);
    return bytes;
}

std::string Chunk(std::string_view type, std::string data, char padding) {
    data.resize((data.size() + kWord - 1) / kWord * kWord, padding);
    return WordBytes(data.size()) + std::string(type) + data;
}

}  // namespace

GltfChunks ChunksOf(const std::string &file, std::string_view bytes) {
    if (bytes.substr(0, kMagic.size()) != kMagic) {
        if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark) bytes.remove_prefix(kByteOrderMark.size());
        return {bytes, {}};
    }
    if (bytes.size() < kHeaderBytes) Refuse(file, bytes.size(), "the end of the file", "a header of 12 bytes");
    if (WordAt(bytes, 4) != kGlbVersion)
        Refuse(file, 4, "version " + std::to_string(WordAt(bytes, 4)), "version " + std::to_string(kGlbVersion));
    const std::size_t length = WordAt(bytes, 8);
    if (length > bytes.size() || length < kHeaderBytes)
        Refuse(file, 8, "a length of " + std::to_string(length),
               "the file's " + std::to_string(bytes.size()) + " bytes (it may be cut off)");
    bytes = bytes.substr(0, length);
    GltfChunks chunks;
    for (std::size_t at = kHeaderBytes; at < bytes.size();) {
        if (bytes.size() - at < kChunkHeaderBytes) Refuse(file, at, "the end of the file", "a chunk's header");
        const std::size_t size = WordAt(bytes, at), start = at + kChunkHeaderBytes;
        const std::string_view type = bytes.substr(at + kWord, kWord);
        if (size > bytes.size() - start)
            Refuse(file, at, "a chunk of " + std::to_string(size) + " bytes",
                   "one inside the file's " + std::to_string(bytes.size()));
        if (at == kHeaderBytes) {
            if (type != kJsonType) Refuse(file, at, "another chunk", "the chunk of JSON first");
            chunks.json = bytes.substr(start, size);
        } else if (type == kBinaryType && chunks.binary.data() == nullptr) {
            chunks.binary = bytes.substr(start, size);
        }
        at = start + size;
    }
    if (chunks.json.data() == nullptr) Refuse(file, kHeaderBytes, "the end of the file", "a chunk of JSON");
    return chunks;
}

std::string GltfContainer(const std::string &json, const std::string &binary) {
    const std::string chunks = Chunk(kJsonType, json, ' ') + Chunk(kBinaryType, binary, '\0');
    const std::uint64_t length = kHeaderBytes + std::uint64_t{chunks.size()};
    if (length > std::numeric_limits<std::uint32_t>::max())
        throw Failure(kExitOutput, "found a move of more than 4 GiB, expected one that a .glb file can hold");
    return std::string(kMagic) + WordBytes(kGlbVersion) + WordBytes(length) + chunks;
}

}  // namespace tremolux
