#include "platform/pseudo_terminal.h"
#include "platform/test_line.h"
#include "support/index_files.h"

namespace sorvane::test {

struct TestLine::Ends {
  Ends() { LinkTo(terminal->Device()); }

  void LinkTo(const std::filesystem::path& device) const {
    const std::filesystem::path link = folder.Path() / "COM1";
    std::filesystem::remove(link);
    std::filesystem::create_symlink(device, link);
  }

  TempFolder folder;
  std::unique_ptr<PseudoTerminal> terminal = std::make_unique<PseudoTerminal>();
};

TestLine::TestLine() : ends_(std::make_unique<Ends>()) {}
TestLine::~TestLine() = default;

const std::filesystem::path& TestLine::Folder() const { return ends_->folder.Path(); }

void TestLine::Send(const Bytes& bytes) { ends_->terminal->Send(bytes); }
Bytes TestLine::Take() { return ends_->terminal->Take(); }
std::string TestLine::Settings() { return ends_->terminal->Settings(); }
int TestLine::CountArrived() { return ends_->terminal->CountArrived(); }
bool TestLine::IsOpen() { return ends_->terminal->IsOpen(); }
void TestLine::HoldAlone() { ends_->terminal->SetExclusive(); }
void TestLine::Vanish() { ends_->terminal->Vanish(); }

void TestLine::Replace() {
  ends_->terminal = std::make_unique<PseudoTerminal>();
  ends_->LinkTo(ends_->terminal->Device());
}

void TestLine::Remove() { ends_->LinkTo("/dev/pts/missing"); }

void TestLine::PutFile() {
  ends_->folder.WriteFile("file", {});
  ends_->LinkTo("file");
}

}  // namespace sorvane::test
