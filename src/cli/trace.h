#pragma once

#include <QDateTime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "catalogue/catalogue.h"
#include "session/exchange.h"
#include "session/session.h"

namespace sorvane::cli {

// Keeps every frame as a line of a file: time, direction, bytes in hexadecimal digits, and what
// they mean. Bytes by which a digit of the password could be told stand as "**".
class Trace {
 public:
  // Throws Failure kUsage where the file can't be written.
  Trace(const std::filesystem::path& file, const Catalogue& catalogue, const Session& session,
        std::function<QDateTime()> now);

  void Tell(const Bytes& sent, const Bytes& received, TryOutcome outcome);

  // Throws Failure kUsage where not all that was told could be kept.
  void CheckWhole() const;

 private:
  // What a frame is about.
  struct Subject {
    std::string name;
    bool secret = false;
  };
  Subject SubjectOf(const Bytes& sent) const;

  const Catalogue& catalogue_;
  const Session& session_;
  std::function<QDateTime()> now_;
  std::filesystem::path file_;
  std::ofstream out_;
};

}  // namespace sorvane::cli
