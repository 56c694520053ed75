#include <exception>
#include <filesystem>
#include <iostream>

#include "simulator/board_loop.h"
#include "simulator/command_error.h"
#include "simulator/options.h"

// What the program ends with where its command line, or a file that this names, can't be read.
constexpr int kUsageError = 2;

int main(int argc, char** argv) {
  using namespace sorvane::simulator;
  try {
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    int exit_code = 0;
    const auto options = ReadOptions(argc, argv, folder, exit_code);
    if (!options) return exit_code;
    BoardLoop(*options).Run();
  } catch (const CommandError& error) {
    std::cerr << "SorvaneBoard: " << error.what() << std::endl;
    return kUsageError;
  } catch (const std::exception& error) {
    std::cerr << "SorvaneBoard: " << error.what() << std::endl;
    return 1;
  }
  return 0;
}
