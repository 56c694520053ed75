#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>

#include "platform/GetUSBT.h"
#include "support/run_time_errors.h"

namespace sorvane {
namespace {

using test::ErrorOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr RegistryRoot kDyn = RegistryRoot::kDynData;
constexpr RegistryRoot kMachine = RegistryRoot::kLocalMachine;
constexpr char kDevices[] = "Config Manager\\Enum";

// A registry in memory. Texts are stored with a zero byte behind them, as Windows does.
class FakeRegistry : public RegistryReader {
 public:
  bool KeyOpens(RegistryRoot root, const std::string& key) override {
    return root == kDyn && key == kDevices && has_devices_;
  }

  std::optional<std::size_t> ReadValue(RegistryRoot root, const std::string& key,
                                       const std::string& value, std::span<char> buffer) override {
    EXPECT_EQ(buffer.size(), 255U);
    reads_.push_back(key);
    const auto found = values_.find({root, key, value});
    if (found == values_.end() || found->second.size() > buffer.size()) return std::nullopt;
    std::ranges::copy(found->second, buffer.begin());
    return found->second.size();
  }

  uint32_t CountSubkeys(RegistryRoot, const std::string&) override {
    return static_cast<uint32_t>(devices_.size());
  }

  std::string SubkeyName(RegistryRoot, const std::string&, uint32_t number) override {
    return devices_[number];
  }

  void HasDevices() { has_devices_ = true; }
  void AddDevice(const std::string& name, const std::string& hardware) {
    has_devices_ = true;
    devices_.push_back(name);
    if (!hardware.empty()) Set(kDyn, "Config Manager\\Enum\\" + name, "HardWareKey", hardware);
  }
  void Set(RegistryRoot root, const std::string& key, const std::string& value,
           const std::string& text) {
    values_[{root, key, value}] = text + '\0';
  }
  void SetNtDevice(const std::string& device, const std::string& port) {
    Set(kMachine, "SYSTEM\\CurrentControlSet\\Services\\FTSER2K\\Enum\\", "0", device);
    Set(kMachine, "SYSTEM\\CurrentControlSet\\Enum\\" + device + "\\Device Parameters", "PortName",
        port);
  }

  const std::vector<std::string>& Reads() const { return reads_; }

 private:
  bool has_devices_ = false;
  std::vector<std::string> devices_;
  std::map<std::tuple<RegistryRoot, std::string, std::string>, std::string> values_;
  std::vector<std::string> reads_;
};

TEST(FindUsbPort, AnEmptyRegistryHasNoPort) {
  FakeRegistry registry;
  EXPECT_EQ(FindUsbPort(registry), "");
}

TEST(FindUsbPort, TheOlderLayoutGivesThePortOfTheDriversDevice) {
  FakeRegistry registry;
  registry.AddDevice("C1", "PCI\\VEN_8086\\0");
  registry.AddDevice("C2", "FTDIBUS\\VID_0403\\0000");
  registry.Set(kMachine, "Enum\\FTDIBUS\\VID_0403\\0000", "PortName", "COM5");
  EXPECT_EQ(FindUsbPort(registry), "COM5");
}

TEST(FindUsbPort, TheOlderLayoutGoesBeforeTheNewer) {
  FakeRegistry registry;
  registry.AddDevice("C1", "FTDIBUS\\X");
  registry.Set(kMachine, "Enum\\FTDIBUS\\X", "PortName", "COM5");
  registry.SetNtDevice("FTDIBUS\\Y", "COM7");
  EXPECT_EQ(FindUsbPort(registry), "COM5");
}

TEST(FindUsbPort, TheDriversNameCountsAnywhereInTheValue) {
  FakeRegistry registry;
  registry.AddDevice("C1", "USB\\FTDIBUS");
  registry.Set(kMachine, "Enum\\USB\\FTDIBUS", "PortName", "COM6");
  EXPECT_EQ(FindUsbPort(registry), "COM6");
}

TEST(FindUsbPort, OnlyTheDriversFirstDeviceIsLookedAt) {
  FakeRegistry registry;
  registry.AddDevice("C1", "FTDIBUS\\first");
  registry.AddDevice("C2", "FTDIBUS\\second");
  registry.Set(kMachine, "Enum\\FTDIBUS\\second", "PortName", "COM6");
  EXPECT_EQ(FindUsbPort(registry), "");
}

TEST(FindUsbPort, AFailedReadOfADeviceGoesOnWithTheNext) {
  FakeRegistry registry;
  registry.AddDevice("C1", "");
  registry.AddDevice("C2", "FTDIBUS\\X");
  registry.Set(kMachine, "Enum\\FTDIBUS\\X", "PortName", "COM5");
  EXPECT_EQ(FindUsbPort(registry), "COM5");
}

TEST(FindUsbPort, AnEmptySubkeyNameEndsTheList) {
  FakeRegistry registry;
  registry.AddDevice("C1", "PCI\\0");
  registry.AddDevice("", "");
  registry.AddDevice("C3", "FTDIBUS\\X");
  registry.Set(kMachine, "Enum\\FTDIBUS\\X", "PortName", "COM5");
  EXPECT_EQ(FindUsbPort(registry), "");
}

TEST(FindUsbPort, WithoutTheDriversDeviceTheNewerLayoutIsAsked) {
  FakeRegistry registry;
  registry.AddDevice("C1", "PCI\\0");
  registry.SetNtDevice("FTDIBUS\\Y", "COM7");
  EXPECT_EQ(FindUsbPort(registry), "COM7");
}

TEST(FindUsbPort, WithoutAPortNameInTheOlderLayoutTheNewerIsAsked) {
  FakeRegistry registry;
  registry.AddDevice("C1", "FTDIBUS\\X");
  registry.SetNtDevice("FTDIBUS\\Y", "COM7");
  EXPECT_EQ(FindUsbPort(registry), "COM7");
}

TEST(FindUsbPort, AnOlderLayoutWithoutSubkeysIsASubscriptError) {
  FakeRegistry registry;
  registry.HasDevices();
  registry.SetNtDevice("FTDIBUS\\Y", "COM7");
  EXPECT_EQ(ErrorOf([&] { FindUsbPort(registry); }), ErrorCode::kSubscriptOutOfRange);
}

TEST(FindUsbPort, TheNewerLayoutGivesThePortOfTheDriversFirstDevice) {
  FakeRegistry registry;
  registry.SetNtDevice("FTDIBUS\\VID_0403+PID_6001+A1\\0000", "COM12");
  EXPECT_EQ(FindUsbPort(registry), "COM12");
}

TEST(FindUsbPort, TheNewerLayoutWithoutADeviceAsksNoFurther) {
  FakeRegistry registry;
  FindUsbPort(registry);
  EXPECT_THAT(registry.Reads(),
              ElementsAre("SYSTEM\\CurrentControlSet\\Services\\FTSER2K\\Enum\\"));
}

TEST(FindUsbPort, TheNewerLayoutWithoutAPortNameHasNoPort) {
  FakeRegistry registry;
  registry.Set(kMachine, "SYSTEM\\CurrentControlSet\\Services\\FTSER2K\\Enum\\", "0", "X");
  EXPECT_EQ(FindUsbPort(registry), "");
}

TEST(FindUsbPort, AValueLongerThanTheBufferCountsAsEmpty) {
  FakeRegistry registry;
  registry.SetNtDevice(std::string(255, 'X'), "COM7");
  EXPECT_EQ(FindUsbPort(registry), "");
}

TEST(FindUsbPort, AValueAsLongAsTheBufferIsRead) {
  FakeRegistry registry;
  registry.SetNtDevice(std::string(254, 'X'), "COM7");
  EXPECT_EQ(FindUsbPort(registry), "COM7");
}

TEST(CutRegistryText, CutsToTheReportedLength) {
  EXPECT_EQ(CutRegistryText("COM5garbage", 4), "COM5");
}

TEST(CutRegistryText, DropsOneZeroByteAtTheEnd) {
  EXPECT_EQ(CutRegistryText(std::string_view("COM5\0\0\0", 7), 5), "COM5");
  EXPECT_EQ(CutRegistryText(std::string_view("COM5\0\0\0", 7), 6), std::string("COM5\0", 5));
}

TEST(CutRegistryText, NothingStaysNothing) { EXPECT_EQ(CutRegistryText("garbage", 0), ""); }

TEST(ListSubkeys, GivesTheNamesInTheRegistrysOrder) {
  FakeRegistry registry;
  registry.AddDevice("C2", "");
  registry.AddDevice("C1", "");
  EXPECT_THAT(ListSubkeys(registry, kDyn, kDevices), ElementsAre("C2", "C1"));
}

TEST(ListSubkeys, AKeyWithoutSubkeysHasNone) {
  FakeRegistry registry;
  EXPECT_THAT(ListSubkeys(registry, kDyn, kDevices), IsEmpty());
}

}  // namespace
}  // namespace sorvane
