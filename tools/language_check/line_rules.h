#pragma once

#include <cstddef>
#include <span>

namespace sorvane {

// What holds for the lines `first` to `last` of a language file, counted from 1.
struct LineRule {
  int first;
  int last;
  std::size_t most_characters;  // room in the label, tab, title or menu that shows the line
};

// The rules in rising order of lines. Every line that the program shows lies in one of them; the
// lines in between are the marks that divide a file into its sections.
std::span<const LineRule> LineRules();

// Nothing for a line that the program doesn't show.
const LineRule* RuleOfLine(int line);

}  // namespace sorvane
