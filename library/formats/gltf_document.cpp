#include "library/formats/gltf_document.h"

#include <cmath>
#include <cstring>

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/base64.h"
#include "library/formats/gltf_container.h"
#include "library/formats/gltf_names.h"
#include "library/formats/source_text.h"
#include "library/moves/camera_move.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kMaxOffset = std::uint64_t{1} << 32;
constexpr std::size_t kMaxBytesBeside = std::size_t{1} << 28;
constexpr std::size_t kMaxElements = 3 * kMaxFrames;  // a cubic spline has three a key
constexpr std::size_t kMaxAccessorNumbers = 40 * kMaxFrames;
constexpr std::uint64_t kMaxStride = 252;
constexpr const char *kCompression = "EXT_meshopt_compression";

struct ComponentType {
    std::uint64_t code;
    std::size_t bytes;
    std::uint32_t sign;  // the bit that says it; 0 without one
    double one;  // what stands for 1 where it is normalized; 0: never
};
constexpr ComponentType kComponentTypes[] = {{5120, 1, 0x80, 127},    {5121, 1, 0, 255}, {5122, 2, 0x8000, 32767},
                                             {5123, 2, 0, 65535}, {5125, 4, 0, 0},   {kGltfFloat, 4, 0, 0}};

const ComponentType &ComponentTypeOf(const JsonPlace &place) {
    const std::uint64_t code = place.Whole(kMaxOffset);
    for (const ComponentType &type : kComponentTypes) {
        if (type.code == code) return type;
    }
    place.Refuse("5120 to 5123, 5125 or 5126");
}

double Component(const char *bytes, const ComponentType &type) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < type.bytes; ++i)
        bits |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    if (type.code == kGltfFloat) {
        float number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }
    return static_cast<double>(bits ^ type.sign) - static_cast<double>(type.sign);
}

std::size_t WidthOf(const JsonPlace &type) {
    constexpr const char *kTypes[] = {"SCALAR", "VEC2", "VEC3", "VEC4"};
    const std::string name = type.Text();
    for (std::size_t i = 0; i < 4; ++i) {
        if (name == kTypes[i]) return i + 1;
    }
    type.Refuse("SCALAR, VEC2, VEC3 or VEC4");
}

// `count` elements of `element` bytes each, `stride` apart: the part of the view that holds them.
std::string_view Elements(const JsonPlace &owner, std::string_view view, std::size_t count, std::size_t element,
                          std::size_t stride) {
    const std::uint64_t offset = owner.Member("byteOffset").Whole(kMaxOffset, 0);
    const std::uint64_t need = count == 0 ? 0 : std::uint64_t{stride} * (count - 1) + element;
    if (offset > view.size() || need > view.size() - offset)
        owner.Refuse(std::to_string(need) + " bytes from " + std::to_string(offset) + " on",
                     "elements inside the " + std::to_string(view.size()) + " bytes of the buffer view");
    return view.substr(static_cast<std::size_t>(offset));
}

// "a%20b" as "a b".
std::string PercentDecoded(const std::string &uri) {
    const auto digit = [](char c) {
        return c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    };
    std::string text;
    for (std::size_t i = 0; i < uri.size(); ++i) {
        const bool escaped = uri[i] == '%' && i + 2 < uri.size() && digit(uri[i + 1]) >= 0 && digit(uri[i + 2]) >= 0;
        text += escaped ? static_cast<char>(16 * digit(uri[i + 1]) + digit(uri[i + 2])) : uri[i];
        if (escaped) i += 2;
    }
    return text;
}

bool IsBelow(const fs::path &folder, const fs::path &file) {
    std::error_code error;
    const fs::path root = fs::canonical(folder, error), target = error ? fs::path() : fs::canonical(file, error);
    if (error) return false;
    const fs::path way = target.lexically_relative(root);
    return !way.empty() && *way.begin() != "..";
}

}  // namespace

GltfDocument::GltfDocument(std::string file, std::string_view bytes, fs::path folder)
    : file_(std::move(file)), folder_(std::move(folder)) {
    const GltfChunks chunks = ChunksOf(file_, bytes);
    binary_ = chunks.binary;
    json_ = ParseJson(file_, chunks.json);
    const JsonPlace version = Root().Member("asset").Member("version");
    if (version.Text().substr(0, 2) != "2.") version.Refuse("\"2.0\"");
}

std::string GltfDocument::BytesBeside(const JsonPlace &uri) const {
    const std::string name = PercentDecoded(uri.Text());
    if (folder_.empty()) uri.Refuse("a file that has its buffers within, as .glb files have: no folder is known here");
    const fs::path path = host::PathFromText(name);
    bool leaves = path.is_absolute() || path.has_root_path() || name.find_first_of(":\\") != std::string::npos ||
                  name.find('\0') != std::string::npos;
    for (const fs::path &part : path) leaves = leaves || part == "..";
    if (leaves) uri.Refuse("the name of a file in the same folder");
    const fs::path file = folder_ / path;
    std::error_code error;
    if (!fs::is_regular_file(file, error)) uri.Refuse(Quoted(name) + ", which is not there", "a file beside this one");
    if (!IsBelow(folder_, file)) uri.Refuse("the name of a file in the same folder");
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size > kMaxBytesBeside - bytes_read_)
        uri.Refuse(Quoted(name) + ", of absurd size", "buffers of at most 256 MiB");
    std::string bytes, reason;
    if (!host::ReadFile(file, &bytes, &reason)) uri.Refuse(Quoted(name) + ", which cannot be read", "a file of bytes");
    bytes_read_ += static_cast<std::size_t>(size);
    return bytes;
}

std::string_view GltfDocument::BytesOfBuffer(const JsonPlace &buffer, std::size_t index) const {
    const JsonPlace uri = buffer.Member("uri");
    std::string_view bytes;
    if (!uri) {
        if (index > 0 || binary_.data() == nullptr) buffer.Refuse("no uri", "a buffer with an uri or a binary chunk");
        bytes = binary_;
    } else {
        auto known = buffers_.find(index);
        if (known == buffers_.end()) {
            const std::string &text = uri.Value().is_string() ? uri.Value().get_ref<const std::string &>() : uri.Text();
            constexpr std::string_view kData = "data:", kBase64 = ";base64";
            if (std::string_view(text).substr(0, kData.size()) != kData) {
                known = buffers_.emplace(index, BytesBeside(uri)).first;
            } else {
                const std::size_t comma = text.find(',');
                const bool encoded = comma != std::string::npos && comma >= kBase64.size() &&
                                     std::string_view(text).substr(comma - kBase64.size(), kBase64.size()) == kBase64;
                std::optional<std::string> decoded;
                if (encoded) decoded = BytesOfBase64(std::string_view(text).substr(comma + 1));
                if (!decoded) uri.Refuse("\"data:...;base64,\" and base64");
                known = buffers_.emplace(index, std::move(*decoded)).first;
            }
        }
        bytes = known->second;
    }
    const JsonPlace length = buffer.Member("byteLength");
    if (length.Whole(kMaxOffset) > bytes.size())
        length.Refuse("at most the " + std::to_string(bytes.size()) + " bytes that are there");
    return bytes.substr(0, length.Whole(kMaxOffset));
}

std::string_view GltfDocument::BytesOfView(const JsonPlace &owner) const {
    const JsonPlace view = All("bufferViews").ElementNamedBy(owner.Member("bufferView"));
    if (view.Member("extensions").Member(kCompression))
        view.Refuse(kCompression, "plain numbers (write the file again without compression)");
    const JsonPlace index = view.Member("buffer");
    const JsonPlace buffer = All("buffers").ElementNamedBy(index);
    const std::string_view bytes = BytesOfBuffer(buffer, index.Value().get<std::size_t>());
    const std::uint64_t offset = view.Member("byteOffset").Whole(kMaxOffset, 0),
                        length = view.Member("byteLength").Whole(kMaxOffset);
    if (offset > bytes.size() || length > bytes.size() - offset)
        view.Refuse(std::to_string(length) + " bytes from " + std::to_string(offset) + " on",
                    "a part of the buffer's " + std::to_string(bytes.size()) + " bytes");
    return bytes.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
}

std::vector<double> GltfDocument::Numbers(const JsonPlace &index, std::size_t width) const {
    const JsonPlace accessor = All("accessors").ElementNamedBy(index);
    if (WidthOf(accessor.Member("type")) != width)
        accessor.Member("type").Refuse(std::to_string(width) + " numbers an element");
    const auto count = static_cast<std::size_t>(accessor.Member("count").Whole(kMaxElements));
    const ComponentType &type = ComponentTypeOf(accessor.Member("componentType"));
    const JsonPlace normalized = accessor.Member("normalized");
    const double one = normalized && normalized.Value() == true && type.one > 0 ? type.one : 1;
    const std::size_t element = type.bytes * width;
    numbers_read_ += count * width;
    if (numbers_read_ > kMaxAccessorNumbers)
        accessor.Refuse("more than " + std::to_string(kMaxAccessorNumbers) + " numbers so far", "a camera's animation");

    std::vector<double> numbers;
    const auto take = [&](const char *bytes, double *to) {
        for (std::size_t i = 0; i < width; ++i) {
            const double number = Component(bytes + i * type.bytes, type) / one;
            to[i] = one > 1 ? std::max(number, -1.0) : number;
            if (!(std::abs(to[i]) <= kMaxNumber)) accessor.Refuse("a number beyond every limit", "finite numbers");
        }
    };
    if (accessor.Member("bufferView")) {
        const std::string_view view = BytesOfView(accessor);
        const JsonPlace stride_place =
            All("bufferViews").ElementNamedBy(accessor.Member("bufferView")).Member("byteStride");
        const auto stride = static_cast<std::size_t>(stride_place.Whole(kMaxStride, element));
        if (stride < element) stride_place.Refuse("at least the " + std::to_string(element) + " bytes of an element");
        const std::string_view bytes = Elements(accessor, view, count, element, stride);
        numbers.resize(count * width);
        for (std::size_t i = 0; i < count; ++i) take(bytes.data() + i * stride, &numbers[i * width]);
    } else {
        numbers.resize(count * width);
    }
    if (const JsonPlace sparse = accessor.Member("sparse")) {
        const auto changed = static_cast<std::size_t>(sparse.Member("count").Whole(count));
        const JsonPlace indices = sparse.Member("indices"), values = sparse.Member("values");
        const ComponentType &index_type = ComponentTypeOf(indices.Member("componentType"));
        if (index_type.sign != 0 || index_type.code == kGltfFloat) indices.Member("componentType").Refuse("5121, 5123 or 5125");
        const std::string_view at = Elements(indices, BytesOfView(indices), changed, index_type.bytes, index_type.bytes);
        const std::string_view bytes = Elements(values, BytesOfView(values), changed, element, element);
        for (std::size_t i = 0; i < changed; ++i) {
            const double place = Component(at.data() + i * index_type.bytes, index_type);
            if (place >= static_cast<double>(count))
                indices.Refuse("element " + std::to_string(static_cast<std::uint64_t>(place)),
                               "one of the accessor's " + std::to_string(count));
            take(bytes.data() + i * element, &numbers[static_cast<std::size_t>(place) * width]);
        }
    }
    return numbers;
}

}  // namespace tremolux
