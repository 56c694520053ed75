#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sorvane {

enum class RegistryRoot { kDynData, kLocalMachine };

// Windows' registry, opened for reading only. Keys are paths below a root; all texts are in the
// western single-byte set.
class RegistryReader {
 public:
  virtual ~RegistryReader() = default;

  virtual bool KeyOpens(RegistryRoot root, const std::string& key) = 0;

  // Fills buffer with a value and returns the length that the registry reports for it; none if the
  // key doesn't open, the value is missing or the buffer is too small.
  virtual std::optional<std::size_t> ReadValue(RegistryRoot root, const std::string& key,
                                               const std::string& value,
                                               std::span<char> buffer) = 0;

  virtual uint32_t CountSubkeys(RegistryRoot root, const std::string& key) = 0;

  // number counts from 0; empty if it can't be read.
  virtual std::string SubkeyName(RegistryRoot root, const std::string& key, uint32_t number) = 0;
};

// The name of the port that the driver of the USB adapter has given to its first device, such as
// "COM5"; empty if none is known. Whether the adapter is plugged in isn't looked at. Throws
// RuntimeError kSubscriptOutOfRange where the list of devices opens and is empty.
std::string FindUsbPort(RegistryReader& registry);

// A value as it was read: buffer cut to the reported length, and less a zero byte at its end.
std::string CutRegistryText(std::string_view buffer, std::size_t length);

// The names of a key's subkeys, in the registry's order.
std::vector<std::string> ListSubkeys(RegistryReader& registry, RegistryRoot root,
                                     const std::string& key);

}  // namespace sorvane
