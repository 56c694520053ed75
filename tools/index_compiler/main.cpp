#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "index_compiler/commands.h"

int main(int argc, char** argv) {
  CLI::App app{"Translates between readable tables and index files (.inx), and checks tables."};
  app.allow_windows_style_options(false);  // a slash begins a path on every system
  app.require_subcommand(1);
  std::string table;
  std::string index_file;
  std::string names;
  std::vector<std::string> tables;
  int level = 0;

  CLI::App* const compile = app.add_subcommand("compile", "Write the index file of a table");
  compile->add_option("table", table, "The table")->required();
  compile->add_option("index", index_file, "The index file to write")->required();

  CLI::App* const decompile = app.add_subcommand("decompile", "Write the table of an index file");
  decompile->add_option("index", index_file, "The index file")->required();
  decompile->add_option("table", table, "The table to write")->required();
  decompile->add_option("--level", level, "1 for system parameters, 2 for parameters")
      ->required()
      ->check(CLI::Range(1, 2));
  decompile->add_option("--names", names, "A table to take names and remarks from");

  CLI::App* const check = app.add_subcommand("check", "Tell all errors of tables");
  check->add_option("tables", tables, "The tables")->required();

  CLI11_PARSE(app, argc, argv);
  if (compile->parsed()) return sorvane::CompileTable(table, index_file, std::cerr);
  if (decompile->parsed()) {
    return sorvane::DecompileIndex(index_file, level, names, table, std::cerr);
  }
  return sorvane::CheckTables({tables.begin(), tables.end()}, std::cerr);
}
