// Texts: UTF-8 inside the host, UTF-16 on the border.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/table.h"

namespace host {

// What is no valid text on either side becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(const std::uint16_t *text, std::int32_t length);
std::string ToUtf8(const TableString *text);  // null: empty

// Releases what `text` held and makes it hold `utf8`.
void Assign(TableString *text, std::string_view utf8);
void Assign(TableString *destination, const TableString &source);
void ReleaseText(TableString *text);

std::filesystem::path ToPath(const TableFilename *name);
void Assign(TableFilename *name, const std::filesystem::path &path);
std::string PathText(const std::filesystem::path &path);  // UTF-8, native separators
std::filesystem::path PathFromText(std::string_view utf8);

}  // namespace host
