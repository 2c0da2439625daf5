// SPDX-License-Identifier: GPL-2.0-or-later
// What any procedure may ask of the host: one set, which component and host both hold.
#pragma once

#include <memory>
#include <string>

#include "platform/date.h"
#include "platform/locale.h"
#include "platform/object.h"
#include "platform/pointer.h"
#include "platform/value.h"

namespace brelmon {

class IBasicGeoprocessor;
class IDataStatistics;
class IEnvelope;
class IFormHost;  // toolkit/formhost.h
class IGxDialog;
class IGxLayer;
class IModelessFrame;
class IStandaloneTable;
class ISummarizeDialog;
class ITableWindow;
class IWorkspaceFactory;

/// Styles and answers of a message box.
namespace box {
inline constexpr int kOk = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kYesNo = 4;
inline constexpr int kCritical = 16;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;

inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerCancel = 2;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;
}  // namespace box

class IMessageBox {
 public:
  virtual ~IMessageBox() = default;
  /// Modal. Gives one of the answers.
  virtual int Show(const Text& text, int style, const Text& title) = 0;
  virtual void Beep() = 0;  // nothing, where there is no sound
};

/// The dialog that tells of failures; one lives to the end of the process.
class IErrorDialog : public virtual IObject {
 public:
  virtual void SetText(const Text& text) = 0;  // the whole trail, in place of an earlier one
  /// Modeless: the call returns at once.
  virtual void SetVisible(bool visible) = 0;
};

class IScreen {
 public:
  virtual ~IScreen() = default;
  /// Stays until it is set again, or the user's click has ended.
  virtual void SetMousePointer(Pointer pointer) = 0;
};

/// The system's clipboard; a host without one keeps the text to itself.
class IClipboard {
 public:
  virtual ~IClipboard() = default;
  virtual void Clear() = 0;
  /// Line ends are CR LF.
  virtual void SetText(const Text& text) = 0;
};

class IPrinter {
 public:
  virtual ~IPrinter() = default;
  /// Each fails with 482 where there is no printer.
  virtual void SetFontSize(double points) = 0;
  virtual void Print(const Text& text) = 0;  // and begins a new line
  virtual void EndDoc() = 0;  // sends the pages off; nothing where nothing was printed
};

class IClock {
 public:
  virtual ~IClock() = default;
  /// Local time, to the second; BRELMON_NOW fixes it.
  virtual Date Now() = 0;
};

/// Bytes of one open file.
class IByteStream {
 public:
  virtual ~IByteStream() = default;
  /// Up to `size` bytes; empty at the end of the file. Fails with 57.
  virtual std::string Read(std::size_t size) = 0;
  /// Fails with 61 on a full disk, else 57.
  virtual void Write(const std::string& bytes) = 0;
  /// Ends the stream; fails as Write where what was written did not reach the file. One that is
  /// destroyed without it keeps a failure to itself.
  virtual void Close() = 0;
};

enum class FileMode { Input, Output, Append };

/// Files by Windows path.
class IFileSystem {
 public:
  virtual ~IFileSystem() = default;
  /// Bit 16 for a folder, 0 for a plain file; fails with 53 where there is nothing.
  virtual std::int32_t Attributes(const Text& path) = 0;
  /// Fails with 53 (no file), 76 (no folder), 70 or 75 (not allowed).
  virtual std::unique_ptr<IByteStream> Open(const Text& path, FileMode mode) = 0;
  /// A path as users of this system write it, in the form that tools take; one in that form, and
  /// any other text, stays as it is.
  virtual Text FromTyped(const Text& typed) = 0;
  /// GetLongPathNameA: the length of the long form (0 on failure), which goes into `buffer`.
  virtual std::int32_t GetLongPathName(const Text& path, Text& buffer) = 0;
  /// GetTempPathA: the length (0 on failure) of the temporary folder, closing backslash included.
  virtual std::int32_t GetTempPath(Text& buffer) = 0;
};

enum class RegistryRoot { ClassesRoot, CurrentUser, LocalMachine };

class IRegistry {
 public:
  virtual ~IRegistry() = default;
  /// RegOpenKeyExA, RegQueryValueExA and RegCloseKey in one: false where key or value is absent.
  /// An empty name is the key's default value. Texts keep a closing NUL if they were stored so;
  /// a double word comes as a 32-bit number.
  virtual bool Query(RegistryRoot root, const Text& key, const Text& name, Value& value) = 0;
  /// Makes key and value where they are absent.
  virtual void Write(RegistryRoot root, const Text& key, const Text& name, const Text& value) = 0;
  /// The key with all below it; nothing for an absent one.
  virtual void DeleteTree(RegistryRoot root, const Text& key) = 0;
};

class IShell {
 public:
  virtual ~IShell() = default;
  /// ShellExecuteA: the default program for a file or web address; its result is of no interest.
  /// What a host won't open fails with its reason. Nothing of `file` is ever interpreted as a
  /// command.
  virtual void Execute(const Text& file, const Text& directory, int showMode) = 0;
  /// Runs a program in a normal window; fails with 5 or 53 where it can't.
  virtual void Run(const Text& program) = 0;
  /// GetUserNameA: the login name with its closing NUL; false on failure.
  virtual bool GetUserName(Text& name) = 0;
};

/// Makes the host's objects. None gives an unset reference; what a host lacks fails with 445.
class IHostObjects {
 public:
  virtual ~IHostObjects() = default;
  virtual Ref<IErrorDialog> NewErrorDialog() = 0;
  virtual Ref<IModelessFrame> NewModelessFrame() = 0;
  virtual Ref<ITableWindow> NewTableWindow() = 0;
  virtual Ref<IDataStatistics> NewDataStatistics() = 0;
  virtual Ref<IStandaloneTable> NewStandaloneTable() = 0;
  virtual Ref<IWorkspaceFactory> NewShapefileWorkspaceFactory() = 0;
  virtual Ref<IBasicGeoprocessor> NewBasicGeoprocessor() = 0;
  virtual Ref<IEnvelope> NewEnvelope() = 0;
  virtual Ref<IGxDialog> NewGxDialog() = 0;
  virtual Ref<IGxLayer> NewGxLayer() = 0;
  virtual Ref<ISummarizeDialog> NewSummarizeDialog() = 0;
};

/// Owned by the host, which outlives its use. An unset one fails with 91 when asked for.
struct Services {
  IMessageBox* messageBox = nullptr;
  IScreen* screen = nullptr;
  IClipboard* clipboard = nullptr;
  IPrinter* printer = nullptr;
  IClock* clock = nullptr;
  IFileSystem* files = nullptr;
  IRegistry* registry = nullptr;
  IShell* shell = nullptr;
  IHostObjects* objects = nullptr;
  IFormHost* forms = nullptr;
  brelmon::Locale locale;
};

/// Replaces the set of this library or program; whoever loads the component sets its own and the
/// component's together. File numbers that are open are forgotten.
void SetServices(Services services);
const Services& CurrentServices();

/// The component's default title of a message box.
inline constexpr TextView kDefaultTitle = u"BrelmonOpenTable";

/// A message box with the tools' own defaults.
int MsgBox(const Text& text, int style = box::kOk, const Text& title = Text(kDefaultTitle));
void Beep();

IScreen& Screen();
IClipboard& Clipboard();
IPrinter& Printer();
IClock& Clock();
IFileSystem& FileSystem();
IRegistry& Registry();
IShell& Shell();
IHostObjects& HostObjects();
IFormHost& FormHost();
const Locale& CurrentLocale();

/// Swaps the set for its own length.
class ServicesScope {
 public:
  explicit ServicesScope(Services services) : before_(CurrentServices()) {
    SetServices(std::move(services));
  }
  ~ServicesScope() { SetServices(before_); }
  ServicesScope(const ServicesScope&) = delete;
  ServicesScope& operator=(const ServicesScope&) = delete;

 private:
  Services before_;
};

}  // namespace brelmon
