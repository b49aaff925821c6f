#pragma once
// What the measurements of windows share: their screen, painted nowhere, of the size of a desk's.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryFile>

#include "platform/io/senales.h"
#include "platform/ui/tema.h"

// The whole of such a program's main().
inline int MedirConVentanas(int argc, char** argv) {
  NombrarZona();
  QTemporaryFile pantalla(QDir::tempPath() + QStringLiteral("/pantallaXXXXXX.json"));
  if (!pantalla.open()) return 1;
  pantalla.write(R"({"screens":[{"name":"s","x":0,"y":0,"width":1024,"height":768}]})");
  pantalla.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + pantalla.fileName().toLocal8Bit());
  QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));  // the platform tells all that it can't do
  QApplication app(argc, argv);
  tema::aplicar(app);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
