#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "board/reply.h"

namespace sorvane::cli {

// Two lower-case hexadecimal digits for each byte, with a text between the bytes.
std::string HexText(const Bytes& bytes, std::string_view between = "");

// The bytes of a text of such digits without anything between; none where it isn't one.
std::optional<Bytes> BytesOfHex(std::string_view text);

}  // namespace sorvane::cli
