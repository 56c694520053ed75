#pragma once

#include <filesystem>

#include "simulator/bytes.h"
#include "simulator/request_reader.h"

namespace sorvane::simulator {

// A folder of its own with index files of a small plan, removed at the end: 18 system parameters
// of one byte at the addresses 1, 0 and their number, and 419 parameters whose address is 32 and
// their number, high byte first. Revision 7 has the addresses 33 and the number, and one parameter
// more.
class IndexFolder {
 public:
  IndexFolder();
  ~IndexFolder();
  IndexFolder(const IndexFolder&) = delete;
  IndexFolder& operator=(const IndexFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline constexpr int kParameters = 419;
inline constexpr int kSystemParameters = 18;

// Bytes of a parameter's value in these files.
int SizeOf(int parameter);

// The requests that reach a parameter of revision 0 and a system parameter, and the frames of them.
Request ReadOf(int parameter);
Request WriteOf(int parameter, const Bytes& value);
Bytes ReadFrame(int parameter);
Bytes WriteFrame(int parameter, const Bytes& value);

}  // namespace sorvane::simulator
