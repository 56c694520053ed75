#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "cli/workshop.h"

namespace sorvane::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct Lists : testing::Test, Workshop {};

TEST_F(Lists, AllNamesAreListedWithWhatTheyTake) {
  EXPECT_EQ(Type({"names"}), 0);
  const auto lines = static_cast<std::size_t>(std::ranges::count(out, '\n'));
  EXPECT_EQ(lines, catalogue.Entries().size() + catalogue.Bits().size());
  EXPECT_THAT(out,
              HasSubstr("motor.timeout                 general    motor timeout                  "
                        "       5 to 25 seconds\n"));
  EXPECT_THAT(out, HasSubstr("on or off\n"));
}

TEST_F(Lists, AGroupIsListedByItself) {
  EXPECT_EQ(Type({"names", "tokens"}), 0);
  EXPECT_THAT(out, StartsWith("token.1  "));
  EXPECT_EQ(std::ranges::count(out, '\n'), 3);
  EXPECT_EQ(Type({"names", "drinks"}), 2);
  EXPECT_THAT(err, HasSubstr("no group is called drinks\n"));
}

TEST_F(Lists, NamesAreJsonOnRequest) {
  EXPECT_EQ(Type({"names", "tokens", "--json"}), 0);
  EXPECT_THAT(out, StartsWith("{\"names\": [\n  {\"name\": \"token.1\", \"group\": \"tokens\", "));
}

TEST_F(Lists, PortsAreListed) {
  ports = {{"/dev/ttyS0", ""}, {"/dev/ttyUSB0", "/dev/serial/by-id/usb-1"}};
  EXPECT_EQ(Type({"ports"}), 0);
  EXPECT_EQ(out, "/dev/ttyS0\n/dev/ttyUSB0  /dev/serial/by-id/usb-1\n");
  EXPECT_EQ(Type({"ports", "--json"}), 0);
  EXPECT_THAT(out, HasSubstr("{\"name\": \"/dev/ttyS0\", \"words\": \"\"}"));
}

TEST_F(Lists, AComputerWithoutPortsSaysSo) {
  EXPECT_EQ(Type({"ports"}), 3);
  EXPECT_EQ(err, "no serial port\n");
}

TEST_F(Lists, AResultGoesToTheFileThatIsNamed) {
  EXPECT_EQ(Type({"names", "tokens", "-o", File("names.txt")}), 0);
  EXPECT_EQ(out, "");
  EXPECT_THAT(TextOf("names.txt"), StartsWith("token.1"));
}

}  // namespace
}  // namespace sorvane::test
