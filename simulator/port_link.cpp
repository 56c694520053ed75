#include "simulator/port_link.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "simulator/terminal.h"

namespace sorvane::simulator {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProcesses = "/proc/";

// Where the link leads while the cable is unplugged: a place where there is never anything. The old
// terminal's name would not do, since the system gives it to the next one who asks.
constexpr const char* kNowhere = "/dev/pts/unplugged";

// While it lives, other boards and guards leave the links of the same folder alone. They do without
// in a folder that can't be locked.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& link)
      : folder_(open((link.parent_path() / ".").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    flock(folder_.Number(), LOCK_EX);
  }

 private:
  const Descriptor folder_;
};

// None if no link stands there.
std::optional<fs::path> TargetOf(const fs::path& place) {
  std::error_code error;
  fs::path target = fs::read_symlink(place, error);
  if (error) return std::nullopt;
  return target;
}

bool IsThere(const fs::path& place) {
  std::error_code error;
  return fs::exists(fs::symlink_status(place, error));
}

// Whether a board has made the link, be it a killed one.
bool IsOfABoard(const fs::path& target) {
  return target.native().starts_with(kProcesses) || target == kNowhere;
}

}  // namespace

PortLink::PortLink(fs::path path)
    : path_(std::move(path)),
      kept_(path_.native() + ".before"),
      fresh_(path_.native() + "." + std::to_string(getpid())),
      root_(kProcesses + std::to_string(getpid()) + "/../.."),
      guard_([this] { GiveBack(); }) {}

std::string PortLink::PointTo(const fs::path& terminal) { return Point(root_ + terminal.native()); }

std::string PortLink::PointNowhere() { return Point(kNowhere); }

std::string PortLink::Point(const fs::path& target) {
  const FolderLock lock(path_);
  const auto replaced = TargetOf(path_);
  if (replaced && !IsOfABoard(*replaced)) Put(*replaced, kept_);
  Put(target, path_);

  if (replaced && IsOwn(*replaced)) return {};
  const bool of_another = replaced && IsOfABoard(*replaced);
  const auto kept = TargetOf(kept_);
  std::string words = "line " + path_.string();
  if (of_another) words += " led to another board";
  if (of_another && kept) words += " and";
  if (kept) words += " will lead to " + kept->string() + " again at the end";
  return of_another || kept ? words : std::string();
}

std::string PortLink::GiveBack() {
  const FolderLock lock(path_);
  std::error_code error;
  fs::remove(fresh_, error);  // left there if it couldn't be moved
  const auto standing = TargetOf(path_);
  const auto kept = TargetOf(kept_);
  if (standing ? !IsOwn(*standing) : IsThere(path_)) {
    // A link that the technician has made meanwhile counts more than the one before.
    if (kept && standing && !IsOfABoard(*standing)) fs::remove(kept_, error);
    return {};
  }
  if (!kept) {
    fs::remove(path_, error);
    return {};
  }
  fs::rename(kept_, path_, error);
  if (error) return {};
  return "line " + path_.string() + " leads to " + kept->string() + " again";
}

// Made beside its place and moved, so that there is no moment without a link.
void PortLink::Put(const fs::path& target, const fs::path& place) const {
  if (IsThere(place) && !TargetOf(place)) {
    throw std::runtime_error(place.string() + " is there and is no link");
  }
  fs::create_symlink(target, fresh_);
  fs::rename(fresh_, place);
}

bool PortLink::IsOwn(const fs::path& target) const {
  return target.native().starts_with(root_) || target == kNowhere;
}

}  // namespace sorvane::simulator
