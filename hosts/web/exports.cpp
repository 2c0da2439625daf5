// SPDX-License-Identifier: GPL-2.0-or-later
// What the page calls. Texts are UTF-8 with a closing NUL; an answer lives until the next call.
#include <emscripten.h>

#include <memory>
#include <utility>

#include "hosts/web/page.h"
#include "hosts/web/session.h"

namespace {

using namespace brelmon;
using namespace brelmon::web;

std::unique_ptr<Session>& Open() {
  static std::unique_ptr<Session> session;
  return session;
}

std::string& Room() {
  static std::string room;
  return room;
}

const char* Answer(std::string text) {
  static std::string answer;
  answer = std::move(text);
  return answer.c_str();
}

/// Runs `deed`; the reason where it failed, else "".
template <class Deed>
std::string Tried(Deed deed) {
  try {
    deed();
    return {};
  } catch (const Failure& failure) {
    return ToUtf8(failure.Description);
  } catch (const std::exception& reason) {
    return reason.what();
  }
}

}  // namespace

extern "C" {

/// Begins a session with a module.json. Gives the reason where it can't be read, else "".
EMSCRIPTEN_KEEPALIVE const char* brelmon_begin(const char* moduleJson) {
  return Answer(Tried([&] { Open() = std::make_unique<Session>(moduleJson); }));
}

/// Room for the bytes of one file, which the next put takes.
EMSCRIPTEN_KEEPALIVE char* brelmon_room(std::size_t size) {
  Room().resize(size);
  return Room().data();
}

/// A table of the module by its path in the folder.
EMSCRIPTEN_KEEPALIVE void brelmon_put_table(const char* file) {
  Open()->Host().PutTable(file, std::exchange(Room(), {}));
}

/// A file by its path in the module, or by its system path.
EMSCRIPTEN_KEEPALIVE void brelmon_put_file(const char* path) {
  Open()->Host().PutFile(path, std::exchange(Room(), {}));
}

/// Makes document and toolbar; `settings` is an object with `now` and the locale.
EMSCRIPTEN_KEEPALIVE const char* brelmon_open(const char* settings) {
  return Answer(Tried([&] { Open()->Open(Message(settings)); }));
}

/// A question: never suspends.
EMSCRIPTEN_KEEPALIVE const char* brelmon_ask(const char* what, const char* message) {
  std::string answer = "null";
  const std::string fault = Tried([&] { answer = Open()->Ask(what, Message(message)); });
  if (!fault.empty()) TellFault(FromUtf8(fault));
  return Answer(std::move(answer));
}

/// A deed: may suspend. The page is told when it has ended.
EMSCRIPTEN_KEEPALIVE void brelmon_do(const char* what, const char* message) {
  const std::string deed = what;
  const auto words = std::make_unique<Message>(message);
  const std::string fault = Tried([&] { Open()->Do(deed, *words); });
  if (!fault.empty()) TellFault(FromUtf8(fault));
  Tell(Json().Begin().Put("what", "done").End());
}
}
