#include <sstream>

#include "cli/hex_text.h"
#include "cli/json_text.h"
#include "cli/snapshot_file.h"

namespace sorvane::cli {
namespace {

constexpr std::size_t kNumberBytes = 4;

std::string RawText(const Bytes& raw) {
  return raw.size() > kNumberBytes ? JsonString(HexText(raw)) : std::to_string(NumberOf(raw));
}

}  // namespace

std::string SnapshotText(const Snapshot& snapshot) {
  std::ostringstream text;
  text << "{\n"
       << "  \"format\": 1,\n"
       << "  \"time\": " << JsonString(snapshot.time) << ",\n"
       << "  \"program\": " << JsonString(snapshot.program) << ",\n"
       << "  \"type\": " << snapshot.type << ",\n"
       << "  \"software\": " << snapshot.software << ",\n"
       << "  \"revision\": " << snapshot.revision << ",\n"
       << "  \"index\": " << JsonString(snapshot.index_file) << ",\n"
       << "  \"index-sha256\": " << JsonString(snapshot.index_sum) << ",\n"
       << "  \"machine\": " << snapshot.machine << ",\n"
       << "  \"location\": " << snapshot.location << ",\n"
       << "  \"decimals\": " << snapshot.decimals << ",\n"
       << "  \"complete\": " << (snapshot.complete ? "true" : "false") << ",\n"
       << "  \"values\": [";
  const char* between = "\n";
  for (const HeldValue& value : snapshot.values) {
    text << between << "    {\"number\": " << value.number
         << ", \"name\": " << JsonString(value.name) << ", \"size\": " << value.raw.size()
         << ", \"raw\": " << RawText(value.raw) << ", \"shown\": " << JsonString(value.shown)
         << '}';
    between = ",\n";
  }
  text << "\n  ]\n}\n";
  return std::move(text).str();
}

}  // namespace sorvane::cli
