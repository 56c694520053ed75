#include "cli/hex_text.h"

namespace sorvane::cli {
namespace {

constexpr std::string_view kDigits = "0123456789abcdef";

}  // namespace

std::string HexText(const Bytes& bytes, std::string_view between) {
  std::string text;
  for (const uint8_t byte : bytes) {
    if (!text.empty()) text += between;
    text += {kDigits[byte / 16], kDigits[byte % 16]};
  }
  return text;
}

std::optional<Bytes> BytesOfHex(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  Bytes bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const std::size_t high = kDigits.find(text[i]);
    const std::size_t low = kDigits.find(text[i + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    bytes.push_back(static_cast<uint8_t>(high * 16 + low));
  }
  return bytes;
}

}  // namespace sorvane::cli
