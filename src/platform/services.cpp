// SPDX-License-Identifier: GPL-2.0-or-later
// The set of services.
#include "platform/services.h"

#include "platform/textfile.h"

namespace brelmon {
namespace {

Services& Held() {
  static Services services;
  return services;
}

// Line 0: the fault is the host's, not the asking procedure's.
template <class Service>
Service& Present(Service* service) {
  if (!service) Raise(failure::kObjectNotSet, 0);
  return *service;
}

}  // namespace

void SetServices(Services services) {
  textfile::CloseAll();
  Held() = std::move(services);
}

const Services& CurrentServices() { return Held(); }

int MsgBox(const Text& text, int style, const Text& title) {
  return Present(Held().messageBox).Show(text, style, title);
}

void Beep() { Present(Held().messageBox).Beep(); }

IScreen& Screen() { return Present(Held().screen); }
IClipboard& Clipboard() { return Present(Held().clipboard); }
IPrinter& Printer() { return Present(Held().printer); }
IClock& Clock() { return Present(Held().clock); }
IFileSystem& FileSystem() { return Present(Held().files); }
IRegistry& Registry() { return Present(Held().registry); }
IShell& Shell() { return Present(Held().shell); }
IHostObjects& HostObjects() { return Present(Held().objects); }
IFormHost& FormHost() { return Present(Held().forms); }
const Locale& CurrentLocale() { return Held().locale; }

}  // namespace brelmon
