#include "pages/settings/selection_map_page.h"

#include <QGridLayout>
#include <QLabel>

#include "board/message.h"
#include "board/numbers.h"
#include "board/parameter.h"
#include "board/reply.h"
#include "shell/controls/focus_keeper.h"

namespace sorvane {

// A typed 0 passes: the bar goes to 1, which writes only if it stood elsewhere, and the field shows
// the 0 until the reply.
const SelectionMapPage::Constants kFrmTastiColonna = {
    .form = "FrmTastiColonna",
    .title = message::kKeysTitle,
    .heading = 0,
    .opened_by = 0,
    .row =
        {
            .label = "LabelMess1",
            .text = "Text1",
            .bar = "HScroll1",
            .count = parameter::kSelectionRows,
            .message = message::kKey,
            .numbering = Numbering::kSpaced,
            .parameter = parameter::kKeyColumns,
            .mirror = parameter::kKeyColumnsMirror,
            .positions = {.minimum = 1, .maximum = 10},
            .typed = {.highest = 10, .characters = 6},
        },
};

// The second write of a row goes to the parameter of the row's own number, counted from 0: row 0
// has none, row 2 lands on the number of selections and row 3 on the option bits. Boards in the
// field have been living with it.
const SelectionMapPage::Constants kFrmColonnaProd = {
    .form = "FrmColonnaProd",
    .title = message::kColumnsTitle,
    .heading = message::kProduct,
    .opened_by = option::kEqualProducts,
    .row =
        {
            .label = "LabelMess1",
            .text = "Text1",
            .bar = "HScroll1",
            .count = parameter::kSelectionRows,
            .message = message::kColumn,
            .numbering = Numbering::kSpaced,
            .parameter = parameter::kColumnProducts,
            .mirror = 0,
            .positions = {.minimum = 1, .maximum = 100},
            .typed = {.highest = 100, .characters = 6},
        },
};

namespace {

constexpr int kRowsPerHalf = parameter::kSelectionRows / 2;

}  // namespace

SelectionMapPage::SelectionMapPage(const PageServices& services, const Constants& constants)
    : Page(services, constants.form), constants_(constants), fields_(*this, state_) {
  fields_.Add(*this, std::span(&constants.row, 1));
  LayOut();
}

void SelectionMapPage::LayOut() {
  auto* grid = new QGridLayout(this);
  const bool headed = constants_.heading != 0;
  for (int half = 0; headed && half < 2; ++half) {
    headings_.push_back(AddLabel(ControlName("Label1", half), this));
    grid->addWidget(headings_.back(), 0, half * FieldGroup::kCellsPerColumn + 1, 1, 2);
  }
  fields_.LayOut(*grid, {.row = headed ? 1 : 0, .rows_per_column = kRowsPerHalf});
}

std::vector<int32_t> SelectionMapPage::WatchedParameters() const {
  std::vector<int32_t> watched;
  if (constants_.opened_by != 0) watched.push_back(parameter::kOptions);
  watched.push_back(parameter::kSelections);
  for (int i = 0; i < constants_.row.count; ++i) watched.push_back(constants_.row.parameter + i);
  return watched;
}

void SelectionMapPage::LoadPageCaptions() {
  fields_.LoadCaptions();
  for (QLabel* heading : headings_) SetCaption(*heading, Message(constants_.heading));
  setWindowTitle(Message(constants_.title));
}

void SelectionMapPage::OnReply(const Reply& reply) {
  if (reply.index == parameter::kOptions && constants_.opened_by != 0) {
    OpenAll((ToInt32(reply.Number()) & constants_.opened_by) != 0);
  } else if (reply.index == parameter::kSelections) {
    SelectionCount = ToInt16(reply.Number());
    OpenSelections();
  } else if (Field* field = fields_.Find(reply.index)) {
    field->ShowFieldValue(ToInt32(reply.Number()));
  }
}

void SelectionMapPage::OpenAll(bool open) {
  for (QLabel* heading : headings_) SetOpen(*heading, open);
  for (int i = 0; i < fields_.Count(); ++i) fields_.At(i).SetRowOpen(open);
}

void SelectionMapPage::OpenSelections() {
  // Whatever the option bits say: of two replies the one that comes last decides.
  for (int i = 0; i < fields_.Count(); ++i) fields_.At(i).SetRowOpen(false);
  for (int i = 0; i < SelectionCount; ++i) fields_.At(i).SetRowOpen(true);
}

}  // namespace sorvane
