#pragma once

#include <array>
#include <functional>
#include <string>

namespace sorvane {

// The codes of the lamps. Three panels of the status bar, numbered 2 to 4, show one each; the
// number of the image is the code.
namespace lamp {
inline constexpr int kTransmitRest = 1;
inline constexpr int kReceiveRest = 2;
inline constexpr int kErrorOff = 3;
inline constexpr int kTransmitting = 4;
inline constexpr int kReplyReceived = 5;
inline constexpr int kError = 6;
}  // namespace lamp

// What the status bar tells of the link: three lamps, and a text in panel 1.
class LinkLamps {
 public:
  static constexpr int kFirstPanel = 2;  // of the lamps

  // Shows an image, 1 to 6, in a panel, 2 to 4. Called on a change of code only, since a lamp's
  // code is set around every frame.
  std::function<void(int panel, int image)> on_image;
  // Called when the text of panel 1 changes.
  std::function<void(const std::string& text)> on_text;

  // Shows the lamps at rest, whatever they showed.
  void InitStatusPanels();

  // Lights the lamp of a code; codes outside 1 to 6 do nothing, nor does the code that its panel
  // shows already.
  void SetLinkLamp(int code);

  // The code that a panel, 2 to 4, shows.
  int Tag(int panel) const;

  void SetText(const std::string& text);
  void ClearText();  // nothing if there is none

 private:
  std::array<int, 3> tags_ = {lamp::kTransmitRest, lamp::kReceiveRest, lamp::kErrorOff};
  std::string text_;
};

}  // namespace sorvane
