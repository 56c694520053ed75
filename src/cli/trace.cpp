#include "cli/trace.h"

#include <algorithm>
#include <utility>

#include "board/record.h"
#include "cli/failure.h"
#include "cli/hex_text.h"
#include "cli/snapshot.h"

namespace sorvane::cli {
namespace {

constexpr std::size_t kAddressBytes = 4;  // the command and the address
constexpr uint8_t kWriteBit = 128;

std::string_view Words(TryOutcome outcome) {
  switch (outcome) {
    case TryOutcome::kGood:
      return "";
    case TryOutcome::kSilent:
      return " [no answer]";
    case TryOutcome::kWrongAnswer:
      return " [wrong answer]";
    case TryOutcome::kLost:
      break;
  }
  return " [line lost]";
}

// The bytes of a frame from the given one on are masked.
std::string Masked(const Bytes& bytes, std::size_t from) {
  std::string text = HexText(
      {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(from, bytes.size()))},
      " ");
  for (std::size_t i = from; i < bytes.size(); ++i) text += text.empty() ? "**" : " **";
  return text;
}

}  // namespace

Trace::Trace(const std::filesystem::path& file, const Catalogue& catalogue, const Session& session,
             std::function<QDateTime()> now)
    : catalogue_(catalogue),
      session_(session),
      now_(std::move(now)),
      file_(file),
      out_(file, std::ios::binary | std::ios::trunc) {
  CheckWhole();
}

void Trace::CheckWhole() const {
  if (!out_) throw Failure(ExitCode::kUsage, file_.string() + ": can't be written");
}

void Trace::Tell(const Bytes& sent, const Bytes& received, TryOutcome outcome) {
  const Subject subject = SubjectOf(sent);
  const bool write = (sent.front() & kWriteBit) != 0;
  const std::string time = now_().toString(Qt::ISODateWithMs).toStdString();
  out_ << time << " > " << Masked(sent, subject.secret && write ? kAddressBytes : sent.size())
       << "  " << (write ? "write " : "read ") << subject.name << '\n'
       << time << " < " << Masked(received, subject.secret ? 0 : received.size()) << Words(outcome)
       << '\n'
       << std::flush;
}

Trace::Subject Trace::SubjectOf(const Bytes& sent) const {
  const Address address{.command = static_cast<uint8_t>(sent[0] & ~kWriteBit),
                        .address1 = sent[1],
                        .address2 = sent[2],
                        .address3 = sent[3]};
  const int32_t number = session_.ParameterAt(address);
  if (number == 0) {
    return {.name = "system parameter " + std::to_string(session_.SystemParameterAt(address))};
  }
  const CatalogueEntry* entry = catalogue_.Find(number);
  if (entry != nullptr) return {.name = entry->name, .secret = entry->role == Role::kSecret};
  entry = catalogue_.FindByMirror(number);
  if (entry == nullptr) return {.name = "parameter " + std::to_string(number)};
  return {.name = MirrorName(*entry), .secret = entry->role == Role::kSecret};
}

}  // namespace sorvane::cli
