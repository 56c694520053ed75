#include "shell/frame/status_panels.h"

#include <QLabel>
#include <QStatusBar>
#include <utility>

#include "link/link_lamps.h"
#include "shell/controls/control_hint.h"
#include "shell/controls/lamp.h"
#include "texts/program_words.h"
#include "texts/western_text.h"

namespace sorvane {
namespace {

constexpr int kLampWidth = 17;  // pixels at 100 %: 255 twips
constexpr std::array<const char*, 3> kLampNames = {"Transmit", "Receive", "Error"};
constexpr std::array kLampHints = {Hint::kTransmit, Hint::kReceive, Hint::kLineError};

}  // namespace

StatusPanels::StatusPanels(ProgramGate& gate, QStatusBar& bar, std::function<bool()> italian)
    : gate_(gate), bar_(bar), text_(new QLabel(&bar)), italian_(std::move(italian)) {
  text_->setObjectName("Panel(1)");
  text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  bar_.addPermanentWidget(text_, 1);
  const int margin = bar_.fontMetrics().averageCharWidth();
  bar_.setContentsMargins(margin, 0, margin, 0);
}

void StatusPanels::InitStatusPanels(LinkLamps& lamps) {
  for (std::size_t i = 0; i < lamps_.size(); ++i) {
    auto* panel = new Lamp(&bar_);
    panel->setObjectName(QString("Panel(%1)").arg(LinkLamps::kFirstPanel + static_cast<int>(i)));
    panel->setAccessibleName(kLampNames[i]);
    panel->setMinimumWidth(kLampWidth);
    new ControlHint(gate_, *panel, [this, i] { return HintText(kLampHints[i], italian_()); });
    bar_.addPermanentWidget(panel);
    lamps_[i] = panel;
  }
  lamps.on_image = [this](int panel, int image) {
    lamps_.at(static_cast<std::size_t>(panel - LinkLamps::kFirstPanel))->SetImage(image);
  };
  lamps.on_text = [this](const std::string& text) { text_->setText(FromWestern(text)); };
  lamps.InitStatusPanels();
}

}  // namespace sorvane
