// SPDX-License-Identifier: GPL-2.0-or-later
// The host in a page: opens a published module and stands in for the application.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "hosts/common/clock.h"
#include "hosts/web/document.h"
#include "hosts/web/windows.h"
#include "platform/services.h"

namespace brelmon::web {

/// One at a time. Its services become the process's own while it lives.
class WebHost {
 public:
  /// Throws std::runtime_error for a module that can't be read. Makes the module's folder with its
  /// document and empty files for media and layer files.
  explicit WebHost(const std::string& moduleJson);
  ~WebHost();
  WebHost(const WebHost&) = delete;
  WebHost& operator=(const WebHost&) = delete;

  /// Before Open: a published table, or the text of a file in the module.
  void PutTable(const std::string& file, std::string bytes);
  void PutFile(const std::string& path, const std::string& bytes);
  /// Makes the document.
  void Open(const Locale& locale);

  const Module& Facts() const;
  const Sources& AllSources() const;
  const std::string& Folder() const;  // the module's, system path
  Ref<IApplication> Application() const;
  Ref<IMxDocument> Document() const;
  document::IUserDocument& User() const;
  const Services& HostServices() const;
  TableWindows& Tables() const;
  host::HostClock& Clock() const;
  /// Selected graphics of the focus map. Throws std::runtime_error for a text that is no WKT.
  void SetGraphics(const std::vector<std::string>& wkts);
  /// The item of that name for the page; unset if no frame has it.
  Ref<IObject> ItemOf(int id) const;
  Ref<IMap> FrameOf(int id) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace brelmon::web
