#pragma once

#include <filesystem>
#include <string>

#include "simulator/link_guard.h"

namespace sorvane::simulator {

// The link under which the PC's program finds the board, such as COM1 in the program's folder.
//
// The place belongs to the technician, whose own link to an adapter is kept meanwhile under the
// same name with ".before" behind it, and comes back when the board ends. A guard sees to that
// where the board is killed. Where the guard is killed too, the next board finds the kept link.
// Boards that come to the same place at the same time keep it for each other: the technician's link
// comes back when the board ends whose link stands there.
//
// A board's link leads through the board's own folder in /proc. So it tells whose it is, and leads
// nowhere when that process is gone, whoever is given the terminal's number then.
class PortLink {
 public:
  // Nothing is made before the first call. path's folder must be there. Throws std::system_error if
  // there can't be a guard.
  explicit PortLink(std::filesystem::path path);

  const std::filesystem::path& Path() const { return path_; }

  // Makes the link, or replaces the one that is there. Returns a line that tells what was there
  // before and will be there again, empty if there is nothing to tell. Throws std::runtime_error if
  // something else than a link stands there or in the place for the kept one, or if a link can't be
  // made.
  std::string PointTo(const std::filesystem::path& terminal);

  // The same for a link that leads nowhere.
  std::string PointNowhere();

  // Puts back what was there before, or removes the link. Leaves it alone if somebody else has put
  // another one in its place. Returns a line that tells what was put back, empty if nothing was.
  std::string GiveBack();

 private:
  std::string Point(const std::filesystem::path& target);
  void Put(const std::filesystem::path& target, const std::filesystem::path& place) const;
  bool IsOwn(const std::filesystem::path& target) const;

  const std::filesystem::path path_;
  const std::filesystem::path kept_;
  const std::filesystem::path fresh_;  // where links are made, before they are moved
  const std::string root_;             // the system's root, by a path through this process
  LinkGuard guard_;
};

}  // namespace sorvane::simulator
