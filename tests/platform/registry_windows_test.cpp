#include "platform/registry_windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "platform/usb_adapter.h"
#include "support/run_time_errors.h"

namespace sorvane::test {
namespace {

using ::testing::ElementsAre;

constexpr RegistryRoot kDyn = RegistryRoot::kDynData;
constexpr RegistryRoot kMachine = RegistryRoot::kLocalMachine;
constexpr char kOwn[] = "Software\\SorvaneTest";
constexpr char kOldDevices[] = "Config Manager\\Enum";
constexpr char kDriver[] = "SYSTEM\\CurrentControlSet\\Services\\FTSER2K";
constexpr char kNtDevices[] = "SYSTEM\\CurrentControlSet\\Enum\\FTDIBUS";

HKEY Handle(RegistryRoot root) { return root == kDyn ? HKEY_DYN_DATA : HKEY_LOCAL_MACHINE; }

// The registry of the Wine prefix, without the keys that the tests write.
class RegistryTest : public ::testing::Test {
 protected:
  RegistryTest() { Clear(); }
  ~RegistryTest() override { Clear(); }

  static HKEY Make(RegistryRoot root, const std::string& key) {
    HKEY made = nullptr;
    EXPECT_EQ(RegCreateKeyExA(Handle(root), key.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &made, nullptr),
              ERROR_SUCCESS)
        << key;
    return made;
  }

  static void AddKey(RegistryRoot root, const std::string& key) { RegCloseKey(Make(root, key)); }

  // Sets a value to the bytes of a text, without a zero byte behind it.
  static void SetBytes(RegistryRoot root, const std::string& key, const std::string& value,
                       const std::string& bytes) {
    const HKEY made = Make(root, key);
    // Windows looks one byte further and takes a zero byte along.
    const std::string with_rest = bytes + "rest";
    EXPECT_EQ(RegSetValueExA(made, value.c_str(), 0, REG_SZ,
                             reinterpret_cast<const BYTE*>(with_rest.data()),
                             static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    RegCloseKey(made);
  }

  static void Set(RegistryRoot root, const std::string& key, const std::string& value,
                  const std::string& text) {
    SetBytes(root, key, value, text + '\0');
  }

  // The value "Value" of the tests' own key, as it lies in the buffer; none if it can't be read.
  std::optional<std::string> Read(const std::string& value = "Value") {
    std::array<char, 255> buffer{};
    const auto length = registry_.ReadValue(kMachine, kOwn, value, buffer);
    return length ? std::optional<std::string>({buffer.data(), *length}) : std::nullopt;
  }

  SystemRegistry registry_;

 private:
  static void Clear() {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kOwn);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Enum");
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kDriver);
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kNtDevices);
    RegDeleteTreeA(HKEY_DYN_DATA, kOldDevices);
  }
};

TEST_F(RegistryTest, AKeyThatIsThereOpens) {
  AddKey(kMachine, kOwn);
  EXPECT_TRUE(registry_.KeyOpens(kMachine, kOwn));
}

TEST_F(RegistryTest, AMissingKeyDoesNotOpen) {
  EXPECT_FALSE(registry_.KeyOpens(kMachine, kOwn));
  EXPECT_FALSE(registry_.KeyOpens(kDyn, kOldDevices));
}

TEST_F(RegistryTest, EachRootHasKeysOfItsOwn) {
  AddKey(kDyn, kOldDevices);
  EXPECT_TRUE(registry_.KeyOpens(kDyn, kOldDevices));
  EXPECT_FALSE(registry_.KeyOpens(kMachine, kOldDevices));
}

TEST_F(RegistryTest, AValueIsReadWithTheZeroByteBehindIt) {
  Set(kMachine, kOwn, "Value", "COM5");
  EXPECT_EQ(Read(), std::string("COM5\0", 5));
}

TEST_F(RegistryTest, AValueWithoutAZeroByteIsReadAsItIs) {
  SetBytes(kMachine, kOwn, "Value", "COM5");
  EXPECT_EQ(Read(), "COM5");
}

TEST_F(RegistryTest, AMissingValueIsNotRead) {
  AddKey(kMachine, kOwn);
  EXPECT_EQ(Read(), std::nullopt);
}

TEST_F(RegistryTest, AValueOfAMissingKeyIsNotRead) { EXPECT_EQ(Read(), std::nullopt); }

TEST_F(RegistryTest, AnEmptyValueIsRead) {
  Set(kMachine, kOwn, "Value", "");
  EXPECT_EQ(Read(), std::string(1, '\0'));
}

TEST_F(RegistryTest, AValueThatFillsTheBufferIsRead) {
  Set(kMachine, kOwn, "Value", std::string(254, 'x'));
  EXPECT_EQ(Read(), std::string(254, 'x') + '\0');
  SetBytes(kMachine, kOwn, "Value", std::string(255, 'x'));
  EXPECT_EQ(Read(), std::string(255, 'x'));
}

TEST_F(RegistryTest, AValueThatIsLongerThanTheBufferIsNotRead) {
  Set(kMachine, kOwn, "Value", std::string(255, 'x'));
  EXPECT_EQ(Read(), std::nullopt);
  Set(kMachine, kOwn, "Value", std::string(1000, 'x'));
  EXPECT_EQ(Read(), std::nullopt);
}

TEST_F(RegistryTest, SubkeysAreCountedAndNamed) {
  AddKey(kMachine, kOwn);
  EXPECT_EQ(registry_.CountSubkeys(kMachine, kOwn), 0U);
  AddKey(kMachine, std::string(kOwn) + "\\A");
  AddKey(kMachine, std::string(kOwn) + "\\" + std::string(100, 'b'));
  EXPECT_EQ(registry_.CountSubkeys(kMachine, kOwn), 2U);
  EXPECT_THAT(ListSubkeys(registry_, kMachine, kOwn), ElementsAre("A", std::string(100, 'b')));
}

TEST_F(RegistryTest, AMissingSubkeyHasNoName) {
  AddKey(kMachine, std::string(kOwn) + "\\A");
  EXPECT_EQ(registry_.SubkeyName(kMachine, kOwn, 1), "");
}

TEST_F(RegistryTest, AMissingKeyHasNoSubkeys) {
  EXPECT_EQ(registry_.CountSubkeys(kMachine, kOwn), 0U);
  EXPECT_EQ(registry_.SubkeyName(kMachine, kOwn, 0), "");
}

class SystemUsbPortTest : public RegistryTest {
 protected:
  static void SetNtDevice(const std::string& device) {
    Set(kMachine, std::string(kDriver) + "\\Enum", "0", device);
  }
  static void SetNtPort(const std::string& device, const std::string& port) {
    Set(kMachine, "SYSTEM\\CurrentControlSet\\Enum\\" + device + "\\Device Parameters", "PortName",
        port);
  }
  static void SetOldDevice(const std::string& subkey, const std::string& hardware) {
    Set(kDyn, std::string(kOldDevices) + "\\" + subkey, "HardWareKey", hardware);
  }
  static void SetOldPort(const std::string& hardware, const std::string& port) {
    Set(kMachine, "Enum\\" + hardware, "PortName", port);
  }
};

TEST_F(SystemUsbPortTest, WithoutTheDriverThereIsNone) { EXPECT_EQ(FindSystemUsbPort(), ""); }

TEST_F(SystemUsbPortTest, IsThatOfTheDriversFirstDevice) {
  SetNtDevice("FTDIBUS\\VID_0403+PID_6001+A1\\0000");
  SetNtPort("FTDIBUS\\VID_0403+PID_6001+A1\\0000", "COM12");
  EXPECT_EQ(FindSystemUsbPort(), "COM12");
}

TEST_F(SystemUsbPortTest, IsMissingWhereTheDeviceHasNoPort) {
  SetNtDevice("FTDIBUS\\X");
  EXPECT_EQ(FindSystemUsbPort(), "");
}

TEST_F(SystemUsbPortTest, IsThatOfTheOlderLayoutFirst) {
  SetOldDevice("C1", "PCI\\VEN_8086");
  SetOldDevice("C2", "FTDIBUS\\X");
  SetOldPort("FTDIBUS\\X", "COM5");
  SetNtDevice("FTDIBUS\\Y");
  SetNtPort("FTDIBUS\\Y", "COM7");
  EXPECT_EQ(FindSystemUsbPort(), "COM5");
}

TEST_F(SystemUsbPortTest, IsThatOfTheNewerLayoutWhereTheOlderKnowsNone) {
  SetOldDevice("C1", "PCI\\VEN_8086");
  SetNtDevice("FTDIBUS\\Y");
  SetNtPort("FTDIBUS\\Y", "COM7");
  EXPECT_EQ(FindSystemUsbPort(), "COM7");
}

TEST_F(SystemUsbPortTest, AnOlderLayoutWithoutDevicesIsASubscriptError) {
  AddKey(kDyn, kOldDevices);
  EXPECT_EQ(ErrorOf([] { FindSystemUsbPort(); }), ErrorCode::kSubscriptOutOfRange);
}

}  // namespace
}  // namespace sorvane::test
