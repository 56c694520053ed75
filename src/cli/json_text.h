#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sorvane::cli {

// A text in UTF-8 as a JSON string, with its quotation marks.
std::string JsonString(std::string_view text);

// An object on one line; the members' values are JSON already.
std::string JsonObject(std::initializer_list<std::pair<std::string_view, std::string>> members);

// A list with one element a line; the elements are JSON already.
std::string JsonList(const std::vector<std::string>& elements);

// The same of texts.
std::string JsonStrings(const std::vector<std::string>& texts);

}  // namespace sorvane::cli
