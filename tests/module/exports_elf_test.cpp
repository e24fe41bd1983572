// The dynamic symbol table of the built module, read from the file itself.
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/module_host.h"

namespace {

struct ExportedSymbol {
    unsigned char binding;  // STB_GLOBAL or STB_WEAK
    unsigned char type;
};

std::vector<unsigned char> ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::vector<unsigned char>(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

template <class Record>
std::optional<Record> RecordAt(const std::vector<unsigned char>& image, std::uint64_t offset) {
    if (offset > image.size() || image.size() - offset < sizeof(Record)) return std::nullopt;
    Record record;
    std::memcpy(&record, image.data() + offset, sizeof record);
    return record;
}

// A name from a string table section; empty when out of bounds or unterminated.
std::string NameAt(const std::vector<unsigned char>& image, const Elf64_Shdr& strings, std::uint32_t offset) {
    if (offset >= strings.sh_size || strings.sh_offset > image.size() ||
        strings.sh_size > image.size() - strings.sh_offset) {
        return {};
    }
    const char* begin = reinterpret_cast<const char*>(image.data() + strings.sh_offset) + offset;
    const std::size_t room = strings.sh_size - offset;
    const void* end = std::memchr(begin, '\0', room);
    return end ? std::string(begin, static_cast<const char*>(end)) : std::string();
}

// Defined symbols of .dynsym that another object can bind to (global or weak,
// default or protected visibility). Every field is bounds-checked; an
// unreadable file gives an empty table and the tests fail on it.
std::map<std::string, ExportedSymbol> ExportedSymbols(const std::vector<unsigned char>& image) {
    std::map<std::string, ExportedSymbol> exported;
    const auto header = RecordAt<Elf64_Ehdr>(image, 0);
    if (!header || std::memcmp(header->e_ident, ELFMAG, SELFMAG) != 0 || header->e_ident[EI_CLASS] != ELFCLASS64 ||
        header->e_ident[EI_DATA] != ELFDATA2LSB || header->e_shentsize != sizeof(Elf64_Shdr)) {
        return exported;
    }
    std::vector<Elf64_Shdr> sections;
    for (std::uint16_t i = 0; i < header->e_shnum; ++i) {
        const auto section = RecordAt<Elf64_Shdr>(image, header->e_shoff + std::uint64_t{i} * sizeof(Elf64_Shdr));
        if (!section) return exported;
        sections.push_back(*section);
    }
    for (const Elf64_Shdr& table : sections) {
        if (table.sh_type != SHT_DYNSYM || table.sh_link >= sections.size()) continue;
        const Elf64_Shdr& strings = sections[table.sh_link];
        const std::uint64_t count = table.sh_entsize == sizeof(Elf64_Sym) ? table.sh_size / sizeof(Elf64_Sym) : 0;
        for (std::uint64_t i = 0; i < count; ++i) {
            const auto symbol = RecordAt<Elf64_Sym>(image, table.sh_offset + i * sizeof(Elf64_Sym));
            if (!symbol) return {};
            const unsigned char binding = ELF64_ST_BIND(symbol->st_info);
            const unsigned char visibility = ELF64_ST_VISIBILITY(symbol->st_other);
            if (symbol->st_shndx == SHN_UNDEF) continue;
            if (binding != STB_GLOBAL && binding != STB_WEAK && binding != STB_GNU_UNIQUE) continue;
            if (visibility != STV_DEFAULT && visibility != STV_PROTECTED) continue;
            exported[NameAt(image, strings, symbol->st_name)] = {binding, ELF64_ST_TYPE(symbol->st_info)};
        }
    }
    return exported;
}

const std::map<std::string, ExportedSymbol>& ModuleExports() {
    static const std::map<std::string, ExportedSymbol> exported = ExportedSymbols(ReadFile(ModulePath("Calendar")));
    return exported;
}

TEST(ExportedSymbols, ExactlyTheFourEntryPoints) {
    const std::map<std::string, unsigned char> expected = {
        {"CreateFunction", STB_GLOBAL},
        {"_Z16InitializeModulePvP20IComponentCollection", STB_GLOBAL},
        {"_Z20MODULECreateFunction12tagREFStringS_", STB_WEAK},
        {"_Z8__IIDOfcPKc", STB_WEAK},
    };
    std::map<std::string, unsigned char> actual;
    for (const auto& [name, symbol] : ModuleExports()) actual[name] = symbol.binding;
    EXPECT_EQ(actual, expected);
    for (const auto& [name, symbol] : ModuleExports()) EXPECT_EQ(symbol.type, STT_FUNC) << name;
}

TEST(ExportedSymbols, NoGlobalCollectionAndNoIdentifiers) {
    for (const auto& [name, symbol] : ModuleExports()) {
        EXPECT_EQ(name.find("GLOBALComponents"), std::string::npos) << name;
        EXPECT_EQ(name.find("gGlobalComponentCollection"), std::string::npos) << name;
        EXPECT_EQ(name.find("IID_"), std::string::npos) << name;
    }
    const LoadedModule& module = LoadModule("Calendar");
    EXPECT_EQ(module.Symbol("GLOBALComponents"), nullptr);
    EXPECT_EQ(module.Symbol("_Z16GLOBALComponentsv"), nullptr);
    EXPECT_EQ(module.Symbol("IID_ITime"), nullptr);
}

TEST(ExportedSymbols, InitializeModuleOnlyUnderItsDecoratedName) {
    const LoadedModule& module = LoadModule("Calendar");
    EXPECT_EQ(module.Symbol("InitializeModule"), nullptr);
    EXPECT_NE(module.Symbol("_Z16InitializeModulePvP20IComponentCollection"), nullptr);
    EXPECT_NE(module.Symbol("CreateFunction"), nullptr);
    EXPECT_NE(module.Symbol("_Z20MODULECreateFunction12tagREFStringS_"), nullptr);
    EXPECT_NE(module.Symbol("_Z8__IIDOfcPKc"), nullptr);
    EXPECT_EQ(module.Symbol("MODULECreateFunction"), nullptr);
    EXPECT_EQ(module.Symbol("__IIDOfc"), nullptr);
}

}  // namespace
