#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <string>

#include "language_check/language_check.h"

int main(int argc, char** argv) {
  CLI::App app{"Checks the language files of a folder against one of them."};
  app.allow_windows_style_options(false);  // a slash begins a path on every system
  std::filesystem::path folder;
  std::string reference = "Italiano";
  app.add_option("folder", folder, "Folder with the .lng files and same-words.txt")->required();
  app.add_option("--reference", reference, "Name of the reference, without .lng")
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  return sorvane::ReportLanguages(folder, reference, std::cout);
}
