#pragma once

#include <functional>
#include <string>
#include <vector>

#include "outside/dialogs.h"
#include "support/call_site.h"

namespace sorvane::test {

// Boxes that stand until a test answers them.
class FakeDialogs : public Dialogs {
 public:
  void Show(const MessageBox& box, std::function<void(Answer)> answered) override;

  // Answers the box that was shown last of those that stand. A failure of the test if none stands.
  void Answer(sorvane::Answer answer, CallSite at = CallSite::Here());

  // Exactly this box stands, and no other.
  void Expect(const std::string& text, const std::string& title, int flags,
              CallSite at = CallSite::Here()) const;
  // No box stands.
  void ExpectNone(CallSite at = CallSite::Here()) const;

  // The boxes that stand, and all that were ever shown; the latest at the end.
  std::vector<MessageBox> Standing() const;
  const std::vector<MessageBox>& Shown() const { return shown_; }

 private:
  struct StandingBox {
    MessageBox box;
    std::function<void(sorvane::Answer)> answered;
  };

  std::vector<StandingBox> standing_;
  std::vector<MessageBox> shown_;
};

}  // namespace sorvane::test
