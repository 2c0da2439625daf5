// SPDX-License-Identifier: GPL-2.0-or-later
// The program's two imports, for emscripten. `Module.page` is the page's object for them.
mergeInto(LibraryManager.library, {
  web_tell: function (json) {
    Module.page.tell(JSON.parse(UTF8ToString(json)));
  },
  // Asyncify knows one suspended stack at a time, so each wait keeps its own and puts it back before
  // it goes on. Waits end in reverse order, as the stack below them is one.
  web_wait__deps: ['$Asyncify'],
  web_wait: function (name) {
    if (Asyncify.state === Asyncify.State.Rewinding) return Asyncify.handleSleep(function () {});
    var wait = Module.page.beginWait(name);
    var result = Asyncify.handleSleep(function (wakeUp) {
      wait.resume = function (answer) {
        Asyncify.currData = wait.data;
        wakeUp(answer);
      };
    });
    wait.data = Asyncify.currData;
    return result;
  },
});
