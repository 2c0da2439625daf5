// SPDX-License-Identifier: GPL-2.0-or-later
// The jobs inside QGIS, each in a turn as a click has one. BRELMON_BENCH_JOBS names document,
// layer, query, folder of summaries and the file that takes the figures, divided by line ends.
#include <qgisinterface.h>
#include <qgsproject.h>

#include <QApplication>
#include <QMainWindow>
#include <QThread>
#include <fstream>

#include "bench/platform/jobs.h"
#include "hosts/common/paths.h"
#include "hosts/qgis/plugin/testdriver.h"
#include "hosts/qgis/qgishost.h"

extern "C" Q_DECL_EXPORT void brelmon_test_run(const brelmon::qgis::TestAccess& access) {
  using namespace brelmon;
  const QStringList told = qEnvironmentVariable("BRELMON_BENCH_JOBS").split(QLatin1Char('\n'));
  std::ofstream out(told.value(4).toStdString());
  try {
    QgsProject::instance()->read(told.value(0));
    access.iface->mainWindow()->showMaximized();
    for (int i = 0; i < 200; ++i) {  // until the map is drawn
      QApplication::processEvents();
      QThread::msleep(10);
    }
    bench::RunJobs(
        {access.application->Document().As<IMxDocument>(), access.services.objects, access.inTurn},
        {FromUtf8(told.value(1).toStdString()), FromUtf8(told.value(2).toStdString()),
         host::Paths().ToWindows(told.value(3).toStdString()) + u"\\"},
        out);
  } catch (const Failure& failure) {
    out << "failed: " << ToUtf8(failure.Description) << std::endl;
  } catch (const std::exception& failure) {
    out << "failed: " << failure.what() << std::endl;
  }
  out.close();
  QgsProject::instance()->setDirty(false);
  std::_Exit(0);
}
