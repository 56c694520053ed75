#include "shell/frame/manual_window.h"

#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "shell/page/page_sizes.h"

namespace sorvane {
namespace {

constexpr int kCharacters = 136;
constexpr int kLines = 44;

// By which a heading is named in links: its letters in lower case, with hyphens for blanks.
QString AnchorOf(const QString& heading) {
  QString anchor;
  for (const QChar c : heading) {
    if (c == ' ') anchor += '-';
    if (c.isLetterOrNumber() || c == '-' || c == '_') anchor += c.toLower();
  }
  return anchor;
}

// What stands above the headings that are about a form.
const QRegularExpression& FormMark() {
  static const QRegularExpression mark("^<a id=\"(\\w+)\"></a>$");
  return mark;
}

QStringList LinesOf(const QUrl& source) {
  QFile file(':' + source.path());
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(file.readAll()).split('\n');
}

// The form of each heading, or an empty name.
QStringList FormsOf(const QUrl& source) {
  QStringList forms;
  QString form;
  const QStringList lines = LinesOf(source);
  for (const QString& line : lines) {
    if (const auto mark = FormMark().match(line); mark.hasMatch()) form = mark.captured(1);
    if (line.startsWith('#')) forms.append(std::exchange(form, {}));
  }
  return forms;
}

}  // namespace

// A manual's text. Its own headings can be led to, by their words or by the form that they are
// about.
class ManualWindow::Text : public QTextBrowser {
 public:
  explicit Text(QWidget* parent) : QTextBrowser(parent) {
    setObjectName("ManualText");
    setFrameStyle(QFrame::NoFrame);
    setOpenExternalLinks(true);
  }

 protected:
  // The toolkit's reader of Markdown takes all that follows a mark for a part of it.
  QVariant loadResource(int type, const QUrl& name) override {
    if (!name.path().endsWith(".md")) return QTextBrowser::loadResource(type, name);
    QStringList lines = LinesOf(source().resolved(name));
    lines.removeIf([](const QString& line) { return FormMark().match(line).hasMatch(); });
    return lines.join('\n').toUtf8();
  }

  void doSetSource(const QUrl& source, QTextDocument::ResourceType type) override {
    QTextBrowser::doSetSource(source, type);
    // The toolkit may have loaded the text anew, without what was added to it.
    if (!document()->firstBlock().begin().fragment().charFormat().isAnchor()) {
      QTextCursor whole(document());
      whole.beginEditBlock();
      AddAnchors();
      Dress();
      whole.endEditBlock();
      window()->setWindowTitle(document()->firstBlock().text());
    }
    if (source.hasFragment()) scrollToAnchor(source.fragment());
  }

 private:
  void AddAnchors() {
    const QStringList forms = FormsOf(source());
    qsizetype heading = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
      if (block.blockFormat().headingLevel() == 0) continue;
      QTextCharFormat anchor;
      anchor.setAnchor(true);
      anchor.setAnchorNames({AnchorOf(block.text()), forms.value(heading)});
      ++heading;
      QTextCursor cursor(block);
      cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
      cursor.mergeCharFormat(anchor);
    }
  }

  // Gives room and lines to what the text brings without any, and keeps pictures within the window.
  void Dress() {
    const int character = page_size::Pixels(1, *this);
    document()->setDocumentMargin(2 * character);
    const QList<QTextFrame*> frames = document()->rootFrame()->childFrames();
    for (QTextFrame* frame : frames) {
      auto* table = qobject_cast<QTextTable*>(frame);
      if (table == nullptr) continue;
      QTextTableFormat format = table->format();
      format.setBorderCollapse(true);
      format.setBorder(1);
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBorderBrush(palette().mid());
      format.setCellPadding(character / 2.0);
      format.setTopMargin(character);
      format.setBottomMargin(character);
      table->setFormat(format);
    }
    const int widest = width() - 4 * character - verticalScrollBar()->sizeHint().width();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
      for (auto piece = block.begin(); !piece.atEnd(); ++piece) Fit(piece.fragment(), widest);
    }
  }

  void Fit(const QTextFragment& piece, int widest) {
    QTextImageFormat picture = piece.charFormat().toImageFormat();
    if (!picture.isValid()) return;
    const QUrl place = source().resolved(picture.name());
    if (QImageReader(':' + place.path()).size().width() <= widest) return;
    picture.setWidth(widest);
    QTextCursor cursor(document());
    cursor.setPosition(piece.position());
    cursor.setPosition(piece.position() + piece.length(), QTextCursor::KeepAnchor);
    cursor.setCharFormat(picture);
  }
};

ManualWindow::ManualWindow() : text_(new Text(this)) {
  setObjectName("Manual");
  setWindowFlags(Qt::Window);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(text_);
  const QSize size(page_size::Pixels(kCharacters, *this), kLines * fontMetrics().height());
  resize(size.boundedTo(screen()->availableSize()));
}

void ManualWindow::ShowChapter(const QString& form, bool italian) {
  QUrl chapter(italian ? "qrc:/manual/it.md" : "qrc:/manual/en.md");
  if (!form.isEmpty()) chapter.setFragment(form);
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
  text_->setSource(chapter);
}

}  // namespace sorvane
