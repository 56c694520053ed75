#include "texts/line_reader.h"

#include <system_error>

#include "board/errors.h"

namespace sorvane {
namespace {

constexpr auto kEnd = std::ifstream::traits_type::eof();

}  // namespace

LineReader::LineReader(const std::filesystem::path& file) {
  std::error_code error;
  // Asked before the file is opened: opening a pipe would wait for its other end.
  if (std::filesystem::is_regular_file(file, error)) in_.open(file, std::ios::binary);
  if (!in_.is_open()) throw RuntimeError(ErrorCode::kFileNotFound);
}

bool LineReader::AtEnd() {
  const bool end = in_.peek() == kEnd;
  if (in_.bad()) throw RuntimeError(ErrorCode::kFileNotFound);
  return end;
}

std::string LineReader::ReadLine() {
  if (AtEnd()) throw RuntimeError(ErrorCode::kInputPastEnd);
  std::string line;
  while (!AtEnd()) {
    const auto c = static_cast<char>(in_.get());
    if (c == '\r' && in_.peek() == '\n') in_.get();
    if (c == '\r' || c == '\n') break;
    if (line.size() == kLongestLine) throw RuntimeError(ErrorCode::kOverflow);
    line += c;
  }
  return line;
}

}  // namespace sorvane
