// SPDX-License-Identifier: GPL-2.0-or-later
// Programs are heard of when they end; nobody waits for them.
#include "hosts/qgis/services/openings.h"

#include <QSocketNotifier>

#include "hosts/qgis/services/errordialog.h"

namespace brelmon::qgis {

host::OpeningWatch WatchOpenings(IMessageBox& messageBox) {
  const auto context = std::make_shared<QObject>();  // ends the notifiers with the watch
  return [&messageBox, context](std::unique_ptr<host::Opening> opening) {
    if (opening->EndDescriptor() < 0) return;
    auto* end = new QSocketNotifier(opening->EndDescriptor(), QSocketNotifier::Read, context.get());
    const std::shared_ptr<host::Opening> ended = std::move(opening);
    QObject::connect(end, &QSocketNotifier::activated, end, [&messageBox, ended, end] {
      end->setEnabled(false);
      end->deleteLater();
      const Text complaint = ended->Complaint();
      if (complaint.empty()) return;
      InTurn([&] { messageBox.Show(complaint, box::kExclamation, Text(host::kNotOpenedTitle)); });
    });
  };
}

}  // namespace brelmon::qgis
