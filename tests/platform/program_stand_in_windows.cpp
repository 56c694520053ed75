// Stands in for a program that is started: tells, in the file "said" beside itself, how. While
// there is a file "hold" beside it, it waits before.
#include <windows.h>

#include <filesystem>
#include <fstream>

int main() {
  wchar_t own[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, own, MAX_PATH);
  const std::filesystem::path folder = std::filesystem::path(own).parent_path();

  constexpr int kMostWaits = 3000;
  for (int i = 0; i < kMostWaits && std::filesystem::exists(folder / "hold"); ++i) Sleep(10);

  STARTUPINFOW start{};
  GetStartupInfoW(&start);
  const bool shown = (start.dwFlags & STARTF_USESHOWWINDOW) != 0;
  std::ofstream(folder / "saying") << std::filesystem::current_path().string() << '\n'
                                   << (shown ? start.wShowWindow : -1) << '\n';
  std::filesystem::rename(folder / "saying", folder / "said");
}
