#pragma once

namespace sorvane::test {

// While it lives, an administrator has no more rights to a file or folder than its mode gives him;
// he finds his way into folders all the same. Nothing changes for others, who never have more.
class LeastRights {
 public:
  LeastRights();
  ~LeastRights();
  LeastRights(const LeastRights&) = delete;
  LeastRights& operator=(const LeastRights&) = delete;
};

}  // namespace sorvane::test
