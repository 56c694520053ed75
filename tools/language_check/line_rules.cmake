# Writes SOURCE, which defines LineRules() as LIST has them: the table of lines in the README of the
# language files, whose rows begin with the lines, what they say and how many characters fit.

cmake_minimum_required(VERSION 3.25)

file(STRINGS ${LIST} rows ENCODING UTF-8 REGEX "^\\| [0-9]")
foreach(row IN LISTS rows)
  if(NOT row MATCHES "^\\| ([0-9, to]+) \\| ([^|]*) \\| ([0-9]*) *\\|")
    message(FATAL_ERROR "${LIST}: not lines, what they say and how many characters fit: ${row}")
  endif()
  set(lines "${CMAKE_MATCH_1}")
  set(most "${CMAKE_MATCH_3}")
  if(CMAKE_MATCH_2 STREQUAL "mark" AND most STREQUAL "")
    continue()
  elseif(CMAKE_MATCH_2 STREQUAL "mark" OR most STREQUAL "")
    message(FATAL_ERROR "${LIST}: a mark has any length, and all else one: ${row}")
  endif()
  string(REPLACE ", " ";" spans ${lines})
  foreach(span IN LISTS spans)
    string(REGEX REPLACE "^([0-9]+)$" "\\1 to \\1" span ${span})
    string(REPLACE " to " ", " span ${span})
    list(APPEND rules "    LineRule{${span}, ${most}},\n")
  endforeach()
endforeach()
if(NOT rules)
  message(FATAL_ERROR "${LIST}: no table of lines")
endif()
list(SORT rules COMPARE NATURAL)
list(JOIN rules "" rules)

file(WRITE ${SOURCE} "// Made of the list of lines.
#include \"language_check/line_rules.h\"

#include <array>

namespace sorvane {

std::span<const LineRule> LineRules() {
  static constexpr std::array kLineRules = {
${rules}  };
  return kLineRules;
}

}  // namespace sorvane
")
