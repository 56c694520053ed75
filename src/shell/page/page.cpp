#include "shell/page/page.h"

#include <QLabel>
#include <QPointer>

#include "board/board_tables.h"
#include "board/parameter_access.h"
#include "board/reply.h"
#include "outside/dialogs.h"
#include "shell/controls/entry_box.h"
#include "shell/controls/focus_keeper.h"
#include "texts/message_table.h"
#include "texts/western_text.h"

namespace sorvane {

QString ControlName(const char* array, int index) {
  return QString("%1(%2)").arg(array).arg(index);
}

Page::Page(PageServices services, const QString& form_name)
    : ChildForm(form_name), services_(services), focus_(new FocusKeeper(services.gate, this)) {}

void Page::Load() {
  LoadPageCaptions();
  WatchPageParameters();
}

void Page::Activate() { LoadPageCaptions(); }

void Page::Deactivate() { focus_->Leave(); }

void Page::Unload() {
  for (const int32_t index : WatchedParameters()) {
    services_.tables.BoardIndex = 0;
    services_.access.UnwatchParameter(index);
  }
}

void Page::WatchPageParameters() {
  for (const int32_t index : WatchedParameters()) {
    services_.tables.BoardIndex = 0;
    services_.access.WatchParameter(index);
  }
}

void Page::ReplyNotice(const Reply& reply) {
  Updating = true;
  OnReply(reply);
  Updating = false;
  AfterReply();
}

QLabel* Page::AddLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

void Page::SetCaption(QLabel& label, const QString& caption) {
  // A label that belongs to another control takes an ampersand for the mark of an access key.
  label.setText(label.buddy() == nullptr ? caption : EscapeAmpersands(caption));
}

void Page::Refuse(EntryBox& box, Entry::Kind kind) {
  if (kind == Entry::Kind::kRefused) {
    box.Restore();
    return;
  }
  box.SetRed();
  services_.dialogs.Show({"Please Insert Only Number ", "Error", kCriticalIcon},
                         [field = QPointer<EntryBox>(&box)](Answer) {
                           if (field) field->Restore();  // the page may have been closed
                         });
}

QString Page::Message(int n) const { return FromWestern(services_.messages[n]); }

QString Page::HintOf(Hint hint) const { return HintText(hint, services_.italian()); }

void Page::WriteParameterPair(int32_t first, int32_t second, int64_t value) {
  services_.access.WriteParameterPair(first, second, value);
}

double Page::ReadParameter(int32_t index) const { return services_.access.ReadParameter(index, 0); }

bool Page::IsParameterFresh(int32_t index) const {
  return services_.access.IsParameterFresh(index, 0);
}

}  // namespace sorvane
