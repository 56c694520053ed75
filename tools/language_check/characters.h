#pragma once

#include <optional>
#include <string_view>

namespace sorvane {

// The first byte that no text of the program may hold: a control character, or one of the five
// bytes that code page 1252 leaves undefined.
std::optional<unsigned char> FirstWrongByte(std::string_view text);

// Takes the first character off a text in UTF-8, which isn't empty; nothing where none stands
// there.
std::optional<char32_t> TakeUtf8(std::string_view& text);

// True if the bytes above 127, of which there is at least one, stand together as UTF-8 wants them.
// Words in code page 1252 hardly ever do, so that such a line was saved in the wrong encoding.
bool LooksLikeUtf8(std::string_view text);

}  // namespace sorvane
