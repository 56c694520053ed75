#pragma once

#include "platform/GetUSBT.h"

namespace sorvane {

// The registry of the computer.
class SystemRegistry : public RegistryReader {
 public:
  bool KeyOpens(RegistryRoot root, const std::string& key) override;
  std::optional<std::size_t> ReadValue(RegistryRoot root, const std::string& key,
                                       const std::string& value, std::span<char> buffer) override;
  uint32_t CountSubkeys(RegistryRoot root, const std::string& key) override;
  std::string SubkeyName(RegistryRoot root, const std::string& key, uint32_t number) override;
};

}  // namespace sorvane
