// The module's file for Windows: what it gives, what it needs, and what Windows shows of it.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include <cctype>
#include <cstring>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/files/safe_write.h"
#include "tests/support/value_at.h"

namespace {

// A 64-bit library, read with every offset checked.
class Library {
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
        return test_support::ValueAt<T>(bytes_, offset);
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

class WindowsLibrary : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(library_.Read(TREMOLUX_MODULE_FILE)); }
    Library library_;
};

TEST_F(WindowsLibrary, ExportsItsEntryAndNothingElse) {
    EXPECT_EQ(library_.exported, std::set<std::string>{"c4d_main"});
}

TEST_F(WindowsLibrary, ImportsOnlyWhatEveryWindowsHas) {
    // Of 64-bit Windows since 7, without anything that would have to be installed.
    const std::set<std::string> everywhere = {"kernel32.dll", "msvcrt.dll"};
    EXPECT_EQ(library_.needed, everywhere);
}

TEST_F(WindowsLibrary, IsSmallStrippedAndWithoutADate) {
    EXPECT_EQ(library_.file_header.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(library_.file_header.NumberOfSymbols, 0u);
    EXPECT_EQ(library_.file_header.TimeDateStamp, 0u);
    EXPECT_LE(library_.Size(), 1500000u);
}

TEST_F(WindowsLibrary, TellsItsVersion) {
    const HMODULE file =
        LoadLibraryExW(std::filesystem::u8path(TREMOLUX_MODULE_FILE).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(file, nullptr);
    constexpr int kVersionType = 16;
    const HRSRC place = FindResourceW(file, MAKEINTRESOURCEW(VS_VERSION_INFO), MAKEINTRESOURCEW(kVersionType));
    ASSERT_NE(place, nullptr);
    const std::string_view version(static_cast<const char *>(LockResource(LoadResource(file, place))),
                                   SizeofResource(file, place));
    const std::u16string wanted = u"1.015";
    EXPECT_NE(version.find(std::string_view(reinterpret_cast<const char *>(wanted.data()), 2 * wanted.size())),
              std::string_view::npos);
    FreeLibrary(file);
}

}  // namespace

#endif
