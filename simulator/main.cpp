#include <exception>
#include <filesystem>
#include <iostream>

#include "simulator/board_loop.h"
#include "simulator/options.h"

int main(int argc, char** argv) {
  using namespace sorvane::simulator;
  try {
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    int exit_code = 0;
    const auto options = ReadOptions(argc, argv, folder, exit_code);
    if (!options) return exit_code;
    BoardLoop(*options).Run();
  } catch (const std::exception& error) {
    std::cerr << "SorvaneBoard: " << error.what() << std::endl;
    return 1;
  }
  return 0;
}
