#include <iostream>
#include <string>

#include "command_line/command_line.h"
#include "language_check/language_check.h"

int main(int argc, char** argv) {
  sorvane::CommandLine line("Checks the language files of a folder against one of them.");
  std::string folder;
  std::string reference = "Italiano";
  line.AddArgument("folder", folder, "Folder with the .lng files and same-words.txt");
  line.AddOption("--reference", reference, "Name of the reference, without .lng");
  int exit_code = 0;
  if (!line.Read(argc, argv, exit_code)) return exit_code;
  return sorvane::ReportLanguages(folder, reference, std::cout, std::cerr);
}
