// Stands in for the sibling program: notes, in a file beside itself, the folder it is started in.
#include <windows.h>

#include <filesystem>
#include <fstream>

int main() {
  wchar_t own[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, own, MAX_PATH);
  const std::filesystem::path folder = std::filesystem::path(own).parent_path();
  std::ofstream(folder / "sibling.log", std::ios::app)
      << std::filesystem::current_path().string() << '\n';
}
