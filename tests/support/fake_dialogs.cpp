#include "support/fake_dialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "support/boxes.h"

namespace sorvane::test {
namespace {

std::string InWords(const MessageBox& box) {
  return "\"" + box.title + "\", \"" + box.text + "\", " + std::to_string(box.flags);
}

// Whether it is a box of the program, whatever index file it names.
bool IsKnown(MessageBox box) {
  constexpr std::string_view kExtension = ".inx";
  const std::size_t name = box.text.find(kExtension);
  if (name != std::string::npos) box.text.erase(0, name + kExtension.size());
  return std::find(std::begin(kBoxes), std::end(kBoxes), box) != std::end(kBoxes);
}

}  // namespace

void FakeDialogs::Show(const MessageBox& box, std::function<void(sorvane::Answer)> answered) {
  EXPECT_TRUE(IsKnown(box)) << InWords(box) << " is missing in support/boxes.h";
  shown_.push_back(box);
  standing_.push_back({box, std::move(answered)});
}

void FakeDialogs::Answer(sorvane::Answer answer, CallSite at) {
  if (standing_.empty()) {
    FailAt(at, "no box stands that could be answered");
    return;
  }
  const StandingBox last = std::move(standing_.back());
  standing_.pop_back();
  if (last.answered) last.answered(answer);
}

void FakeDialogs::Expect(const std::string& text, const std::string& title, int flags,
                         CallSite at) const {
  const MessageBox expected{text, title, flags};
  if (standing_.size() != 1) {
    FailAt(at, std::to_string(standing_.size()) + " boxes stand; expected " + InWords(expected));
  }
  for (const StandingBox& each : standing_) {
    if (each.box != expected) {
      FailAt(at, "box " + InWords(each.box) + "; expected " + InWords(expected));
    }
  }
}

void FakeDialogs::ExpectNone(CallSite at) const {
  for (const StandingBox& each : standing_) {
    FailAt(at, "box " + InWords(each.box) + "; expected none");
  }
}

std::vector<MessageBox> FakeDialogs::Standing() const {
  std::vector<MessageBox> boxes;
  for (const StandingBox& each : standing_) boxes.push_back(each.box);
  return boxes;
}

}  // namespace sorvane::test
