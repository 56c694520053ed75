#include "support/link_fixture.h"

#include <gtest/gtest.h>

#include <utility>

#include "link/frm_ser.h"

namespace sorvane::test {

Link::Link(std::vector<IndexRecord> parameters)
    : Link(Setup{.system = SystemRows(), .parameters = std::move(parameters), .timers = {}}) {}

Link::Link(const Setup& setup)
    : board(wire, clock),
      access(tables),
      rows_(setup.parameters),
      ser_(std::make_unique<FrmSer>(FrmSer::Outside{
          tables, wire, lamps, dialogs, setup.timers ? setup.timers(clock.Maker()) : clock.Maker(),
          folder.Path(), [this] { ++ended; }})),
      ser(*ser_) {
  SetBoardDefaults(tables);
  folder.WriteFile("W0309.inx", FirstLevelBytes(setup.system));
  folder.WriteFile("W0309AA00.inx", SecondLevelBytes(setup.parameters));
  SetSystem(12, 18);
  SetSystem(13, 53);
  SetSystem(14, 1);
  ser.on_loaded = [this] { ++loaded; };
  ser.reply_notice = [this](const Reply& reply) {
    notices.push_back(reply);
    if (on_notice) on_notice(reply);
  };
}

Link::~Link() = default;

void Link::Load() { ser.Load(); }

void Link::Connect() {
  const int before = loaded;
  Load();
  for (int ms = 0; ms < 1000 && loaded == before; ++ms) clock.Advance(ms == 0 ? 0 : 1);
  EXPECT_EQ(loaded, before + 1) << "the connection didn't come to stand";
  EXPECT_FALSE(ser.ConnectAbandoned);
  dialogs.ExpectNone();
  wire.Forget();
}

void Link::SetSystem(int number, uint8_t value) {
  board.Set(ScriptedBoard::Address(240, 0, static_cast<uint8_t>(number)), {value});
}

std::uint32_t Link::AddressOf(int parameter) const {
  const IndexRecord& row = rows_.at(static_cast<std::size_t>(parameter - 1));
  return ScriptedBoard::Address(row.address1, row.address2, row.address3);
}

void Link::SetBoard(int parameter, const Bytes& value) { board.Set(AddressOf(parameter), value); }

void Link::SetBoardNumber(int parameter, std::uint32_t value) {
  const std::size_t size = rows_.at(static_cast<std::size_t>(parameter - 1)).command % 16U + 1U;
  Bytes bytes;
  for (std::size_t i = 0; i < size; ++i, value /= 256) {
    bytes.push_back(static_cast<uint8_t>(value % 256));
  }
  EXPECT_EQ(value, 0U) << "parameter " << parameter << " is too small for the value";
  SetBoard(parameter, bytes);
}

Bytes Link::BoardValue(int parameter) const { return board.Get(AddressOf(parameter)); }

Bytes Link::Value(int parameter) {
  const ParameterRecord& record = Record(parameter);
  Bytes bytes;
  for (int i = 0; i <= record.At(3) % 16; ++i) bytes.push_back(record.At(8 + i));
  return bytes;
}

}  // namespace sorvane::test
