#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace sorvane::cli {

// Where the program speaks: results go to one stream, all else to another. A bar tells the progress
// where a person watches, and nothing where nobody does.
class Console {
 public:
  struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool asks = false;     // a person can be asked: in and err are a terminal
    bool watched = false;  // err is a terminal
  };

  Console(const Streams& streams, bool quiet) : streams_(streams), quiet_(quiet) {}

  ~Console() { WipeProgress(); }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  // A result, as it is. Throws Failure kUsage where it finds no room.
  void Print(std::string_view text);
  // Words beside the results, a line; nothing if the program is to be quiet.
  void Tell(std::string_view words);
  // What went wrong, a line.
  void Complain(std::string_view words);

  // Whether a person answers a question with yes. No, where nobody can be asked, and where the
  // person ends the program or its input instead.
  bool Confirm(std::string_view question);

  // How far a piece of work is; wiped away by whatever comes next.
  void ShowProgress(std::string_view what, int done, int all);

 private:
  void WipeProgress();

  Streams streams_;
  bool quiet_;
  std::size_t progress_ = 0;  // characters of the bar that stands
};

}  // namespace sorvane::cli
