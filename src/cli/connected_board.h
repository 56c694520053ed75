#pragma once

#include <fstream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/request.h"
#include "cli/snapshot.h"
#include "cli/surroundings.h"
#include "cli/trace.h"
#include "session/exchange.h"
#include "session/session.h"

namespace sorvane::cli {

// A board that has been identified, over an open port; the port is closed at the end.
class ConnectedBoard {
 public:
  // Throws Failure where there is no port, no answer, no index file, or a board of another kind.
  ConnectedBoard(const Request& request, const Surroundings& around, const Catalogue& catalogue);

  Session& Line() { return session_; }

  // Whether the board's index file has a parameter.
  bool Has(const CatalogueEntry& entry) const { return session_.SizeOf(entry.number) != 0; }

  // A parameter's value. Throws Failure kNoBoard where the board doesn't answer, kInterrupted where
  // the person wants the end, kWrongBoard where the index file has no such parameter, and kUsage
  // where the trace can't be kept.
  Bytes Read(const CatalogueEntry& entry);

  // The decimals with which the board draws its amounts, asked once.
  NumberStyle Style();

  // Throws Failure kUsage where not all frames could be kept in the trace that is wanted. Reads
  // look by themselves; in the midst of writes nobody does, since all must be told of them to their
  // end.
  void CheckTrace() const;

  // All values of entries that the index file has, with their second copies if wanted; what the
  // board doesn't answer fails as Read does, or is left out where partial allows it.
  struct Taking {
    bool mirrors = false;
    bool partial = false;
  };
  Snapshot Take(std::span<const CatalogueEntry* const> entries, const Taking& taking,
                Console& console);

 private:
  // Open as long as this lives.
  class OpenPort {
   public:
    explicit OpenPort(const Surroundings& around);
    ~OpenPort() { port_.Close(); }
    OpenPort(const OpenPort&) = delete;
    OpenPort& operator=(const OpenPort&) = delete;

   private:
    Port& port_;
  };

  // A parameter, or the second copy of one.
  struct Place {
    const CatalogueEntry* entry;  // null in the head of a snapshot
    int32_t number;
    std::string name;
  };

  // Where the values of entries stand, by their numbers, behind those of the snapshot's head.
  // Throws Failure kWrongBoard where the index file lacks one of the head's.
  std::vector<Place> PlacesOf(std::span<const CatalogueEntry* const> entries, bool mirrors) const;

  // Puts the value of place i into the snapshot.
  void Keep(std::span<const Place> places, std::size_t i, const Bytes& raw, Snapshot& snapshot);

  std::optional<Bytes> TryRead(int32_t number, const std::string& name);
  // Throws Failure kInterrupted where the person wants the end.
  void CheckGoesOn() const;

  const Request& request_;
  const Surroundings& around_;
  const Catalogue& catalogue_;
  OpenPort open_;
  Exchange exchange_;
  Session session_;
  std::unique_ptr<Trace> trace_;
  std::optional<int> decimals_;
};

// The entries that a request chooses by --only and --except out of a command's own groups.
std::vector<const CatalogueEntry*> ChosenEntries(
    const Catalogue& catalogue, const Request& request,
    const std::function<bool(const CatalogueEntry&)>& own);

}  // namespace sorvane::cli
