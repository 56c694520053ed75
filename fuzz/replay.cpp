#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> FilesOf(const std::filesystem::path& path) {
  if (!std::filesystem::is_directory(path)) return {path};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

// Puts inputs through a target once, in the place of libFuzzer: the files named, and those of the
// folders named. None at all is a failure, and so is a file that can't be read.
int main(int argc, char** argv) {
  int inputs = 0;
  for (int i = 1; i < argc; ++i) {
    for (const std::filesystem::path& file : FilesOf(argv[i])) {
      std::ifstream in(file, std::ios::binary);
      if (!in) {
        std::fprintf(stderr, "can't read %s\n", file.c_str());
        return 1;
      }
      const std::vector<char> chars{std::istreambuf_iterator<char>(in), {}};
      const std::vector<uint8_t> bytes(chars.begin(), chars.end());
      std::fprintf(stderr, "%s\n", file.c_str());
      LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
      ++inputs;
    }
  }
  std::fprintf(stderr, "%d inputs\n", inputs);
  return inputs == 0;
}
