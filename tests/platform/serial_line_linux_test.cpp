#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "platform/serial_port_fixture.h"

// A pseudo-terminal stands for a serial line, but its driver keeps the receiver on, the bits of a
// byte at 8 and parity off, whatever it is told. So these tests stand between the program and the
// system where the settings of a line are read and set.
namespace sorvane::test {
namespace {

// A line as another program may have left it, with everything set that mustn't be.
termios LineOfAnother() {
  termios line{};
  line.c_iflag = IXON | IXOFF | ICRNL | ISTRIP | PARMRK;
  line.c_oflag = OPOST | ONLCR;
  line.c_cflag = CS7 | PARENB | PARODD | CSTOPB | CRTSCTS;
  line.c_lflag = ICANON | ECHO | ISIG;
  cfsetspeed(&line, B9600);
  return line;
}

struct SeenLine {
  bool found = false;           // its settings have been read
  std::optional<termios> made;  // what the program has set
};
SeenLine* seen = nullptr;

template <typename Function>
Function* OfTheSystem(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace
}  // namespace sorvane::test

extern "C" int tcgetattr(int device, termios* line) noexcept {
  using sorvane::test::seen;
  if (seen == nullptr || seen->found) {
    return sorvane::test::OfTheSystem<int(int, termios*)>("tcgetattr")(device, line);
  }
  seen->found = true;
  *line = sorvane::test::LineOfAnother();
  return 0;
}

// A read that finds the end leaves the error of an earlier call as it is; here this is always one
// that asks to wait.
extern "C" ssize_t read(int device, void* bytes, size_t size) {
  const ssize_t count =
      sorvane::test::OfTheSystem<ssize_t(int, void*, size_t)>("read")(device, bytes, size);
  if (count == 0) errno = EAGAIN;
  return count;
}

extern "C" int tcsetattr(int device, int when, const termios* line) noexcept {
  if (sorvane::test::seen != nullptr) sorvane::test::seen->made = *line;
  return sorvane::test::OfTheSystem<int(int, int, const termios*)>("tcsetattr")(device, when, line);
}

namespace sorvane::test {
namespace {

// A device that has hung up reads as an end. Here the character that ends an input stands for it.
TEST_F(SerialPortTest, AnEndOfTheInputIsALoss) {
  port_->Open();
  const int device = open((line_.Folder() / "COM1").c_str(), O_RDWR | O_NOCTTY);
  termios words{};
  tcgetattr(device, &words);
  words.c_lflag |= ICANON;
  words.c_cc[VEOF] = 4;
  tcsetattr(device, TCSANOW, &words);
  close(device);
  line_.Send({4});
  EXPECT_TRUE(RunUntil([&] { return !line_.IsOpen(); }));
}

class SerialLineTest : public SerialPortTest {
 protected:
  SerialLineTest() {
    seen = &line;
    port_->Open();
    seen = nullptr;
  }
  bool Has(tcflag_t flags, tcflag_t mask) const { return (flags & mask) != 0; }

  SeenLine line;
};

TEST_F(SerialLineTest, TheReceiverIsOnAndNoModemIsWaitedFor) {
  ASSERT_TRUE(line.found && line.made);
  EXPECT_TRUE(Has(line.made->c_cflag, CREAD));
  EXPECT_TRUE(Has(line.made->c_cflag, CLOCAL));
}

TEST_F(SerialLineTest, AByteHasEightBitsNoParityAndOneStopBit) {
  ASSERT_TRUE(line.found && line.made);
  EXPECT_EQ(line.made->c_cflag & CSIZE, tcflag_t{CS8});
  EXPECT_FALSE(Has(line.made->c_cflag, PARENB));
  EXPECT_FALSE(Has(line.made->c_cflag, CSTOPB));
  EXPECT_EQ(cfgetispeed(&*line.made), speed_t{B19200});
  EXPECT_EQ(cfgetospeed(&*line.made), speed_t{B19200});
}

TEST_F(SerialLineTest, NoHandshakeAndNoByteThatIsChangedOnItsWay) {
  ASSERT_TRUE(line.found && line.made);
  EXPECT_FALSE(Has(line.made->c_cflag, CRTSCTS));
  EXPECT_FALSE(Has(line.made->c_iflag, IXON | IXOFF | ICRNL | ISTRIP | PARMRK));
  EXPECT_FALSE(Has(line.made->c_oflag, OPOST));
  EXPECT_FALSE(Has(line.made->c_lflag, ICANON | ECHO | ISIG));
}

}  // namespace
}  // namespace sorvane::test
