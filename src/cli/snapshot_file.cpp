#include "cli/snapshot_file.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <system_error>

#include "board/errors.h"
#include "cli/failure.h"
#include "texts/save_file.h"

namespace sorvane::cli {
namespace {

constexpr std::uintmax_t kLargest = std::uintmax_t{4} << 20;

[[noreturn]] void Fail(const std::filesystem::path& file, const std::string& reason) {
  throw Failure(ExitCode::kUsage, file.string() + ": " + reason);
}

}  // namespace

std::string FindingLines(const std::filesystem::path& file, const std::vector<Finding>& findings) {
  std::string lines;
  for (const Finding& finding : findings) {
    lines += (lines.empty() ? "" : "\n") + file.string() + ':' + std::to_string(finding.line) +
             ": " + finding.words;
  }
  return lines;
}

Snapshot ReadSnapshot(const std::filesystem::path& file, const Catalogue& catalogue) {
  ParsedSnapshot parsed = ParseSnapshot(FileText(file), catalogue);
  if (!parsed.findings.empty()) {
    throw Failure(ExitCode::kUsage, FindingLines(file, parsed.findings));
  }
  return std::move(parsed.snapshot);
}

std::string FileText(const std::filesystem::path& file) {
  std::error_code error;
  // Asked before the file is opened: opening a pipe would wait for its other end.
  if (!std::filesystem::is_regular_file(file, error)) Fail(file, "no such file");
  if (std::filesystem::file_size(file, error) > kLargest) Fail(file, "too large for a snapshot");
  std::ifstream in(file, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) Fail(file, "can't be read");
  return text;
}

void WriteOwnFile(const std::filesystem::path& file, std::string_view text) {
  try {
    SaveFile(file, text, Readers::kOwner);
  } catch (const RuntimeError&) {
    Fail(file, "can't be written");
  }
}

}  // namespace sorvane::cli
