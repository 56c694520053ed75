#include "simulator/index_folder.h"

#include <stdlib.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace sorvane::simulator {
namespace {

struct SizeRow {
  int first;
  int last;
  int size;
};

// What is not listed has one byte.
constexpr SizeRow kSizes[] = {
    {9, 9, 3},     {10, 10, 2},   {12, 21, 16},  {23, 52, 2},   {73, 75, 2},
    {81, 83, 2},   {90, 95, 2},   {279, 287, 4}, {288, 352, 2}, {367, 369, 2},
    {375, 377, 2}, {383, 388, 2}, {391, 400, 2},
};

// The default of all records: 7, and 0 for the bytes above.
void WriteRecord(std::ofstream& file, int address1, int number, int size, bool with_default) {
  for (const int byte : {number & 255, number >> 8, size - 1, 0, address1}) {
    file.put(static_cast<char>(byte));
  }
  if (with_default) file.write("\x07\0\0\0", 4);
}

void WriteParameters(const std::filesystem::path& path, int address1, int count) {
  std::ofstream file(path, std::ios::binary);
  for (int i = 1; i <= count; ++i) WriteRecord(file, address1, i, SizeOf(i), true);
}

uint8_t Sum(const Bytes& bytes) {
  unsigned sum = 0;
  for (const uint8_t byte : bytes) sum += byte;
  return static_cast<uint8_t>(sum & 255u);
}

Bytes Header(int command, int parameter) {
  return {static_cast<uint8_t>(command + SizeOf(parameter) - 1), 32,
          static_cast<uint8_t>(parameter >> 8), static_cast<uint8_t>(parameter & 255)};
}

}  // namespace

IndexFolder::IndexFolder() {
  std::string name = std::filesystem::temp_directory_path() / "board-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for index files");
  path_ = name;
  std::ofstream system(path_ / "W0309.inx", std::ios::binary);
  for (int i = 1; i <= kSystemParameters; ++i) WriteRecord(system, 1, i, 1, false);
  WriteParameters(path_ / "W0309AA00.inx", 32, kParameters);
  WriteParameters(path_ / "W0309AA07.inx", 33, kParameters + 1);
}

IndexFolder::~IndexFolder() { std::filesystem::remove_all(path_); }

int SizeOf(int parameter) {
  for (const SizeRow& row : kSizes) {
    if (parameter >= row.first && parameter <= row.last) return row.size;
  }
  return 1;
}

Bytes ReadFrame(int parameter) {
  Bytes frame = Header(0, parameter);
  frame.push_back(Sum(frame));
  return frame;
}

Bytes WriteFrame(int parameter, const Bytes& value) {
  Bytes frame = Header(128, parameter);
  frame.insert(frame.end(), value.begin(), value.end());
  frame.push_back(Sum(frame));
  return frame;
}

Request ReadOf(int parameter) {
  const Bytes frame = ReadFrame(parameter);
  return {false, {frame[1], frame[2], frame[3]}, SizeOf(parameter), {}, frame.back()};
}

Request WriteOf(int parameter, const Bytes& value) {
  const Bytes frame = WriteFrame(parameter, value);
  return {true, {frame[1], frame[2], frame[3]}, SizeOf(parameter), value, frame.back()};
}

}  // namespace sorvane::simulator
