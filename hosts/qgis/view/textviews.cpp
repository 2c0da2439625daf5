// SPDX-License-Identifier: GPL-2.0-or-later
// Views of text boxes, with caret and selection kept alike on both sides, and of rich text.
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlockFormat>
#include <QTextBrowser>
#include <QTextCursor>

#include "hosts/qgis/qgishost.h"
#include "hosts/qgis/view/look.h"
#include "hosts/qgis/view/views.h"

namespace brelmon::qgis {
namespace {

/// Offsets between a text with CR LF line ends and the same with LF alone.
int WithoutReturns(const Text& text, std::int32_t offset) {
  int lone = 0;
  for (std::int32_t i = 0; i < offset; ++i) lone += text[static_cast<std::size_t>(i)] != u'\r';
  return lone;
}

std::int32_t WithReturns(const QString& text, int offset) {
  return offset + static_cast<std::int32_t>(text.leftRef(offset).count(QLatin1Char('\n')));
}

QSize TextHeight(const QWidget& widget) { return {0, QFontMetrics(widget.font()).height() + 4}; }

class LineView : public ControlView {
 public:
  LineView(TextBox& box, IFormSurface& surface, QWidget* parent)
      : box_(box), surface_(surface), widget_(*new QLineEdit(parent)) {
    const auto tell = [this] { Tell(); };
    QObject::connect(&widget_, &QLineEdit::textEdited, &widget_, tell);
    QObject::connect(&widget_, &QLineEdit::cursorPositionChanged, &widget_, tell);
    QObject::connect(&widget_, &QLineEdit::selectionChanged, &widget_, tell);
  }
  QWidget& Widget() override { return widget_; }
  bool Urgent(Aspect aspect) const override {
    return aspect == Aspect::Value || aspect == Aspect::Selection;
  }
  void Update(const Aspects& aspects) override {
    const QSignalBlocker silent(widget_);
    if (aspects.Has(Aspect::State)) widget_.setReadOnly(box_.Locked());
    const QString text = ToQt(box_.Text());
    if (widget_.text() != text) Replace(text);
    const int start = box_.SelStart(), length = box_.SelLength();
    if (start == Start() && length == widget_.selectedText().size()) return;
    if (length > 0) {
      widget_.setSelection(start, length);
    } else {
      widget_.setCursorPosition(start);
      widget_.deselect();
    }
  }
  QSize Needed(int) const override { return TextHeight(widget_); }

 private:
  void Replace(const QString& text) {
    if (widget_.text().isEmpty()) return widget_.setText(text);
    widget_.selectAll();
    widget_.insert(text);
  }
  int Start() const {
    return widget_.hasSelectedText() ? widget_.selectionStart() : widget_.cursorPosition();
  }
  void Tell() {
    surface_.Do(
        [this] { box_.UserEdit(FromQt(widget_.text()), Start(), widget_.selectedText().size()); });
  }
  TextBox& box_;
  IFormSurface& surface_;
  QLineEdit& widget_;
};

class PageView : public ControlView {
 public:
  PageView(TextBox& box, IFormSurface& surface, QWidget* parent)
      : box_(box), surface_(surface), widget_(*new QPlainTextEdit(parent)) {
    widget_.setTabChangesFocus(true);
    widget_.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    const auto tell = [this] { Tell(); };
    QObject::connect(&widget_, &QPlainTextEdit::textChanged, &widget_, tell);
    QObject::connect(&widget_, &QPlainTextEdit::cursorPositionChanged, &widget_, tell);
    QObject::connect(&widget_, &QPlainTextEdit::selectionChanged, &widget_, tell);
  }
  QWidget& Widget() override { return widget_; }
  bool Urgent(Aspect aspect) const override {
    return aspect == Aspect::Value || aspect == Aspect::Selection;
  }
  void Update(const Aspects& aspects) override {
    const QSignalBlocker silent(widget_);
    if (aspects.Has(Aspect::State)) widget_.setReadOnly(box_.Locked());
    const Text text = box_.Text();
    const QString shown = ToQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (widget_.toPlainText() != shown) Replace(shown);
    const int start = WithoutReturns(text, box_.SelStart());
    const int end = WithoutReturns(text, box_.SelStart() + box_.SelLength());
    QTextCursor cursor = widget_.textCursor();
    if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    widget_.setTextCursor(cursor);
  }

 private:
  // As an edit, so that the user can undo what a button has put into the text.
  void Replace(const QString& text) {
    if (widget_.document()->isEmpty()) return widget_.setPlainText(text);
    QTextCursor cursor(widget_.document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
  }
  void Tell() {
    surface_.Do([this] {
      const QString shown = widget_.toPlainText();
      const QTextCursor cursor = widget_.textCursor();
      const std::int32_t start = WithReturns(shown, cursor.selectionStart());
      const std::int32_t end = WithReturns(shown, cursor.selectionEnd());
      QString text = shown;
      text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
      box_.UserEdit(FromQt(text), start, end - start);
    });
  }
  TextBox& box_;
  IFormSurface& surface_;
  QPlainTextEdit& widget_;
};

class RichTextView : public ControlView {
 public:
  RichTextView(RichTextBox& box, QWidget* parent) : box_(box), widget_(*new QTextBrowser(parent)) {
    widget_.setOpenLinks(false);
    widget_.setTabChangesFocus(true);
  }
  QWidget& Widget() override { return widget_; }
  void Update(const Aspects& aspects) override {
    if (!aspects.Has(Aspect::Value)) return;
    widget_.clear();
    QTextCursor cursor(widget_.document());
    const double scale = widget_.logicalDpiX() / 96.0 / kTwipsPerPixel;
    for (const RichTextBox::Run& run : box_.Runs()) {
      QTextBlockFormat block;
      block.setLeftMargin(static_cast<double>(run.Indent) * scale);
      cursor.mergeBlockFormat(block);
      QTextCharFormat letters;
      letters.setFont(FontOf(run.Font, widget_.font()));
      cursor.insertText(ToQt(run.Text).replace(QLatin1String("\r\n"), QLatin1String("\n")),
                        letters);
    }
    widget_.moveCursor(QTextCursor::Start);
  }

 private:
  RichTextBox& box_;
  QTextBrowser& widget_;
};

}  // namespace

std::unique_ptr<ControlView> NewTextView(TextBox& box, IFormSurface& surface, QWidget* parent) {
  if (box.MultiLine()) return std::make_unique<PageView>(box, surface, parent);
  return std::make_unique<LineView>(box, surface, parent);
}

std::unique_ptr<ControlView> NewRichTextView(RichTextBox& box, QWidget* parent) {
  return std::make_unique<RichTextView>(box, parent);
}

}  // namespace brelmon::qgis
