#include <algorithm>

#include "cli/audit_formats.h"
#include "cli/audit_words.h"

namespace sorvane::cli {
namespace {

// Bars are drawn in user units, a tenth of which is the finest step.
constexpr uint64_t kBarTenths = 1000;
constexpr const char* kBarHeight = "10";

// On paper and on a light screen dark on white. Colours of letters have a contrast of 7 to 1 with
// what is below them, those of bars 3 to 1.
constexpr const char* kStyle = R"(
:root { color-scheme: light dark; --paper: #ffffff; --ink: #1b1f24; --faint: #4b535d;
  --rule: #c9ced6; --bar: #2f6fae; --note: #fff3cd; }
@media screen and (prefers-color-scheme: dark) {
  :root { --paper: #14171b; --ink: #e6e9ed; --faint: #b4bcc6; --rule: #3a414a; --bar: #6aa9e9;
    --note: #4a3c0b; } }
body { margin: 0; background: var(--paper); color: var(--ink);
  font: 15px/1.4 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
main { max-width: 64rem; margin: 0 auto; padding: 1rem 1.5rem 3rem; }
h1 { font-size: 1.6rem; margin: .5rem 0 1rem; }
h2 { font-size: 1.15rem; margin: 2rem 0 .5rem; }
h3 { font-size: 1rem; margin: 0 0 .3rem; }
.audit { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(100%, 24rem), 1fr));
  gap: 0 3rem; }
.audit > section { min-width: 0; }
.wide { grid-column: 1 / -1; }
.settings { columns: 19rem; column-gap: 3rem; }
.settings > section { break-inside: avoid; padding-bottom: 1.2rem; }
.table { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; }
th, td { text-align: left; padding: .2rem .7rem .2rem 0; border-bottom: 1px solid var(--rule);
  vertical-align: middle; overflow-wrap: break-word; }
th { font-weight: 400; }
thead th { color: var(--faint); font-size: .85rem; vertical-align: bottom; }
.figure { text-align: right; font-variant-numeric: tabular-nums; }
td.figure { white-space: nowrap; }
.drawn { width: 32%; min-width: 4rem; }
svg { display: block; width: 100%; height: .7rem; }
rect { fill: var(--bar); }
.notes { background: var(--note); padding: .6rem 1rem; margin: 0 0 1rem; border-radius: .3rem; }
.notes h2 { margin: 0; }
.notes ul { margin: .2rem 0; padding-left: 1.2rem; }
@media print {
  @page { margin: 15mm; }
  body { font-size: 10pt; }
  main { max-width: none; padding: 0; }
  h2, h3 { break-after: avoid; }
  tr, .notes { break-inside: avoid; }
  thead { display: table-header-group; }
  .audit { grid-template-columns: 1fr 1fr; gap: 0 2rem; }
  .table { overflow: visible; }
  .notes { border: 1px solid var(--rule); }
}
)";

// Text between tags; no attribute holds any. Characters that no page may hold turn into
// blanks.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += static_cast<unsigned char>(c) < ' ' || c == '\x7f' ? ' ' : c;
    }
  }
  return escaped;
}

std::string Element(const std::string& tag, const std::string& attributes,
                    const std::string& content) {
  return '<' + tag + (attributes.empty() ? "" : ' ' + attributes) + '>' + content + "</" + tag +
         '>';
}

struct Drawing {
  uint32_t value;
  uint32_t highest;
  std::string words;
};

// A bar as long as its share of the highest value.
std::string Bar(const Drawing& drawing) {
  const uint64_t highest = std::max<uint32_t>(drawing.highest, 1);
  const uint64_t tenths = (drawing.value * kBarTenths + highest / 2) / highest;
  const std::string width = std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
  return Element("svg", R"(role="img" viewBox="0 0 100 10" preserveAspectRatio="none")",
                 Element("title", "", Escaped(drawing.words)) + R"(<rect width=")" + width +
                     R"(" height=")" + kBarHeight + R"("/>)");
}

// Whether any cell of a column is drawn, and the highest value of those.
std::optional<uint32_t> HighestOf(const AuditTable& table, std::size_t column) {
  std::optional<uint32_t> highest;
  for (const auto& row : table.rows) {
    if (row[column].bar) highest = std::max(highest.value_or(0), *row[column].bar);
  }
  return highest;
}

std::string HeadOf(const AuditTable& table) {
  std::string cells;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const AuditColumn& column = table.columns[i];
    cells +=
        Element("th", std::string(column.figures ? R"(class="figure" )" : "") + R"(scope="col")",
                Escaped(column.heading));
    if (HighestOf(table, i)) cells += Element("td", "", "");  // a bar tells its heading itself
  }
  return Element("thead", "", Element("tr", "", cells)) + '\n';
}

std::string RowOf(const AuditTable& table, const std::vector<AuditCell>& row) {
  std::string cells = Element("th", R"(scope="row")", Escaped(row.front().text));
  for (std::size_t i = 1; i < row.size(); ++i) {
    const AuditColumn& column = table.columns[i];
    cells += Element("td", column.figures ? R"(class="figure")" : "", Escaped(row[i].text));
    const auto highest = HighestOf(table, i);
    if (!highest) continue;
    const std::string words = table.columns.front().heading + ' ' + row.front().text + ", " +
                              column.heading + ": " + row[i].text;
    cells += Element("td", R"(class="drawn")",
                     row[i].bar ? Bar({*row[i].bar, *highest, words}) : std::string());
  }
  return Element("tr", "", cells) + '\n';
}

std::string TableOf(const AuditTable& table) {
  std::string rows;
  for (const auto& row : table.rows) rows += RowOf(table, row);
  const bool headed = !table.columns.front().heading.empty();
  return Element("div", R"(class="table")",
                 Element("table", "",
                         '\n' + (headed ? HeadOf(table) : "") + Element("tbody", "", '\n' + rows) +
                             '\n')) +
         '\n';
}

std::string SectionOf(const AuditTable& table, const std::string& heading, Language language) {
  const std::string content =
      table.rows.empty() ? Element("p", "", Escaped(WordOf(Word::kNoAlarms, language))) + '\n'
                         : TableOf(table);
  return Element("section", table.wide ? R"(class="wide")" : "",
                 '\n' + Element(heading, "", Escaped(table.title)) + '\n' + content) +
         '\n';
}

std::string NotesOf(const AuditData& data, Language language) {
  if (data.remarks.empty()) return {};
  std::string items;
  for (const AuditRemark& remark : data.remarks) {
    items += Element("li", "", Escaped(RemarkOf(remark, language))) + '\n';
  }
  return Element("section", R"(class="notes")",
                 '\n' + Element("h2", "", Escaped(WordOf(Word::kRemarks, language))) + '\n' +
                     Element("ul", "", '\n' + items) + '\n') +
         '\n';
}

std::string SettingsOf(const AuditData& data, const AuditManner& manner) {
  std::string sections;
  for (const AuditTable& table : SettingTables(data, manner)) {
    sections += SectionOf(table, "h3", manner.language);
  }
  if (sections.empty()) return {};
  return Element("h2", "", Escaped(WordOf(Word::kSettings, manner.language))) + '\n' +
         Element("div", R"(class="settings")", '\n' + sections) + '\n';
}

}  // namespace

std::string AuditHtml(const AuditData& data, const AuditManner& manner) {
  const std::string title = Escaped(WordOf(Word::kAuditOfMachine, manner.language)) + ' ' +
                            std::to_string(data.origin.machine);
  std::string body = Element("h1", "", title) + '\n' + NotesOf(data, manner.language);
  std::string sections;
  for (const AuditTable& table : AuditTables(data, manner)) {
    sections += SectionOf(table, "h2", manner.language);
  }
  body += Element("div", R"(class="audit")", '\n' + sections) + '\n';
  body += SettingsOf(data, manner);
  const char* language = manner.language == Language::kItalian ? "it" : "en";
  return "<!DOCTYPE html>\n" +
         Element("html", "lang=\"" + std::string(language) + '"',
                 '\n' +
                     Element("head", "",
                             "\n<meta charset=\"utf-8\"/>\n"
                             "<meta name=\"viewport\" content=\"width=device-width\"/>\n" +
                                 Element("title", "", title) + '\n' + Element("style", "", kStyle) +
                                 '\n') +
                     '\n' + Element("body", "", '\n' + Element("main", "", '\n' + body) + '\n') +
                     '\n') +
         '\n';
}

}  // namespace sorvane::cli
