#include "cli/json_text.h"

#include <array>

namespace sorvane::cli {

std::string JsonString(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      quoted += {'\\', c};
    } else if (byte < ' ') {
      quoted += {'\\', 'u', '0', '0', kDigits[byte / 16], kDigits[byte % 16]};
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

std::string JsonObject(std::initializer_list<std::pair<std::string_view, std::string>> members) {
  std::string text = "{";
  for (const auto& [name, value] : members) {
    text += (text.size() == 1 ? "" : ", ") + JsonString(name) + ": " + value;
  }
  return text + '}';
}

std::string JsonList(const std::vector<std::string>& elements) {
  std::string text = "[";
  for (const std::string& element : elements) {
    text += (text.size() == 1 ? "\n  " : ",\n  ") + element;
  }
  return text + "\n]";
}

std::string JsonStrings(const std::vector<std::string>& texts) {
  std::vector<std::string> elements;
  elements.reserve(texts.size());
  for (const std::string& text : texts) elements.push_back(JsonString(text));
  return JsonList(elements);
}

}  // namespace sorvane::cli
