#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include "link/frm_ser.h"
#include "link/link_state.h"
#include "support/link_fixture.h"

namespace sorvane::test {

// What the board is asked, in order: system parameters 1, 17, 11, 12, 13, 14, 18.
inline const std::array<Bytes, 7> kQuestions = {{{0, 240, 0, 1, 241},
                                                 {0, 240, 0, 17, 1},
                                                 {0, 240, 0, 11, 251},
                                                 {0, 240, 0, 12, 252},
                                                 {0, 240, 0, 13, 253},
                                                 {0, 240, 0, 14, 254},
                                                 {0, 240, 0, 18, 2}}};
// What a board that fits answers.
inline const std::array<uint8_t, 7> kAnswers = {9, 0, 0, 18, 53, 1, 5};

// The test speaks in the board's place, unless it switches the board on.
struct IdentificationTest : ::testing::Test {
  IdentificationTest() { link.board.SwitchOff(); }

  void Start() {
    link.Load();
    link.clock.Advance(0);
  }
  // The board answers one value, and what is posted runs.
  void Reply(uint8_t value) {
    link.board.Reply({value, value});
    link.clock.Advance(0);
  }
  // Answers the first questions of a connection.
  void ReplyTo(std::size_t questions) {
    for (std::size_t i = 0; i < questions; ++i) {
      link.wire.Expect(kQuestions[i]);
      Reply(kAnswers[i]);
    }
  }
  void ExpectNotReady() { link.dialogs.Expect("Board Not Ready\nCheck serial !", "Serial", 53); }
  const LinkState& State() const { return link.ser.State(); }

  Link link{PlainRows(3)};
};

}  // namespace sorvane::test
