// SPDX-License-Identifier: GPL-2.0-or-later
// Where the component's library is.
#include "hosts/qgis/plugin/componentpath.h"

#include <dlfcn.h>

#include <QFile>
#include <QFileInfo>

namespace brelmon::qgis {

std::string ComponentPath() {
  const QString named = qEnvironmentVariable("BRELMON_COMPONENT");
  if (!named.isEmpty()) return QFileInfo(named).absoluteFilePath().toStdString();
  Dl_info own{};
  ::dladdr(reinterpret_cast<void*>(&ComponentPath), &own);
  const QFileInfo plugin(QFile::decodeName(own.dli_fname));
  const QString beside = plugin.absolutePath() + QStringLiteral("/libBrelmonOpenTable.so");
  if (QFileInfo::exists(beside)) return beside.toStdString();
  return BRELMON_COMPONENT_FILE;
}

}  // namespace brelmon::qgis
