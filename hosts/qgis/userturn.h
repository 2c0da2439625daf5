// SPDX-License-Identifier: GPL-2.0-or-later
// One doing of a user: a click on a command, a button of a form, and all that comes of it.
#pragma once

#include <functional>
#include <memory>

#include "platform/text.h"

namespace brelmon::qgis {

/// Lives as long as the doing. Those of a modal form lie within the one that opened the form, and
/// each ends by itself.
class UserTurn {
 public:
  UserTurn();
  ~UserTurn();
  UserTurn(const UserTurn&) = delete;
  UserTurn& operator=(const UserTurn&) = delete;

 private:
  std::shared_ptr<struct Turns> turns_;  // outlive the session that ends within a turn
};

/// Number of the outermost turn that runs; 0 between turns.
int CurrentClick();

/// Runs `undo` when the innermost turn ends; never, between turns.
void AtEndOfTurn(std::function<void()> undo);

/// A reason of the host's own that ends the turn: told once, as it stands; an empty one is not
/// told. Fails with `number`, and so does everything that checks in this turn from now on.
[[noreturn]] void EndTurn(std::int32_t number, const Text& reason);
/// The reason for which the innermost turn was ended; null while it goes on.
const Text* EndOfTurn();
/// Fails if the turn was ended. For whatever would ask the user something or change anything.
void CheckTurn();
/// The same between the steps of long work. After a second it keeps the windows painted; a user
/// who presses Escape then ends the turn with failure 18.
void CheckStep();

}  // namespace brelmon::qgis
