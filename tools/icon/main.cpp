#include <filesystem>
#include <iostream>
#include <string>

#include "command_line/command_line.h"
#include "shell/frame/crystal.h"

int main(int argc, char** argv) {
  sorvane::CommandLine line("Writes the program's icon as sorvane-SIZE.png in all its sizes.");
  line.SetVersion(sorvane::CommandLine::VersionOf("SorvaneIcon"));
  std::string folder;
  line.AddArgument("folder", folder, "Folder for the pictures");
  int exit_code = 0;
  if (!line.Read(argc, argv, exit_code)) return exit_code;
  for (const int size : sorvane::kIconSizes) {
    const auto file = std::filesystem::path(folder) / ("sorvane-" + std::to_string(size) + ".png");
    if (!sorvane::IconImage(size).save(QString::fromStdU16String(file.u16string()))) {
      std::cerr << "can't write " << file << '\n';
      return 1;
    }
  }
  return 0;
}
