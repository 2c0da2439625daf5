// SPDX-License-Identifier: GPL-2.0-or-later
// Headers of Qt and QGIS that cost most.
#pragma once

#include <qgisinterface.h>
#include <qgslayertree.h>
#include <qgslayertreeview.h>
#include <qgsmapcanvas.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <QApplication>
#include <QDialog>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <vector>
