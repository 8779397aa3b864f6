// A library's file for Windows: what it gives, what it needs, and what Windows shows of it.
#pragma once

#include <windows.h>

#include <cctype>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/safe_write.h"
#include "tests/support/value_at.h"

namespace test_support {

// A 64-bit library, read with every offset checked.
class WindowsLibraryFile {
  public:
    bool Read(const std::string &file) {
        std::string error;
        if (!host::ReadFile(file, &bytes_, &error)) return false;
        const auto dos = At<IMAGE_DOS_HEADER>(0);
        if (!dos || dos->e_magic != IMAGE_DOS_SIGNATURE) return false;
        const auto headers = At<IMAGE_NT_HEADERS64>(static_cast<std::uint32_t>(dos->e_lfanew));
        if (!headers || headers->Signature != IMAGE_NT_SIGNATURE) return false;
        file_header = headers->FileHeader;
        const std::uint64_t first = static_cast<std::uint32_t>(dos->e_lfanew) + sizeof(IMAGE_NT_HEADERS64);
        for (unsigned i = 0; i < file_header.NumberOfSections; ++i) {
            const auto section = At<IMAGE_SECTION_HEADER>(first + i * sizeof(IMAGE_SECTION_HEADER));
            if (!section) return false;
            sections_.push_back(*section);
        }
        const IMAGE_DATA_DIRECTORY *tables = headers->OptionalHeader.DataDirectory;
        return ReadExports(tables[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress) &&
               ReadImports(tables[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    }
    IMAGE_FILE_HEADER file_header{};
    std::set<std::string> exported, needed;
    std::size_t Size() const { return bytes_.size(); }

  private:
    template <class T>
    std::optional<T> At(std::uint64_t offset) const {
        return ValueAt<T>(bytes_, offset);
    }
    // Where an address of the loaded library lies in the file; past its end when nowhere.
    std::uint64_t OffsetOf(std::uint32_t address) const {
        for (const IMAGE_SECTION_HEADER &section : sections_)
            if (address >= section.VirtualAddress && address - section.VirtualAddress < section.SizeOfRawData)
                return std::uint64_t{section.PointerToRawData} + (address - section.VirtualAddress);
        return bytes_.size();
    }
    std::string Text(std::uint32_t address) const {
        const std::uint64_t offset = OffsetOf(address);
        return offset < bytes_.size() ? std::string(bytes_.c_str() + offset) : std::string();
    }
    bool ReadExports(std::uint32_t address) {
        const auto table = At<IMAGE_EXPORT_DIRECTORY>(OffsetOf(address));
        if (!table) return false;
        for (std::uint32_t i = 0; i < table->NumberOfNames; ++i) {
            const auto name = At<std::uint32_t>(OffsetOf(table->AddressOfNames) + i * sizeof(std::uint32_t));
            if (!name) return false;
            exported.insert(Text(*name));
        }
        return table->NumberOfFunctions == table->NumberOfNames;
    }
    bool ReadImports(std::uint32_t address) {
        for (std::uint64_t offset = OffsetOf(address);; offset += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
            const auto import = At<IMAGE_IMPORT_DESCRIPTOR>(offset);
            if (!import) return false;
            if (import->Name == 0) return true;
            std::string name = Text(import->Name);
            for (char &c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            needed.insert(name);
        }
    }
    std::string bytes_;
    std::vector<IMAGE_SECTION_HEADER> sections_;
};

// Whether the version that Windows shows of a file is this one.
inline bool TellsVersion(const std::string &library, std::u16string_view version) {
    const HMODULE file = LoadLibraryExW(std::filesystem::u8path(library).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (file == nullptr) return false;
    constexpr int kVersionType = 16;
    const HRSRC place = FindResourceW(file, MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(kVersionType));
    const std::string_view bytes =
        place == nullptr ? std::string_view()
                         : std::string_view(static_cast<const char *>(LockResource(LoadResource(file, place))),
                                            SizeofResource(file, place));
    const std::string_view wanted(reinterpret_cast<const char *>(version.data()), sizeof(char16_t) * version.size());
    const bool told = bytes.find(wanted) != std::string_view::npos;
    FreeLibrary(file);
    return told;
}

}  // namespace test_support
