#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

#include "board/errors.h"
#include "texts/save_file.h"

namespace sorvane {
namespace {

constexpr int kMostLinks = 40;  // as many as the system follows

[[noreturn]] void Fail() { throw RuntimeError(ErrorCode::kFileAccess); }

// What a file is over all its links; there needn't be one at the end.
std::filesystem::path Target(std::filesystem::path file) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(file, error); ++i) {
    file = file.parent_path() / std::filesystem::read_symlink(file, error);
  }
  return file;
}

// A file that is open for writing, or none.
class OutFile {
 public:
  OutFile(const std::filesystem::path& file, int flags, mode_t mode = 0)
      : number_(open(file.c_str(), O_WRONLY | O_CLOEXEC | flags, mode)) {}
  ~OutFile() {
    if (number_ >= 0) close(number_);
  }
  OutFile(const OutFile&) = delete;
  OutFile& operator=(const OutFile&) = delete;

  int Number() const { return number_; }

  // Returns when the disk holds the text. The file is cut behind it only then: what fails on the
  // way leaves as much as can be of an old content.
  bool Write(std::string_view text) const {
    const auto size = static_cast<off_t>(text.size());
    while (!text.empty()) {
      const ssize_t written = write(number_, text.data(), text.size());
      if (written <= 0) return false;
      text.remove_prefix(static_cast<std::size_t>(written));
    }
    return ftruncate(number_, size) == 0 && fsync(number_) == 0;
  }

 private:
  int number_;
};

// Whether the last error says that this can't be done here, rather than that it went wrong.
bool IsRefused() { return errno == EACCES || errno == EPERM || errno == EROFS || errno == EBUSY; }

constexpr mode_t kOwnersRights = 0600;

// Writes a new file, with the owner and the rights of an old one, if any.
bool WriteAnew(const std::filesystem::path& file, const struct stat* old, std::string_view text,
               Readers readers) {
  const bool own = readers == Readers::kOwner;
  const OutFile out(file, O_CREAT | O_EXCL, old != nullptr || own ? kOwnersRights : 0666);
  if (out.Number() < 0) return false;
  const mode_t rights = own || old == nullptr ? kOwnersRights : old->st_mode & 07777;
  const bool alike = old == nullptr || (fchown(out.Number(), old->st_uid, old->st_gid) == 0 &&
                                        fchmod(out.Number(), rights) == 0);
  return alike && out.Write(text);
}

// Puts a new file in the place of target; old is what stands there, if anything. Returns false
// where no other file can take its place.
bool Replace(const std::filesystem::path& target, const struct stat* old, std::string_view text,
             Readers readers) {
  const std::filesystem::path beside =
      target.parent_path() / (".saving-" + std::to_string(getpid()));
  unlink(beside.c_str());  // of a program that was killed over it
  const bool written =
      WriteAnew(beside, old, text, readers) && std::rename(beside.c_str(), target.c_str()) == 0;
  if (written) return true;
  const bool refused = IsRefused();
  unlink(beside.c_str());
  if (!refused) Fail();
  return false;
}

}  // namespace

void SaveFile(const std::filesystem::path& file, std::string_view text, Readers readers) {
  const std::filesystem::path target = Target(file);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) Fail();
  const bool writable =
      S_ISREG(old.st_mode) && faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0;
  if (exists && !writable) Fail();
  if (Replace(target, exists ? &old : nullptr, text, readers)) return;
  const OutFile out(target, 0);
  if (out.Number() < 0) Fail();
  if (readers == Readers::kOwner && fchmod(out.Number(), kOwnersRights) != 0) Fail();
  if (!out.Write(text)) Fail();
}

}  // namespace sorvane
