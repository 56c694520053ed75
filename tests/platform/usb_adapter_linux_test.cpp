#include "platform/usb_adapter_linux.h"

#include <gtest/gtest.h>

#include "support/index_files.h"

namespace sorvane::test {
namespace {

class UsbAdapterTest : public ::testing::Test {
 protected:
  void AddDevice(const std::string& name, const std::string& driver = "ftdi_sio") {
    std::filesystem::create_directories(sys_.Path() / "bus/usb-serial/drivers" / driver / name);
  }
  std::string Find() const { return FindUsbPortLinux(sys_.Path()); }

  TempFolder sys_;
};

TEST_F(UsbAdapterTest, WithoutTheDriverThereIsNoPort) { EXPECT_EQ(Find(), ""); }

TEST_F(UsbAdapterTest, WithoutDevicesThereIsNoPort) {
  AddDevice("module");
  AddDevice("new_id");
  EXPECT_EQ(Find(), "");
}

TEST_F(UsbAdapterTest, TheFirstDeviceIsPort5) {
  AddDevice("ttyUSB0");
  EXPECT_EQ(Find(), "COM5");
}

TEST_F(UsbAdapterTest, LaterDevicesCountOn) {
  AddDevice("ttyUSB7");
  EXPECT_EQ(Find(), "COM12");
}

TEST_F(UsbAdapterTest, OfSeveralDevicesTheLowestNumberGoesFirst) {
  AddDevice("ttyUSB10");
  AddDevice("ttyUSB2");
  EXPECT_EQ(Find(), "COM7");
}

TEST_F(UsbAdapterTest, TheOrderOfTheListingDoesNotMatter) {
  for (int number = 40; number >= 11; --number) AddDevice("ttyUSB" + std::to_string(number));
  EXPECT_EQ(Find(), "COM16");
}

TEST_F(UsbAdapterTest, OtherDriversDevicesDoNotCount) {
  AddDevice("ttyUSB0", "pl2303");
  EXPECT_EQ(Find(), "");
}

TEST_F(UsbAdapterTest, NamesWithoutAPlainNumberDoNotCount) {
  for (const char* name : {"ttyUSB", "ttyUSBx", "ttyUSB1a", "ttyUSB-1", "ttyACM0"}) AddDevice(name);
  EXPECT_EQ(Find(), "");
}

}  // namespace
}  // namespace sorvane::test
