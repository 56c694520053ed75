#include <iostream>
#include <string>
#include <vector>

#include "command_line/command_line.h"
#include "index_compiler/commands.h"

int main(int argc, char** argv) {
  sorvane::CommandLine line(
      "Translates between readable tables and index files (.inx), and checks tables.");
  line.SetVersion(sorvane::CommandLine::VersionOf("SorvaneIndex"));
  std::string table;
  std::string index_file;
  std::string names;
  std::vector<std::string> tables;
  int level = 0;

  auto& compile = line.AddCommand("compile", "Write the index file of a table");
  compile.AddArgument("table", table, "The table");
  compile.AddArgument("index", index_file, "The index file to write");

  auto& decompile = line.AddCommand("decompile", "Write the table of an index file");
  decompile.AddArgument("index", index_file, "The index file");
  decompile.AddArgument("table", table, "The table to write");
  decompile.AddRequiredNumber("--level", level, {.least = 1, .most = 2},
                              "1 for system parameters, 2 for parameters");
  decompile.AddOption("--names", names, "A table to take names and remarks from");

  auto& check = line.AddCommand("check", "Tell all errors of tables");
  check.AddArguments("tables", tables, "The tables");

  int exit_code = 0;
  if (!line.Read(argc, argv, exit_code)) return exit_code;
  if (compile.IsChosen()) return sorvane::CompileTable(table, index_file, std::cerr);
  if (decompile.IsChosen()) {
    return sorvane::DecompileIndex(index_file, level, names, table, std::cerr);
  }
  return sorvane::CheckTables({tables.begin(), tables.end()}, std::cerr);
}
