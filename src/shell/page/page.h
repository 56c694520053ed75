#pragma once

#include <cstdint>
#include <vector>

#include "shell/page/child_form.h"
#include "shell/page/page_services.h"
#include "texts/program_words.h"
#include "texts/text_entry.h"

class QLabel;

namespace sorvane {

class EntryBox;
class FocusKeeper;

// The name of a control in an array of controls: "Text1(3)".
QString ControlName(const char* array, int index);

// A page: a view on some parameters of the table. It holds its parameters from its load to its
// unload, redraws a field when the board has answered, and writes a parameter when a bar moves; it
// never speaks to the board.
//
// A page source gives its parameters, its captions and what a reply does; and it overrides Load
// where its order of loading differs.
class Page : public ChildForm {
 public:
  Page(PageServices services, const QString& form_name);

  // The order of loading that most pages share: captions, watches.
  void Load() override;
  void Activate() final;
  void Deactivate() final;
  void Unload() final;
  void ReplyNotice(const Reply& reply) final;

  // True while a reply is being put on the page: a change handler of a control writes nothing then.
  bool Updating = false;

  const PageServices& Services() const { return services_; }
  ProgramGate& Gate() { return services_.gate; }

  // Message n of the current language.
  QString Message(int n) const;

  // Words that explain a control, in the language that is nearest to the program's.
  QString HintOf(Hint hint) const;

  // A label without text; its name is the control's.
  QLabel* AddLabel(const QString& name, QWidget* parent);

  // Puts a caption on a label as it stands, ampersands included.
  static void SetCaption(QLabel& label, const QString& caption);

  // Answers a typed text that isn't taken: a refused one gives way to the saved text without a
  // word, one that is no number does so behind a message, with the field red meanwhile.
  void Refuse(EntryBox& box, Entry::Kind kind);

  // A second index of 0 means that the setting has no mirror.
  void WriteParameterPair(int32_t first, int32_t second, int64_t value);
  double ReadParameter(int32_t index) const;
  bool IsParameterFresh(int32_t index) const;

 protected:
  // The parameters that the page watches, in their order.
  virtual std::vector<int32_t> WatchedParameters() const = 0;
  // Writes the page's caption and labels from the messages; at load and at every activation.
  virtual void LoadPageCaptions() = 0;
  // The board has answered; Updating is true.
  virtual void OnReply(const Reply& reply) = 0;
  // Runs after every reply, with Updating false.
  virtual void AfterReply() {}

  void WatchPageParameters();

 private:
  PageServices services_;
  FocusKeeper* focus_;
};

}  // namespace sorvane
