#include "bench/display.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>

namespace sorvane::bench {
namespace {

constexpr int kPatience = 20000;  // milliseconds

// A window counts as painted with its second answer: it answers the first as soon as it has been
// told that it shows, and paints before it looks for more.
constexpr int kAnswers = 2;

std::string ReadLine(int descriptor) {
  std::string line;
  pollfd watched{descriptor, POLLIN, 0};
  char letter = 0;
  while (poll(&watched, 1, kPatience) == 1 && read(descriptor, &letter, 1) == 1) {
    if (letter == '\n') return line;
    line += letter;
  }
  throw std::runtime_error("no virtual display");
}

std::string Path() {
  const char* const path = std::getenv("PATH");
  return std::string("PATH=") + (path == nullptr ? "/usr/bin" : path);
}

}  // namespace

Display::Display() {
  std::array<int, 2> numbers{};
  if (pipe2(numbers.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  // It complains of each display that others have taken before it finds one.
  const std::string start = "exec Xvfb -screen 0 1280x900x24 -nolisten tcp -displayfd ";
  server_.emplace(
      std::vector<std::string>{"sh", "-c", start + std::to_string(numbers[1]) + " 2>/dev/null"},
      std::vector<std::string>{Path()}, numbers[1]);
  close(numbers[1]);
  name_ = ":" + ReadLine(numbers[0]);
  close(numbers[0]);
  connection_.reset(xcb_connect(name_.c_str(), nullptr));
  if (xcb_connection_has_error(connection_.get()) != 0) {
    throw std::runtime_error("the virtual display refuses");
  }
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
  // The windows that show, and what they answer.
  const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), root_, XCB_CW_EVENT_MASK, &events);
  xcb_flush(connection_.get());
}

std::vector<std::string> Display::Environment(const std::filesystem::path& home) const {
  return {Path(),
          "DISPLAY=" + name_,
          "HOME=" + home.string(),
          "LC_ALL=C.UTF-8",
          "QT_QPA_PLATFORM=xcb",
          "XDG_RUNTIME_DIR=" + home.string(),
          "DBUS_SESSION_BUS_ADDRESS=disabled:",
          "NO_AT_BRIDGE=1"};
}

xcb_window_t Display::WaitForWindow() {
  constexpr uint8_t kSent = 0x80;  // marks an event that another program has sent
  xcb_window_t window = XCB_NONE;
  int answers = 0;
  while (answers < kAnswers) {
    const auto event = NextEvent();
    const uint8_t type = event->response_type & ~kSent;
    if (type == XCB_MAP_NOTIFY && window == XCB_NONE) {
      const auto& shown = reinterpret_cast<const xcb_map_notify_event_t&>(*event);
      window = shown.window;
      Ping(window);
    } else if (type == XCB_CLIENT_MESSAGE) {
      const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
      if (message.window != root_ || message.data.data32[2] != window) continue;
      if (++answers < kAnswers) Ping(window);
    }
  }
  return window;
}

void Display::Ping(xcb_window_t window) {
  xcb_client_message_event_t ping{};
  ping.response_type = XCB_CLIENT_MESSAGE;
  ping.format = 32;
  ping.window = window;
  ping.type = Atom("WM_PROTOCOLS");
  ping.data.data32[0] = Atom("_NET_WM_PING");
  ping.data.data32[2] = window;
  xcb_send_event(connection_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&ping));
  xcb_flush(connection_.get());
}

void Display::Press(xcb_window_t window, std::initializer_list<const char*> keys) {
  xcb_set_input_focus(connection_.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
  xcb_flush(connection_.get());
  std::vector<std::string> words = {"xdotool", "key", "--delay", "100"};
  words.insert(words.end(), keys.begin(), keys.end());
  Child(words, {Path(), "DISPLAY=" + name_}).Finish();
}

std::unique_ptr<xcb_generic_event_t, void (*)(void*)> Display::NextEvent() {
  for (;;) {
    std::unique_ptr<xcb_generic_event_t, void (*)(void*)> event(
        xcb_poll_for_event(connection_.get()), std::free);
    if (event) return event;
    pollfd watched{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    if (poll(&watched, 1, kPatience) != 1) throw std::runtime_error("no window comes");
  }
}

xcb_atom_t Display::Atom(const std::string& name) {
  const xcb_intern_atom_cookie_t asked =
      xcb_intern_atom(connection_.get(), 0, static_cast<uint16_t>(name.size()), name.c_str());
  const std::unique_ptr<xcb_intern_atom_reply_t, void (*)(void*)> reply(
      xcb_intern_atom_reply(connection_.get(), asked, nullptr), std::free);
  if (!reply) throw std::runtime_error("the virtual display is gone");
  return reply->atom;
}

}  // namespace sorvane::bench
