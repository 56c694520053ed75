#include <algorithm>

#include "cli/audit_formats.h"
#include "cli/audit_words.h"

namespace sorvane::cli {
namespace {

constexpr std::size_t kGap = 2;

std::size_t WidthOf(const AuditTable& table, std::size_t column) {
  std::size_t width = table.columns[column].heading.size();
  for (const auto& row : table.rows) width = std::max(width, row[column].text.size());
  return width;
}

// A line of texts below each other; figures at the right, and no blanks at the end.
std::string Line(const AuditTable& table, const std::vector<std::string>& texts) {
  std::string line;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string blanks(WidthOf(table, i) - texts[i].size(), ' ');
    line +=
        std::string(kGap, ' ') + (table.columns[i].figures ? blanks + texts[i] : texts[i] + blanks);
  }
  return line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
}

std::string TableText(const AuditTable& table) {
  std::string text = table.title + '\n';
  std::vector<std::string> headings;
  headings.reserve(table.columns.size());
  for (const AuditColumn& column : table.columns) headings.push_back(column.heading);
  if (!headings.front().empty()) text += Line(table, headings);
  for (const auto& row : table.rows) {
    std::vector<std::string> texts;
    texts.reserve(row.size());
    for (const AuditCell& cell : row) texts.push_back(cell.text);
    text += Line(table, texts);
  }
  if (table.rows.empty()) text += std::string(kGap, ' ') + "none\n";
  return text;
}

}  // namespace

std::string AuditText(const AuditData& data, char mark) {
  std::string text;
  for (const AuditTable& table : AuditTables(data, {.mark = mark})) {
    text += (text.empty() ? "" : "\n") + TableText(table);
  }
  for (const AuditRemark& remark : data.remarks) {
    text += "\nNote: " + RemarkOf(remark, Language::kEnglish) + ".\n";
  }
  return text;
}

}  // namespace sorvane::cli
