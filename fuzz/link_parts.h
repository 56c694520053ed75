#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "board/board_tables.h"
#include "outside/dialogs.h"

// What stands around the connection in the target of the reply stream.
namespace sorvane::fuzz {

// Of the sample files: revision 0 has this many records, revision 7 the last three of them.
inline constexpr int kRecords = 12;
inline constexpr uint8_t kSmallRevision = 7;

// The records as a load leaves them. The last two digits of a revision name its file.
std::vector<ParameterRecord> LoadedRecords(int revision);

// A program folder with the sample files. Some system parameters have more than one byte there;
// identification takes one all the same.
const std::filesystem::path& SampleFolder();

// The one table of all runs, empty: making one costs more than a run.
BoardTables& CleanTables();

// Boxes, of which one may stand at a time.
class OneBox : public Dialogs {
 public:
  void Show(const MessageBox& box, std::function<void(Answer)> answered) override;
  bool Stands() const { return answered_ != nullptr; }
  // With Retry or Cancel where the box has them.
  void AnswerWith(bool retry);

 private:
  bool retry_ = false;
  std::function<void(Answer)> answered_;
};

}  // namespace sorvane::fuzz
