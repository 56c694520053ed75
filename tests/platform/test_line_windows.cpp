#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/test_line.h"

namespace sorvane::test {
namespace {

// A port that is open for the time of its life, used by plain calls of Windows that wait for their
// end.
class RawPort {
 public:
  explicit RawPort(const wchar_t* path)
      : port_(CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0,
                          nullptr)) {
    DCB line{};
    line.DCBlength = sizeof line;
    EXPECT_TRUE(GetCommState(port_, &line));
    line.BaudRate = CBR_19200;
    line.ByteSize = 8;
    line.Parity = NOPARITY;
    line.StopBits = ONESTOPBIT;
    line.fBinary = TRUE;
    line.fOutX = FALSE;
    line.fInX = FALSE;
    EXPECT_TRUE(SetCommState(port_, &line));
    COMMTIMEOUTS none{};
    EXPECT_TRUE(SetCommTimeouts(port_, &none));
    EXPECT_TRUE(PurgeComm(port_, PURGE_RXCLEAR | PURGE_TXCLEAR));
  }
  ~RawPort() { CloseHandle(port_); }
  RawPort(const RawPort&) = delete;
  RawPort& operator=(const RawPort&) = delete;

  void Write(const void* bytes, std::size_t count) {
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(port_, bytes, static_cast<DWORD>(count), &written, nullptr));
    EXPECT_EQ(written, count);
  }

  // Waits until that many bytes have come.
  Bytes Read(std::size_t count) {
    Bytes bytes(count);
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(port_, bytes.data(), static_cast<DWORD>(count), &read, nullptr));
    EXPECT_EQ(read, count);
    return bytes;
  }

  std::size_t Count() {
    DWORD errors = 0;
    COMSTAT state{};
    EXPECT_TRUE(ClearCommError(port_, &errors, &state));
    return state.cbInQue;
  }

 private:
  HANDLE port_;
};

}  // namespace

// The board is at COM2. By COM3 the script that runs this program is asked for what happens to the
// device of COM1; serial_lines.py tells the words.
struct TestLine::Ends {
  std::string Ask(const std::string& word) {
    const std::string line = word + '\n';
    script.Write(line.data(), line.size());
    std::string answer;
    while (!answer.ends_with('\n')) answer += static_cast<char>(script.Read(1).front());
    answer.pop_back();
    return answer;
  }

  RawPort script{L"\\\\.\\COM3"};
  RawPort board{L"\\\\.\\COM2"};
  std::filesystem::path no_folder;
};

TestLine::TestLine() : ends_(std::make_unique<Ends>()) { Replace(); }
TestLine::~TestLine() = default;

const std::filesystem::path& TestLine::Folder() const { return ends_->no_folder; }

void TestLine::Send(const Bytes& bytes) { ends_->board.Write(bytes.data(), bytes.size()); }

Bytes TestLine::Take() {
  const std::size_t count = ends_->board.Count();
  return count > 0 ? ends_->board.Read(count) : Bytes();
}

std::string TestLine::Settings() { return ends_->Ask("settings"); }
int TestLine::CountArrived() { return std::stoi(ends_->Ask("arrived")); }
bool TestLine::IsOpen() { return ends_->Ask("open") == "yes"; }
void TestLine::HoldAlone() { ends_->Ask("hold"); }
void TestLine::Vanish() { ends_->Ask("vanish"); }
void TestLine::Replace() {
  ends_->Ask("replace");
  Take();
}
void TestLine::Remove() { ends_->Ask("remove"); }
void TestLine::PutFile() { ends_->Ask("file"); }

}  // namespace sorvane::test
