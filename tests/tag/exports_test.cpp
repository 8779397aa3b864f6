// The module's door, read from the library's own symbol table.
#ifdef __ELF__

#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/files/safe_write.h"
#include "tests/support/value_at.h"

namespace {

struct Symbol {
    std::string name;
    bool defined, weak;
    bool versioned;  // bound to a version of a library: not left for whoever happens to offer the name
};

// A 64-bit library in this machine's byte order, read with every offset checked.
class Library {
  public:
    bool Read(const std::string &file) {
        std::string error;
        if (!host::ReadFile(file, &bytes_, &error)) return false;
        const auto header = At<Elf64_Ehdr>(0);
        if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0) return false;
        for (unsigned i = 0; i < header->e_shnum; ++i) {
            const auto section = At<Elf64_Shdr>(header->e_shoff + i * sizeof(Elf64_Shdr));
            if (!section) return false;
            sections_.push_back(*section);
        }
        for (const Elf64_Shdr &section : sections_) {
            if (section.sh_type == SHT_DYNSYM) ReadSymbols(section);
            if (section.sh_type == SHT_DYNAMIC) ReadNeeded(section);
        }
        return !symbols.empty();
    }
    std::vector<Symbol> symbols;
    std::set<std::string> needed;

  private:
    template <class T>
    std::optional<T> At(std::uint64_t offset) const {
        return test_support::ValueAt<T>(bytes_, offset);
    }
    std::string Text(const Elf64_Shdr &user, std::uint64_t offset) const {
        if (user.sh_link >= sections_.size()) return {};
        const std::uint64_t start = sections_[user.sh_link].sh_offset + offset;
        if (start >= bytes_.size()) return {};
        return std::string(bytes_.c_str() + start);
    }
    void ReadSymbols(const Elf64_Shdr &section) {
        const Elf64_Shdr *versions = nullptr;
        for (const Elf64_Shdr &other : sections_)
            if (other.sh_type == SHT_GNU_versym) versions = &other;
        for (std::uint64_t i = 1; i < section.sh_size / sizeof(Elf64_Sym); ++i) {
            const auto symbol = At<Elf64_Sym>(section.sh_offset + i * sizeof(Elf64_Sym));
            if (!symbol) return;
            const auto version =
                versions ? At<Elf64_Versym>(versions->sh_offset + i * sizeof(Elf64_Versym)) : std::nullopt;
            symbols.push_back({Text(section, symbol->st_name), symbol->st_shndx != SHN_UNDEF,
                               ELF64_ST_BIND(symbol->st_info) == STB_WEAK,
                               version && (*version & 0x7fff) > VER_NDX_GLOBAL});
        }
    }
    void ReadNeeded(const Elf64_Shdr &section) {
        for (std::uint64_t i = 0; i < section.sh_size / sizeof(Elf64_Dyn); ++i) {
            const auto entry = At<Elf64_Dyn>(section.sh_offset + i * sizeof(Elf64_Dyn));
            if (entry && entry->d_tag == DT_NEEDED) needed.insert(Text(section, entry->d_un.d_val));
        }
    }
    std::string bytes_;
    std::vector<Elf64_Shdr> sections_;
};

bool BeginsWith(const std::string &text, const char *start) { return text.rfind(start, 0) == 0; }

class ModuleLibrary : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(library_.Read(TREMOLUX_MODULE_FILE)); }
    Library library_;
};

TEST_F(ModuleLibrary, ExportsItsEntryAndNothingElse) {
    std::set<std::string> exported;
    for (const Symbol &symbol : library_.symbols)
        if (symbol.defined) exported.insert(symbol.name);
    EXPECT_EQ(exported, std::set<std::string>{"c4d_main"});
}

TEST_F(ModuleLibrary, ImportsNothingOfTheHost) {
    // A sanitizer stands in for functions of the system's libraries and gives its own no versions.
    bool sanitized = false;
    for (const std::string &name : library_.needed) sanitized |= BeginsWith(name, "libasan.");
    // What is neither optional nor bound to a version of a system library would have to come from the program that
    // loads the module.
    for (const Symbol &symbol : library_.symbols) {
        if (symbol.defined) continue;
        // Clang's is the program's.
        const bool is_sanitizers = BeginsWith(symbol.name, "__asan_") || BeginsWith(symbol.name, "__ubsan_") ||
                                   BeginsWith(symbol.name, "__sanitizer_") || BeginsWith(symbol.name, "__sancov_");
        EXPECT_TRUE(symbol.weak || symbol.versioned || sanitized || is_sanitizers) << symbol.name;
        EXPECT_EQ(symbol.name.find("4host"), std::string::npos) << symbol.name;
    }
}

TEST_F(ModuleLibrary, NeedsOnlyTheSystemsLibraries) {
    for (const std::string &name : library_.needed)
        EXPECT_TRUE(BeginsWith(name, "libc.") || BeginsWith(name, "libm.") || BeginsWith(name, "libstdc++.") ||
                    BeginsWith(name, "libgcc_s.") || BeginsWith(name, "ld-linux") || BeginsWith(name, "libasan.") ||
                    BeginsWith(name, "libubsan."))
            << name;
}

TEST_F(ModuleLibrary, TheReaderFindsImportsAtAll) {
    std::size_t imports = 0;
    for (const Symbol &symbol : library_.symbols) imports += symbol.defined ? 0 : 1;
    EXPECT_GT(imports, 0u);
    EXPECT_FALSE(library_.needed.empty());
}

}  // namespace

#endif
