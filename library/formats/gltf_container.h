// The binary form of glTF (.glb): a chunk of JSON and a chunk of bytes.
#pragma once

#include <string>
#include <string_view>

namespace tremolux {

struct GltfChunks {
    std::string_view json, binary;  // `binary` has no data where there is no such chunk
};

// Of a file of either form; text is one chunk of JSON. Throws a Failure for a container that is broken.
GltfChunks ChunksOf(const std::string &file, std::string_view bytes);
// Throws a Failure when the file would be longer than its 32-bit lengths can say.
std::string GltfContainer(const std::string &json, const std::string &binary);

}  // namespace tremolux
