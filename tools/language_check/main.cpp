#include <iostream>
#include <string>

#include "command_line/command_line.h"
#include "language_check/from_utf8.h"
#include "language_check/language_check.h"

int main(int argc, char** argv) {
  sorvane::CommandLine line("Checks the language files of a folder against one of them.");
  line.SetVersion(sorvane::CommandLine::VersionOf("SorvaneLanguages"));
  std::string folder;
  std::string reference = "Italiano";
  std::string text;
  line.AddArgument("folder", folder, "Folder with the .lng files and same-words.txt");
  line.AddOption("--reference", reference, "Name of the reference, without .lng");
  line.AddOption("--from-utf8", text,
                 "Text in UTF-8, of which the folder's .lng file of that name is made first");
  int exit_code = 0;
  if (!line.Read(argc, argv, exit_code)) return exit_code;
  if (!text.empty()) exit_code = sorvane::ConvertFromUtf8(text, folder, std::cout, std::cerr);
  return exit_code != 0 ? exit_code
                        : sorvane::ReportLanguages(folder, reference, std::cout, std::cerr);
}
