#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <string>

#include "shell/crystal.h"

int main(int argc, char** argv) {
  CLI::App app{"Writes the program's icon as sorvane-SIZE.png in all its sizes."};
  std::filesystem::path folder;
  app.add_option("folder", folder, "Folder for the pictures")->required();
  CLI11_PARSE(app, argc, argv);
  for (const int size : sorvane::kIconSizes) {
    const auto file = folder / ("sorvane-" + std::to_string(size) + ".png");
    if (!sorvane::IconImage(size).save(QString::fromStdU16String(file.u16string()))) {
      std::cerr << "can't write " << file << '\n';
      return 1;
    }
  }
  return 0;
}
