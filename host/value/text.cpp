#include "host/value/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

#include "host/value/memory.h"

namespace host {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// One character from the front of `rest`, which must not be empty. A sequence that breaks off counts as one bad
// character; the byte that broke it starts the next one.
char32_t TakeCharacter(std::string_view *rest) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>((*rest)[i]); };
    const unsigned char lead = byte(0);
    std::size_t length = 1;
    char32_t character = lead, smallest = 0;
    if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, character = lead & 0x07u, smallest = 0x10000;
    } else if (lead >= 0xE0 && lead < 0xF0) {
        length = 3, character = lead & 0x0Fu, smallest = 0x800;
    } else if (lead >= 0xC2 && lead < 0xE0) {
        length = 2, character = lead & 0x1Fu, smallest = 0x80;
    } else if (lead >= 0x80) {
        rest->remove_prefix(1);
        return kReplacement;
    }
    std::size_t used = 1;
    while (used < length && used < rest->size() && (byte(used) & 0xC0) == 0x80) {
        character = character << 6 | (byte(used) & 0x3Fu);
        ++used;
    }
    rest->remove_prefix(used);
    if (used < length || character < smallest || character > 0x10FFFF || IsSurrogate(character)) return kReplacement;
    return character;
}

void AppendUtf16(std::u16string *out, char32_t c) {
    if (c < 0x10000) {
        out->push_back(static_cast<char16_t>(c));
        return;
    }
    out->push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
    out->push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
}

void AppendUtf8(std::string *out, char32_t c) {
    const auto tail = [&](int shift) { out->push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F))); };
    if (c < 0x80) {
        out->push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out->push_back(static_cast<char>(0xC0 | c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        out->push_back(static_cast<char>(0xE0 | c >> 12));
        tail(6);
        tail(0);
    } else {
        out->push_back(static_cast<char>(0xF0 | c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

// The units of `text`, copied onto the host's heap with a closing 0; nullptr for the empty text.
std::uint16_t *CopyUnits(const void *units, std::size_t length) {
    if (length == 0) return nullptr;
    const std::size_t bytes = (length + 1) * sizeof(std::uint16_t);
    auto *copy = static_cast<std::uint16_t *>(Allocate(static_cast<std::int64_t>(bytes)));
    if (copy == nullptr) throw std::bad_alloc();
    std::memcpy(copy, units, length * sizeof(std::uint16_t));
    return copy;
}

void TakeOver(TableString *text, std::uint16_t *units, std::size_t length) {
    Release(text->text);
    text->text = units;
    text->length = static_cast<std::int32_t>(length);
    text->capacity = units == nullptr ? 0 : text->length + 1;
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
    std::u16string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) AppendUtf16(&out, TakeCharacter(&utf8));
    return out;
}

std::string ToUtf8(const std::uint16_t *text, std::int32_t length) {
    std::string out;
    if (text == nullptr || length <= 0) return out;
    out.reserve(static_cast<std::size_t>(length));
    for (std::int32_t i = 0; i < length; ++i) {
        char32_t c = text[i];
        if (IsSurrogate(c)) {
            const bool pair = c < 0xDC00 && i + 1 < length && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
            c = pair ? 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u) : kReplacement;
        }
        AppendUtf8(&out, c);
    }
    return out;
}

std::string ToUtf8(const TableString *text) {
    return text == nullptr ? std::string() : ToUtf8(text->text, text->length);
}

void Assign(TableString *text, std::string_view utf8) {
    const std::u16string units = ToUtf16(utf8);
    constexpr std::size_t kMostUnits = std::numeric_limits<std::int32_t>::max() / 4;
    const std::size_t length = std::min(units.size(), kMostUnits);
    TakeOver(text, CopyUnits(units.data(), length), length);
}

void Assign(TableString *destination, const TableString &source) {
    if (destination == &source) return;
    const std::size_t length =
        source.text == nullptr || source.length < 0 ? 0 : static_cast<std::size_t>(source.length);
    TakeOver(destination, CopyUnits(source.text, length), length);
}

void ReleaseText(TableString *text) { TakeOver(text, nullptr, 0); }

std::filesystem::path ToPath(const TableFilename *name) {
    return name == nullptr ? std::filesystem::path() : PathFromText(ToUtf8(&name->path));
}

void Assign(TableFilename *name, const std::filesystem::path &path) { Assign(&name->path, PathText(path)); }

std::string PathText(const std::filesystem::path &path) { return path.u8string(); }

// A broken sequence would make the library's own conversion throw on Windows.
std::filesystem::path PathFromText(std::string_view utf8) {
    std::string valid;
    valid.reserve(utf8.size());
    while (!utf8.empty()) AppendUtf8(&valid, TakeCharacter(&utf8));
    return std::filesystem::u8path(valid);
}

}  // namespace host
