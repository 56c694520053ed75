#pragma once

#include <xcb/xcb.h>

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/child.h"

namespace sorvane::bench {

// A virtual display without a window manager.
class Display {
 public:
  Display();

  // For a program on this display: no desktop, no message bus, and home for its files.
  std::vector<std::string> Environment(const std::filesystem::path& home) const;

  // Waits until a program that was started a moment ago shows a window that has been painted and
  // answers, and returns that. Throws std::runtime_error if none comes.
  xcb_window_t WaitForWindow();

  // Gives a window the keyboard and presses keys, one after the other.
  void Press(xcb_window_t window, std::initializer_list<const char*> keys);

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };

  void Ping(xcb_window_t window);
  std::unique_ptr<xcb_generic_event_t, void (*)(void*)> NextEvent();
  xcb_atom_t Atom(const std::string& name);

  std::optional<Child> server_;
  std::string name_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_ = 0;
};

}  // namespace sorvane::bench
