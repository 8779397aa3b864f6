// A glTF 2.0 file that is read: its JSON, and the numbers behind its accessors.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "library/formats/json_place.h"

namespace tremolux {

class GltfDocument {
  public:
    // Text (.gltf) or binary (.glb), by its first bytes, which must live as long as this. Buffers beside the file are
    // looked for in `folder`; where that is empty, none is opened.
    GltfDocument(std::string file, std::string_view bytes, std::filesystem::path folder);
    GltfDocument(const GltfDocument &) = delete;
    GltfDocument &operator=(const GltfDocument &) = delete;

    JsonPlace Root() const { return {file_, json_}; }
    JsonPlace All(const char *name) const { return Root().Member(name); }
    // Of the accessor that `index` names, which must have `width` numbers an element; all of them finite.
    std::vector<double> Numbers(const JsonPlace &index, std::size_t width) const;

  private:
    std::string_view BytesOfBuffer(const JsonPlace &buffer, std::size_t index) const;
    std::string_view BytesOfView(const JsonPlace &owner) const;
    std::string BytesBeside(const JsonPlace &uri) const;

    std::string file_;
    std::filesystem::path folder_;
    nlohmann::json json_;
    std::string_view binary_;                              // the second chunk of a binary file
    mutable std::map<std::size_t, std::string> buffers_;   // those that were needed, by their index
    mutable std::size_t bytes_read_ = 0, numbers_read_ = 0;  // of all files and accessors so far
};

}  // namespace tremolux
