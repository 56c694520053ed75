#pragma once

#include <cstdint>
#include <functional>

#include "board/board_tables.h"
#include "board/reply.h"
#include "link/link_state.h"

namespace sorvane {

// Walks over the parameter table, turns its marks into one exchange at a time, and lays the replies
// into the table.
class Sweep {
 public:
  // reply_notice tells every open page; it may be set later.
  Sweep(LinkState& state, BoardTables& tables, std::function<void(const Reply&)>& reply_notice)
      : state_(state), tables_(tables), reply_notice_(reply_notice) {}

  // Walks on to the next record that is due and fills the exchange values from it, or to the end of
  // the table. Returns whether there is a frame to send. The tick calls it while the line is free.
  // The record that the walk stopped at stays the current one until StoreReply moves on. The file's
  // last record is never reached.
  bool SweepStep();

  // Ends an exchange: lays ReplyValue into the current record and tells the pages, moves on, and
  // frees the line. An empty ReplyValue stores nothing. Throws InternalFault for a reply on a
  // polled record that no page ever watched or wrote.
  void StoreReply();

 private:
  // The first record from position on that is polled, in one quick walk; RecordCount, or position
  // if that is more, where there is none.
  int32_t NextPolled(int32_t position) const;

  void FillExchange(ParameterRecord& record);
  bool StoreInRecord(ParameterRecord& record) const;

  LinkState& state_;
  BoardTables& tables_;
  std::function<void(const Reply&)>& reply_notice_;
};

}  // namespace sorvane
