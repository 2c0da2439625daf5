// SPDX-License-Identifier: GPL-2.0-or-later
// Turns of the user: how they are ended, how long ones are kept alive, what they leave behind.
#include "hosts/qgis/userturn.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <optional>
#include <vector>

#include "hosts/columns/emptyvalue.h"
#include "hosts/common/hostfailure.h"
#include "hosts/qgis/session.h"

namespace brelmon::qgis {
namespace {

constexpr qint64 kPatience = 1000, kBetweenPaints = 100;  // milliseconds

struct Turn {
  QElapsedTimer clock;
  qint64 nextPaint = kPatience;
  std::optional<Failure> end;
  std::vector<std::function<void()>> undo;
};

}  // namespace

struct Turns {
  std::vector<std::unique_ptr<Turn>> running;  // innermost last
  int clicks = 0;
};

namespace {

std::shared_ptr<Turns> AllTurns() {
  Session* session = Session::IfRunning();
  return session ? session->Shared<Turns>() : std::make_shared<Turns>();
}

Turn* Innermost() {
  Session* session = Session::IfRunning();
  if (!session) return nullptr;
  const auto& running = session->Of<Turns>().running;
  return running.empty() ? nullptr : running.back().get();
}

/// Lets nothing through that a user does, and notes one key.
class Deafness : public QObject {
 public:
  Deafness() { qApp->installEventFilter(this); }
  bool escaped = false;

  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
      case QEvent::ShortcutOverride:
        escaped = escaped || static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        return true;
      case QEvent::KeyRelease:
      case QEvent::Shortcut:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::Close:
      case QEvent::DragEnter:
      case QEvent::Drop:
        return true;
      default:
        return false;
    }
  }
};

}  // namespace

UserTurn::UserTurn() : turns_(AllTurns()) {
  if (turns_->running.empty()) {
    ++turns_->clicks;
    columns::ForgetEmptyValue();
  }
  turns_->running.push_back(std::make_unique<Turn>());
  turns_->running.back()->clock.start();
}

UserTurn::~UserTurn() {
  const std::unique_ptr<Turn> turn = std::move(turns_->running.back());
  turns_->running.pop_back();
  for (auto undo = turn->undo.rbegin(); undo != turn->undo.rend(); ++undo) (*undo)();
}

int CurrentClick() { return Innermost() ? Session::Running().Of<Turns>().clicks : 0; }

void AtEndOfTurn(std::function<void()> undo) {
  if (Turn* turn = Innermost()) turn->undo.push_back(std::move(undo));
}

void EndTurn(std::int32_t number, const Text& reason) {
  const Failure failed(number, Text(host::kFailureSource), reason);
  if (Turn* turn = Innermost()) turn->end = failed;
  throw failed;
}

const Text* EndOfTurn() {
  const Turn* turn = Innermost();
  return turn && turn->end ? &turn->end->Description : nullptr;
}

void CheckTurn() {
  const Turn* turn = Innermost();
  if (turn && turn->end) throw Failure(*turn->end);
}

void CheckStep() {
  CheckTurn();
  Turn* turn = Innermost();
  if (!turn || turn->clock.elapsed() < turn->nextPaint) return;
  Deafness deaf;
  QApplication::processEvents();
  turn->nextPaint = turn->clock.elapsed() + kBetweenPaints;
  if (deaf.escaped) EndTurn(failure::kUserInterrupt, DescriptionOf(failure::kUserInterrupt));
}

}  // namespace brelmon::qgis
