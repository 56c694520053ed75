#include "link/frm_ser.h"

#include <exception>
#include <utility>

#include "board/errors.h"
#include "board/index_file.h"

namespace sorvane {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kTick{40};
constexpr milliseconds kIdentifyLimit{2000};
constexpr milliseconds kAtOnce{0};

// The link opens this port whatever the user chose: the choice is shown and saved only.
constexpr int kCommPort = 1;

}  // namespace

MessageBox IndexFileBox(const std::string& name) {
  return {name + " not found !", "ERROR", kCriticalIcon};
}

FrmSer::FrmSer(Outside outside)
    : out_(std::move(outside)),
      sweep_(state_, out_.tables, reply_notice),
      engine_(state_, out_.tables, out_.port, out_.lamps, sweep_, out_.make_timer),
      timer1_(out_.make_timer(kTick, [this] { OnTick(); })),
      timer5_(out_.make_timer(kIdentifyLimit, [this] { OnIdentifyTimeout(); })),
      step_(out_.make_timer(kAtOnce, [this] { OnStep(); })) {
  out_.port.on_comm = [this](int comm_event) {
    if (IsLoaded()) engine_.ReceiveReply(comm_event);
  };
  engine_.on_line_free = [this] { Post(); };
  engine_.on_port_lost = [this] { PortLost(); };
}

void FrmSer::Load() {
  if (IsLoaded()) return;
  state_.RetryCount = 0;
  state_.Identifying = true;
  stage_ = Stage::kOpening;
  Post();
}

void FrmSer::Unload() {
  if (!IsLoaded()) return;
  stage_ = Stage::kUnloaded;
  timer1_->Disable();
  timer5_->Disable();
  step_->Disable();
  engine_.Stop();
  out_.port.Close();
  state_.Identifying = false;
}

void FrmSer::Post() { step_->Restart(); }

void FrmSer::OnStep() {
  step_->Disable();
  switch (stage_) {
    case Stage::kOpening:
      if (!LoadStep([this] { OpenPort(); })) return;
      if (ConnectAbandoned) return;
      ConnectBoard();
      return;
    case Stage::kWaiting:
      if (state_.LinkIdle || state_.IdentifyTimeout) Guarded([this] { EndWait(); });
      return;
    case Stage::kUnloaded:
    case Stage::kBox:
    case Stage::kStanding:
      return;
    case Stage::kLoading:
      LoadSecondLevelFile();
  }
}

void FrmSer::OnTick() {
  timer1_->Disable();
  if (state_.LinkIdle && sweep_.SweepStep()) engine_.SendFrame();
  timer1_->Enable();
}

void FrmSer::OnIdentifyTimeout() {
  state_.IdentifyTimeout = true;
  if (stage_ == Stage::kWaiting) Post();
}

void FrmSer::OpenPort() {
  if (out_.port.PortOpen()) return;
  try {
    out_.port.SetCommPort(kCommPort);
    out_.port.Open();
  } catch (const RuntimeError&) {
    ShowPortError();
  }
}

void FrmSer::PortLost() {
  // While a box stands, Retry opens the port once more.
  if (stage_ != Stage::kBox) ShowPortError();
}

void FrmSer::ShowPortError() {
  ConnectAbandoned = true;
  stage_ = Stage::kBox;
  out_.dialogs.Show({"Error com", "ERROR ", kCriticalIcon}, [this](Answer) {
    if (IsLoaded()) on_loaded();
  });
}

void FrmSer::ConnectBoard() {
  Guarded([this] {
    index_name_.clear();
    LoadFirstLevel(out_.tables, out_.folder);
    asked_ = 0;
    AskSystemParameter();
  });
}

void FrmSer::AskSystemParameter() {
  const SystemRecord& record =
      out_.tables.SystemTable(Identification::kAsked[asked_], out_.tables.BoardIndex);
  state_.ExchangeAddress3 = record.At(position::kAddress3);
  state_.ExchangeAddress2 = record.At(position::kAddress2);
  state_.ExchangeCommand = record.At(position::kCommand);
  state_.ExchangeAddress1 = record.At(position::kAddress1);
  state_.ExchangeValue = {record.At(position::kAddress1)};
  // One value byte counts, whatever the command's low nibble says.
  state_.ExchangeSize = 0;
  state_.ReplyValue.clear();
  state_.IdentifyTimeout = false;
  stage_ = Stage::kWaiting;
  timer5_->Restart();
  engine_.SendFrame();
}

void FrmSer::EndWait() {
  const int board = out_.tables.BoardIndex;
  if (!state_.ReplyValue.empty()) {
    out_.tables.BoardPresent(board) = true;
    TakeSystemParameter(state_.ReplyValue.front());
    return;
  }
  stage_ = Stage::kBox;
  const MessageBox box{"Board Not Ready\nCheck serial !", "Serial",
                       kExclamationIcon + kRetryCancel};
  out_.dialogs.Show(box, [this](Answer answer) {
    if (!IsLoaded()) return;
    if (answer == Answer::kCancel) {
      ConnectAbandoned = true;
      on_loaded();
    } else {
      Guarded([this] { AskAgain(); });
    }
  });
}

// A device that has vanished behind the box swallows the question until it is opened again.
void FrmSer::AskAgain() {
  try {
    if (out_.port.Vanished()) out_.port.Close();
    if (!out_.port.PortOpen()) out_.port.Open();
  } catch (const RuntimeError&) {
    ShowPortError();
    return;
  }
  AskSystemParameter();
}

void FrmSer::TakeSystemParameter(uint8_t value) {
  identification_.Take(out_.tables, Identification::kAsked[asked_], value);
  if (++asked_ < Identification::kAsked.size()) {
    AskSystemParameter();
    return;
  }
  const std::string refusal = identification_.Refusal(out_.tables, out_.tables.BoardSoftwareNumber);
  if (!refusal.empty()) {
    ShowAndEnd({refusal, "ERROR", kCriticalIcon});
    return;
  }
  stage_ = Stage::kLoading;
  Post();
}

void FrmSer::LoadSecondLevelFile() {
  bool loaded = false;
  Guarded([&] {
    LoadSecondLevel(out_.tables, out_.folder, index_name_);
    engine_.StopReplyTimeout();
    out_.tables.BoardIndex = 0;
    out_.lamps.SetLinkLamp(lamp::kErrorOff);
    loaded = true;
  });
  if (loaded) FinishLoad();
}

void FrmSer::FinishLoad() {
  state_.Identifying = false;
  state_.LinkIdle = true;
  if (!LoadStep([this] { timer1_->Enable(); })) return;
  stage_ = Stage::kStanding;
  on_loaded();
}

void FrmSer::Guarded(const std::function<void()>& step) {
  try {
    step();
  } catch (const InternalFault&) {
    throw;
  } catch (const std::exception&) {  // also for want of memory
    ShowAndEnd(IndexFileBox(index_name_));
  }
}

bool FrmSer::LoadStep(const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const RuntimeError& error) {
    // A file that is there already is no reason to stop: the load goes on behind the failed step.
    if (error.Code() == ErrorCode::kFileAlreadyExists) return true;
    const bool new_board =
        error.Code() == ErrorCode::kFileNotFound && out_.tables.RecordCount(0) != 0;
    // The error is cleared by the time the title is built, so that its number is always 0.
    ShowAndEnd(
        {new_board ? "New Board\nOld Program" : "Reinstall Program", "ERROR  0", kCriticalIcon});
    return false;
  }
}

void FrmSer::ShowAndEnd(const MessageBox& box) {
  stage_ = Stage::kBox;
  out_.dialogs.ShowLast(box, [this] {
    if (IsLoaded()) out_.end_program();
  });
}

}  // namespace sorvane
