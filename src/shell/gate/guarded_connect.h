#pragma once

#include <QObject>
#include <type_traits>
#include <utility>

#include "shell/gate/program_gate.h"

namespace sorvane {

// Calls a handler with a signal's arguments, which it may leave out.
template <typename Handler, typename... Arguments>
void CallHandler(const Handler& handler, const Arguments&... arguments) {
  if constexpr (std::is_invocable_v<const Handler&, const Arguments&...>) {
    handler(arguments...);
  } else {
    handler();
  }
}

// Connects a Qt signal with a handler that enters through the gate, as long as context lives. It is
// the only way in which the program connects signals: an exception must not cross Qt's frames, and
// nothing runs behind a shut gate.
template <typename Sender, typename Signal, typename Handler>
void ConnectGuarded(ProgramGate& gate, const Sender* sender, Signal signal, const QObject* context,
                    Handler handler) {
  QObject::connect(sender, signal, context,
                   [&gate, handler = std::move(handler)](const auto&... arguments) {
                     gate.Run([&] { CallHandler(handler, arguments...); });
                   });
}

// Connects a signal with what ends the program when its gate is shut already: the answer to the
// last box. The handler must not throw.
template <typename Sender, typename Signal, typename Handler>
void ConnectBehindGate(const Sender* sender, Signal signal, const QObject* context,
                       Handler handler) {
  QObject::connect(sender, signal, context, std::move(handler));
}

}  // namespace sorvane
