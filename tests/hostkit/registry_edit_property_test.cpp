// Property test of the registry editor over many generated files: whatever
// the file, an edit either refuses it as malformed or changes exactly the one
// value asked for.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "hostkit/registry_format.h"

namespace {

using kit::RegistryEdit;
using kit::RegistryStatus;

// Pieces that exercise every rule of the format, including broken ones.
const std::string_view kPieces[] = {"[",  "]", "=", "\\", "\\s",   "\\n",  "\n",    "\r\n",    "#",        ";",   " ",
                                    "\t", "a", "K", "S",  "[S]\n", "[]\n", "K=1\n", "a = b\n", "\xC3\xBC", "\xFF"};
const std::string_view kNames[] = {"", "S", "a", "K", "a b", "\xC3\xBC"};
const std::string_view kValues[] = {"", "1", " x", "a\\b", "\n", "#1F", "\t", "x y "};

std::string Generate(std::mt19937& random) {
    std::uniform_int_distribution<std::size_t> count(0, 24);
    std::uniform_int_distribution<std::size_t> piece(0, std::size(kPieces) - 1);
    std::string file;
    for (std::size_t n = count(random); n > 0; --n) file.append(kPieces[piece(random)]);
    return file;
}

TEST(EditRegistry, ChangesOnlyTheValueAskedForInGeneratedFiles) {
    std::mt19937 random(20261121);
    std::uniform_int_distribution<std::size_t> name(0, std::size(kNames) - 1);
    std::uniform_int_distribution<std::size_t> value_index(0, std::size(kValues));  // the last index removes
    int edited_files = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string file = Generate(random);
        const std::string_view section = kNames[name(random)];
        const std::string_view key = kNames[name(random)];
        if (!kit::IsWritableKey(key)) continue;
        const std::size_t chosen = value_index(random);
        const std::string value = chosen < std::size(kValues) ? std::string(kValues[chosen]) : std::string();
        const std::string* new_value = chosen < std::size(kValues) ? &value : nullptr;

        std::string probe;
        const bool malformed = kit::FindRegistryValue(file, "", "", &probe) == RegistryStatus::kMalformed;
        std::string edited;
        const RegistryEdit result = kit::EditRegistry(file, section, key, new_value, &edited);
        ASSERT_EQ(result == RegistryEdit::kMalformed, malformed) << file;
        if (malformed) continue;
        const std::string& after = result == RegistryEdit::kEdited ? edited : file;
        if (result == RegistryEdit::kEdited) ++edited_files;

        for (const std::string_view s : kNames) {
            for (const std::string_view k : kNames) {
                std::string before_value;
                std::string after_value;
                const RegistryStatus before_status = kit::FindRegistryValue(file, s, k, &before_value);
                const RegistryStatus after_status = kit::FindRegistryValue(after, s, k, &after_value);
                if (s == section && k == key) {
                    ASSERT_EQ(after_status, new_value ? RegistryStatus::kFound : RegistryStatus::kAbsent) << file;
                    if (new_value) {
                        ASSERT_EQ(after_value, value) << file;
                    }
                } else {
                    ASSERT_EQ(after_status, before_status) << file;
                    ASSERT_EQ(after_value, before_value) << file;
                }
            }
        }
    }
    EXPECT_GT(edited_files, 1500);  // the generator reaches the editor often enough to mean something
}

}  // namespace
