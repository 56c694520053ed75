#include "link/link_lamps.h"

namespace sorvane {

void LinkLamps::InitStatusPanels() {
  tags_ = {lamp::kTransmitRest, lamp::kReceiveRest, lamp::kErrorOff};
  if (!on_image) return;
  for (std::size_t i = 0; i < tags_.size(); ++i)
    on_image(kFirstPanel + static_cast<int>(i), tags_[i]);
}

void LinkLamps::SetLinkLamp(int code) {
  if (code < lamp::kTransmitRest || code > lamp::kError) return;
  // Codes 1 to 3 are the three lamps at rest, 4 to 6 the same lamps lit.
  const std::size_t place = static_cast<std::size_t>(code - 1) % tags_.size();
  if (tags_[place] == code) return;
  tags_[place] = code;
  if (on_image) on_image(kFirstPanel + static_cast<int>(place), code);
}

int LinkLamps::Tag(int panel) const {
  return tags_.at(static_cast<std::size_t>(panel - kFirstPanel));
}

void LinkLamps::SetText(const std::string& text) {
  text_ = text;
  if (on_text) on_text(text_);
}

void LinkLamps::ClearText() {
  if (!text_.empty()) SetText({});
}

}  // namespace sorvane
