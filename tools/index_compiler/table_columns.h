#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "board/index_file.h"

namespace sorvane {

// The pieces of text between the marks, without blanks around them; one piece if there is no mark.
std::vector<std::string_view> Split(std::string_view text, char mark);

// A whole number of at most 32 bits, decimal or hexadecimal behind "0x".
std::optional<uint32_t> ReadNumber(std::string_view text);

std::string Quoted(std::string_view text);

// Each reads one column into record and returns what is wrong with it; the words are empty if all
// is well.
std::string ReadAddress(std::string_view text, IndexRecord& record);
std::string ReadSize(std::string_view text, IndexRecord& record);
std::string ReadDivider(std::string_view text, IndexRecord& record);

// size is the value's in bytes, or nothing where it isn't known: then any default fits.
std::string ReadDefault(std::string_view text, std::optional<int> size, IndexRecord& record);

}  // namespace sorvane
