#pragma once

#include <filesystem>
#include <string_view>

namespace sorvane {

// Who may read a file besides those who may read everything.
enum class Readers {
  kAsBefore,  // an old file keeps its rights, a new one gets those of any new file
  kOwner,     // nobody but its owner, whatever an old one allowed; on Windows as before
};

// Makes text the whole content of a file, which keeps its rights; a link stays one, and the file
// that it leads to is written. The text is written beside the file and then takes its place, so
// that a disk that is full or fails leaves the old file whole, and nothing beside it. Where the
// folder allows no such thing, the file itself is written. Throws RuntimeError kFileAccess for a
// file that can't be written, and for what is no ordinary file, which isn't opened.
void SaveFile(const std::filesystem::path& file, std::string_view text,
              Readers readers = Readers::kAsBefore);

}  // namespace sorvane
